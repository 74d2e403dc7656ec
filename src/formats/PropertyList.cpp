#include "formats/PropertyList.h"

#include "formats/PropertyTree.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace pryvane {

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 30; // starts and lengths have 32 bits

std::string_view withoutBlanksAndMark(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
    return bytes;
}

} // namespace

void appendUtf8(std::string& text, std::uint32_t c)
{
    const auto add = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xc0 | c >> 6);
        add(0x80 | (c & 0x3f));
    } else if (c < 0x10000) {
        add(0xe0 | c >> 12);
        add(0x80 | (c >> 6 & 0x3f));
        add(0x80 | (c & 0x3f));
    } else {
        add(0xf0 | c >> 18);
        add(0x80 | (c >> 12 & 0x3f));
        add(0x80 | (c >> 6 & 0x3f));
        add(0x80 | (c & 0x3f));
    }
}

Result<PropertyList> PropertyList::read(std::string bytes)
{
    if (bytes.size() > kMostBytes)
        return Error{"the property list is not understood: it is longer than 1 GiB"};
    const bool binary = bytes.starts_with("bplist");
    if (!binary && !withoutBlanksAndMark(bytes).starts_with('<'))
        return Error{"the property list is not understood: it is neither XML nor binary"};
    PropertyTree tree(std::move(bytes));
    const auto read = binary ? readBinaryPropertyList(tree) : readXmlPropertyList(tree);
    if (!read)
        return read.error();
    return tree.take();
}

std::string_view PropertyList::bytesOf(const PropertyNode& node) const
{
    const std::string_view all = node.decoded ? m_decoded : m_bytes;
    return all.substr(node.value >> 32, node.value & 0xffffffff);
}

PropertyKind PropertyValue::kind() const
{
    return m_list ? m_list->m_nodes[m_number].kind : PropertyKind::Nothing;
}

std::optional<std::string_view> PropertyValue::text() const
{
    if (kind() != PropertyKind::Text)
        return std::nullopt;
    return m_list->bytesOf(m_list->m_nodes[m_number]);
}

std::optional<std::string_view> PropertyValue::data() const
{
    if (kind() != PropertyKind::Data)
        return std::nullopt;
    return m_list->bytesOf(m_list->m_nodes[m_number]);
}

std::optional<std::int64_t> PropertyValue::integer() const
{
    if (kind() != PropertyKind::Integer)
        return std::nullopt;
    return static_cast<std::int64_t>(m_list->m_nodes[m_number].value);
}

std::optional<double> PropertyValue::real() const
{
    if (const auto whole = integer())
        return static_cast<double>(*whole);
    if (kind() != PropertyKind::Real)
        return std::nullopt;
    return std::bit_cast<double>(m_list->m_nodes[m_number].value);
}

std::optional<bool> PropertyValue::boolean() const
{
    if (kind() != PropertyKind::Boolean)
        return std::nullopt;
    return m_list->m_nodes[m_number].value != 0;
}

std::optional<Date> PropertyValue::date() const
{
    if (kind() != PropertyKind::Time)
        return std::nullopt;
    return Date(
        std::chrono::milliseconds(static_cast<std::int64_t>(m_list->m_nodes[m_number].value)));
}

std::optional<std::uint64_t> PropertyValue::uid() const
{
    if (kind() != PropertyKind::Uid)
        return std::nullopt;
    return m_list->m_nodes[m_number].value;
}

std::size_t PropertyValue::size() const
{
    const bool holds = kind() == PropertyKind::Dictionary || kind() == PropertyKind::Array;
    return holds ? m_list->m_nodes[m_number].value : 0;
}

PropertyValue PropertyValue::operator[](std::string_view key) const
{
    PropertyValue found;
    if (kind() != PropertyKind::Dictionary)
        return found;
    for (const PropertyEntry& entry : *this) {
        if (entry.key == key)
            found = entry.value;
    }
    return found;
}

PropertyValue::Iterator PropertyValue::begin() const
{
    if (kind() != PropertyKind::Dictionary && kind() != PropertyKind::Array)
        return end();
    return {m_list, m_number + 1, kind() == PropertyKind::Dictionary};
}

PropertyValue::Iterator PropertyValue::end() const
{
    return {m_list, m_list ? m_list->m_nodes[m_number].end : 0, kind() == PropertyKind::Dictionary};
}

PropertyEntry PropertyValue::Iterator::operator*() const
{
    if (!m_keyed)
        return {{}, {m_list, m_number}};
    return {m_list->bytesOf(m_list->m_nodes[m_number]), {m_list, m_number + 1}};
}

PropertyValue::Iterator& PropertyValue::Iterator::operator++()
{
    m_number = m_list->m_nodes[m_keyed ? m_number + 1 : m_number].end;
    return *this;
}

} // namespace pryvane
