#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace pryvane {

/// What a walk keeps of a folder's entries until it comes to them, packed into one block.
class EntryList {
public:
    enum class Kind : std::uint8_t {
        Folder, ///< to be entered
        Match,  ///< a file that is known to be a finding
    };
    struct Entry {
        Kind kind = Kind::Folder;
        std::string_view name; ///< NUL-terminated; valid until the list changes
    };

    void append(Kind kind, std::string_view name)
    {
        const auto length = static_cast<std::uint16_t>(name.size()); // a name has at most 1,023
        m_block += static_cast<char>(kind);
        m_block.append(reinterpret_cast<const char*>(&length), sizeof length);
        m_block.append(name.data(), name.size());
        m_block += '\0';
        m_folders += kind == Kind::Folder ? 1 : 0;
    }

    /// Takes the next entry; false when none is left.
    [[nodiscard]] bool next(Entry& entry)
    {
        if (m_next == m_block.size())
            return false;
        entry = at(m_next);
        m_next += sizeInBlock(entry);
        m_folders -= entry.kind == Kind::Folder ? 1 : 0;
        return true;
    }

    [[nodiscard]] bool empty() const { return m_next == m_block.size(); }
    [[nodiscard]] std::size_t folders() const { return m_folders; } ///< not yet taken
    [[nodiscard]] std::size_t bytes() const { return m_block.size(); }

    /// Takes away all from that folder on, counting the folders not yet taken from 0.
    [[nodiscard]] EntryList splitAtFolder(std::size_t number)
    {
        std::size_t at = m_next;
        for (std::size_t seen = 0;; at += sizeInBlock(this->at(at))) {
            if (this->at(at).kind == Kind::Folder && seen++ == number)
                break;
        }
        EntryList rest;
        rest.m_block = m_block.substr(at);
        rest.m_folders = m_folders - number;
        m_block.resize(at);
        m_folders = number;
        return rest;
    }

    /// Empties the list; gives back the block where it has grown.
    void clear()
    {
        if (m_block.capacity() > kKept)
            m_block = std::string();
        m_block.clear();
        m_next = m_folders = 0;
    }

private:
    static constexpr std::size_t kKept = 4096;

    [[nodiscard]] Entry at(std::size_t place) const
    {
        std::uint16_t length = 0;
        std::memcpy(&length, m_block.data() + place + 1, sizeof length);
        return {static_cast<Kind>(m_block[place]),
                std::string_view(m_block.data() + place + 1 + sizeof length, length)};
    }
    [[nodiscard]] static std::size_t sizeInBlock(const Entry& entry)
    {
        return 1 + sizeof(std::uint16_t) + entry.name.size() + 1;
    }

    std::string m_block;
    std::size_t m_next = 0;
    std::size_t m_folders = 0;
};

} // namespace pryvane
