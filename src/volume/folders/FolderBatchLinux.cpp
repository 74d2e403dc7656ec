#include "volume/folders/EntryKind.h"
#include "volume/folders/FolderHandle.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <sys/syscall.h>
#include <unistd.h>

namespace pryvane {

namespace {

/// As the kernel lays entries out.
struct RawEntry {
    std::uint64_t inode;
    std::int64_t nextOffset;
    std::uint16_t length;
    std::uint8_t type;
    char name[5];
};
constexpr std::size_t kNameAt = offsetof(RawEntry, name);

bool isDots(const char* name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

} // namespace

bool FolderBatch::fill(FolderHandle& folder)
{
    m_folder = &folder;
    m_at = m_filled = 0;
    m_atEnd = true;
    const long got = syscall(SYS_getdents64, folder.m_fd, m_buffer.get(), kSize);
    if (got < 0)
        return false;
    m_filled = static_cast<std::size_t>(got);
    m_atEnd = got == 0;
    return true;
}

bool FolderBatch::next(Entry& entry)
{
    while (m_at < m_filled) {
        const char* const raw = m_buffer.get() + m_at;
        RawEntry head;
        std::memcpy(&head, raw, kNameAt);
        m_at += head.length;
        // Some file systems leave the highest offset there is behind their last entry. Nothing can
        // stand further, which spares the call that would only say so.
        if (m_at >= m_filled && head.nextOffset == std::numeric_limits<std::int64_t>::max())
            m_atEnd = true;
        const char* const name = raw + kNameAt;
        if (isDots(name))
            continue;
        entry.name = name;
        entry.kind = kindOfType(head.type);
        if (entry.kind == FileKind::Unknown)
            entry.kind = kindAt(m_folder->m_fd, name);
        return true;
    }
    return false;
}

} // namespace pryvane
