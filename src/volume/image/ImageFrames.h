#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

/// How the program and the reader of disk images talk: frames of a length, a kind and a body, both
/// ways. Numbers are this machine's own, as both run on it.
namespace pryvane::frames {

inline constexpr std::uint32_t kVersion = 1;
inline constexpr std::size_t kLongest = std::size_t{1} << 20; ///< of one body
inline constexpr std::size_t kLongestName = 4096;

enum class Kind : std::uint8_t {
    // To the reader.
    Request = 'R', ///< version, what, partition + 1 or 0, path, volume, password
    Content = 'c', ///< longest, path: asks for a file

    // From the reader.
    Partition = 'P', ///< number, start and length in bytes, description
    Volume = 'V',    ///< partition + 1 or 0, number, role, flags, file system, name
    Chosen =
        'C', ///< which of the volumes told, counted from 0; whether no other file can be opened
    Entries = 'E', ///< entries, one behind the other
    Bytes = 'B',   ///< a file's content
    Locked = 'L',  ///< the same, where it wants the right password
    Problem = 'X', ///< why it cannot be done, for a person
    Done = 'D',
};

enum class What : std::uint8_t { Layout, Names };

enum VolumeFlag : std::uint8_t { kEncrypted = 1, kCaseSensitive = 2 };

/// What one record of Entries is. Folders are left in the order in which they were entered.
enum class Step : std::uint8_t { Folder = 1, File, Link, Other, Leave, Refused };

/// Puts values behind each other.
class Writer {
public:
    template <typename Number>
    void number(Number value)
    {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        m_bytes.append(bytes, sizeof value);
    }
    void text(std::string_view text)
    {
        number(static_cast<std::uint32_t>(text.size()));
        m_bytes.append(text);
    }
    [[nodiscard]] const std::string& bytes() const { return m_bytes; }
    void clear() { m_bytes.clear(); }

private:
    std::string m_bytes;
};

/// Takes them off again; what is not there reads as none, and ok() is false from then on.
class Reader {
public:
    explicit Reader(std::string_view bytes) : m_bytes(bytes) {}

    template <typename Number>
    [[nodiscard]] Number number()
    {
        Number value{};
        if (!m_ok || m_bytes.size() < sizeof value) {
            m_ok = false;
            return value;
        }
        std::memcpy(&value, m_bytes.data(), sizeof value);
        m_bytes.remove_prefix(sizeof value);
        return value;
    }
    [[nodiscard]] std::string_view text(std::size_t longest = kLongest)
    {
        const auto size = number<std::uint32_t>();
        if (!m_ok || size > m_bytes.size() || size > longest) {
            m_ok = false;
            return {};
        }
        const std::string_view text = m_bytes.substr(0, size);
        m_bytes.remove_prefix(size);
        return text;
    }
    [[nodiscard]] bool ok() const { return m_ok; }
    [[nodiscard]] bool atEnd() const { return m_bytes.empty(); }

private:
    std::string_view m_bytes;
    bool m_ok = true;
};

} // namespace pryvane::frames
