#pragma once

#include "formats/PropertyList.h"

#include <bit>

namespace pryvane {

/// Builds a property list value by value, and holds its limits. Both readers fill it.
class PropertyTree {
public:
    /// `bytes` become the list's own.
    explicit PropertyTree(std::string bytes) { m_list.m_bytes = std::move(bytes); }

    [[nodiscard]] std::string_view bytes() const { return m_list.m_bytes; }
    [[nodiscard]] std::string& decoded() { return m_list.m_decoded; }
    [[nodiscard]] std::size_t depth() const { return m_open.size(); }
    [[nodiscard]] bool empty() const { return m_list.m_nodes.empty(); }

    /// Opens a dictionary or an array. Null, or why it cannot be.
    [[nodiscard]] const char* open(PropertyKind kind)
    {
        if (m_open.size() == PropertyList::kMostLevels)
            return "it is nested more than 512 levels deep";
        m_open.push_back(static_cast<std::uint32_t>(m_list.m_nodes.size()));
        return add(kind, 0);
    }
    void close()
    {
        m_list.m_nodes[m_open.back()].end = static_cast<std::uint32_t>(m_list.m_nodes.size());
        m_open.pop_back();
    }

    /// Adds a value, or a key, to what is open.
    [[nodiscard]] const char* add(PropertyKind kind, std::uint64_t value, bool decoded = false)
    {
        auto& nodes = m_list.m_nodes;
        // A file of this size that refers to each container once cannot hold more.
        constexpr std::size_t kSlack = 4096;
        if (nodes.size() == PropertyList::kMostValues || nodes.size() > bytes().size() + kSlack)
            return "it holds too many values";
        nodes.push_back({kind, decoded, static_cast<std::uint32_t>(nodes.size() + 1), value});
        return nullptr;
    }
    [[nodiscard]] const char* addBytes(PropertyKind kind, std::uint64_t start, std::uint64_t length,
                                       bool decoded)
    {
        return add(kind, start << 32 | length, decoded);
    }
    [[nodiscard]] const char* addReal(PropertyKind kind, double value)
    {
        return add(kind, std::bit_cast<std::uint64_t>(value));
    }

    /// Counts an element or entry of what is open.
    void count()
    {
        if (!m_open.empty())
            ++m_list.m_nodes[m_open.back()].value;
    }

    [[nodiscard]] PropertyList take() { return std::move(m_list); }

private:
    PropertyList m_list;
    std::vector<std::uint32_t> m_open;
};

/// Fill the tree from its bytes. An error says what is broken and where.
[[nodiscard]] Result<Done> readXmlPropertyList(PropertyTree& tree);
[[nodiscard]] Result<Done> readBinaryPropertyList(PropertyTree& tree);

/// Appends a character as UTF-8.
void appendUtf8(std::string& text, std::uint32_t character);

} // namespace pryvane
