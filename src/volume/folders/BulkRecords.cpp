#include "volume/folders/BulkRecords.h"

#include "platform/FileSystem.h"

#include <cstdint>
#include <cstring>
#include <string_view>

namespace pryvane {

namespace {

// As the kernel documents them; any host can read such bytes.
constexpr std::uint32_t kName = 0x00000001;
constexpr std::uint32_t kObjectType = 0x00000008;
constexpr std::uint32_t kError = 0x20000000;

/// Reads one record from its front.
class Record {
public:
    Record(const char* begin, std::size_t size) : m_begin(begin), m_size(size) {}

    [[nodiscard]] std::optional<std::uint32_t> number()
    {
        std::uint32_t value = 0;
        if (m_size - m_at < sizeof value)
            return std::nullopt;
        std::memcpy(&value, m_begin + m_at, sizeof value);
        m_at += sizeof value;
        return value;
    }

    /// A text that stands further behind, told by its distance from here and its length with the
    /// NUL at its end.
    [[nodiscard]] std::optional<std::string_view> text()
    {
        const std::size_t here = m_at;
        const auto distance = number(), length = number();
        if (!distance || !length || *length == 0 || *distance > m_size - here ||
            *length > m_size - here - *distance)
            return std::nullopt;
        const std::string_view whole(m_begin + here + *distance, *length);
        // The length may count more than one NUL.
        const std::size_t end = whole.find('\0');
        return end == whole.npos ? std::nullopt : std::optional(whole.substr(0, end));
    }

private:
    const char* m_begin;
    std::size_t m_size;
    std::size_t m_at = 0;
};

FileKind kindOfObject(std::uint32_t type)
{
    switch (type) {
    case 1:
        return FileKind::RegularFile;
    case 2:
        return FileKind::Folder;
    case 5:
        return FileKind::SymbolicLink;
    case 0:
        return FileKind::Unknown;
    default:
        return FileKind::Other;
    }
}

struct Entry {
    std::string_view name;
    FileKind kind = FileKind::Unknown;
};

std::optional<Entry> entryOf(Record record)
{
    const auto common = record.number();
    for (int other = 0; other < 4; ++other) { // of volumes, folders, files and forks: none asked
        if (!record.number())
            return std::nullopt;
    }
    if (!common || (*common & kName) == 0)
        return std::nullopt;
    if ((*common & kError) != 0 && !record.number())
        return std::nullopt;
    const auto name = record.text();
    if (!name || name->empty() || *name == "." || *name == ".." || name->find('/') != name->npos)
        return std::nullopt;
    Entry entry{*name, FileKind::Unknown};
    if ((*common & kObjectType) != 0) {
        const auto type = record.number();
        if (!type)
            return std::nullopt;
        entry.kind = kindOfObject(*type);
    }
    return entry;
}

} // namespace

std::optional<std::size_t> entriesOfBulk(char* buffer, std::size_t size, int entries)
{
    std::size_t at = 0, filled = 0;
    for (int i = 0; i < entries; ++i) {
        Record head(buffer + at, size - at);
        const auto length = head.number();
        if (!length || *length < sizeof *length || *length > size - at)
            return std::nullopt;
        const auto entry = entryOf(Record(buffer + at + sizeof *length, *length - sizeof *length));
        if (!entry)
            return std::nullopt;
        at += *length;
        // What is kept of a record is shorter than it, so it never reaches the next one.
        const std::size_t letters = entry->name.size();
        const auto kind = static_cast<char>(entry->kind);
        std::memmove(buffer + filled + 1, entry->name.data(), letters);
        buffer[filled] = kind;
        buffer[filled + 1 + letters] = '\0';
        filled += letters + 2;
    }
    return filled;
}

} // namespace pryvane
