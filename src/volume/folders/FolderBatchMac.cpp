#include "volume/folders/BulkRecords.h"
#include "volume/folders/FolderHandle.h"

#include <cerrno>
#include <cstdint>
#include <sys/attr.h>
#include <unistd.h>

namespace pryvane {

namespace {

constexpr std::size_t kBufferSize = 32768;

} // namespace

FolderBatch::FolderBatch() : m_buffer(std::make_unique<char[]>(kBufferSize)) {}

bool FolderBatch::fill(FolderHandle& folder)
{
    m_folder = &folder;
    m_at = m_filled = 0;
    m_atEnd = true;
    struct attrlist asked {};
    asked.bitmapcount = ATTR_BIT_MAP_COUNT;
    asked.commonattr = ATTR_CMN_RETURNED_ATTRS | ATTR_CMN_ERROR | ATTR_CMN_NAME | ATTR_CMN_OBJTYPE;
    const int entries = getattrlistbulk(folder.m_fd, &asked, m_buffer.get(), kBufferSize, 0);
    if (entries < 0)
        return false;
    const auto filled = entriesOfBulk(m_buffer.get(), kBufferSize, entries);
    if (!filled) {
        errno = EIO;
        return false;
    }
    m_filled = *filled;
    m_atEnd = entries == 0;
    return true;
}

bool FolderBatch::next(Entry& entry)
{
    if (m_at >= m_filled)
        return false;
    entry.kind = static_cast<FileKind>(m_buffer[m_at]);
    entry.name = m_buffer.get() + m_at + 1;
    m_at += entry.name.size() + 2;
    if (entry.kind == FileKind::Unknown)
        entry.kind = kindAt(m_folder->m_fd, entry.name.data());
    return true;
}

} // namespace pryvane
