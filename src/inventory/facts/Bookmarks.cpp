#include "inventory/facts/Bookmarks.h"

#include "inventory/facts/Facts.h"

#include <optional>

namespace pryvane {

namespace {

/// Numbers out of bytes; none where they end too early.
class Bytes {
public:
    explicit Bytes(std::string_view bytes) : m_bytes(bytes) {}

    [[nodiscard]] std::optional<std::uint32_t> little32(std::size_t at) const
    {
        if (at > m_bytes.size() || m_bytes.size() - at < 4)
            return std::nullopt;
        std::uint32_t value = 0;
        for (std::size_t i = 4; i > 0; --i)
            value = value << 8 | static_cast<unsigned char>(m_bytes[at + i - 1]);
        return value;
    }
    [[nodiscard]] std::optional<std::uint16_t> big16(std::size_t at) const
    {
        if (at > m_bytes.size() || m_bytes.size() - at < 2)
            return std::nullopt;
        return static_cast<std::uint16_t>(static_cast<unsigned char>(m_bytes[at]) << 8 |
                                          static_cast<unsigned char>(m_bytes[at + 1]));
    }
    [[nodiscard]] std::optional<std::string_view> part(std::size_t at, std::size_t length) const
    {
        if (at > m_bytes.size() || m_bytes.size() - at < length)
            return std::nullopt;
        return m_bytes.substr(at, length);
    }

private:
    std::string_view m_bytes;
};

/// An item of a bookmark: its type and its bytes.
[[nodiscard]] std::optional<std::string_view> itemAt(const Bytes& body, std::uint32_t offset,
                                                     std::uint32_t type)
{
    const auto length = body.little32(offset);
    if (!length || body.little32(std::size_t{offset} + 4) != type)
        return std::nullopt;
    return body.part(std::size_t{offset} + 8, *length);
}

/// Where the item that a key names stands.
[[nodiscard]] std::optional<std::uint32_t> offsetOf(const Bytes& body, std::uint32_t key)
{
    constexpr std::uint32_t kMostKeys = 256;
    constexpr std::size_t kTableHead = 20;
    const auto table = body.little32(0);
    const auto count = table ? body.little32(std::size_t{*table} + 16) : std::nullopt;
    if (!count || *count > kMostKeys)
        return std::nullopt;
    for (std::uint32_t i = 0; i < *count; ++i) {
        const std::size_t entry = std::size_t{*table} + kTableHead + std::size_t{i} * 12;
        if (body.little32(entry) == key)
            return body.little32(entry + 4);
    }
    return std::nullopt;
}

} // namespace

std::string pathOfBookmark(std::string_view bookmark)
{
    constexpr std::uint32_t kPath = 0x1004;
    constexpr std::uint32_t kArray = 0x601;
    constexpr std::uint32_t kText = 0x101;
    constexpr std::size_t kBodyOffset = 12;
    const auto start = Bytes(bookmark).little32(kBodyOffset);
    if (!bookmark.starts_with("book") || !start || *start > bookmark.size())
        return {};
    const Bytes body(bookmark.substr(*start));
    const auto place = offsetOf(body, kPath);
    const auto names = place ? itemAt(body, *place, kArray) : std::nullopt;
    if (!names)
        return {};
    std::string path;
    for (std::size_t i = 0; i + 4 <= names->size() && path.size() <= kLongestFactText; i += 4) {
        const auto name = itemAt(body, *Bytes(*names).little32(i), kText);
        if (!name)
            return {};
        path += "/" + boundedText(*name);
    }
    return boundedText(path);
}

std::string pathOfAlias(std::string_view alias)
{
    constexpr std::size_t kVersion = 6;
    constexpr std::uint16_t kPath = 18;
    constexpr std::uint16_t kMountPoint = 19;
    constexpr std::uint16_t kEnd = 0xffff;
    const Bytes bytes(alias);
    const auto version = bytes.big16(kVersion);
    if (!version || (*version != 2 && *version != 3))
        return {};
    std::size_t at = *version == 2 ? 150 : 58; // behind the head
    std::string path;
    std::string mountPoint = "/";
    for (auto tag = bytes.big16(at); tag && *tag != kEnd; tag = bytes.big16(at)) {
        const auto length = bytes.big16(at + 2);
        const auto value = length ? bytes.part(at + 4, *length) : std::nullopt;
        if (!value)
            return {};
        if (*tag == kPath)
            path = boundedText(*value);
        else if (*tag == kMountPoint)
            mountPoint = boundedText(*value);
        at += 4 + *length + *length % 2u;
    }
    if (path.empty() || path.starts_with('/'))
        return path;
    return (mountPoint == "/" ? mountPoint : mountPoint + "/") + path;
}

} // namespace pryvane
