#include "volume/folders/BulkRecords.h"
#include "volume/folders/FolderHandle.h"

#include <cerrno>
#include <cstdint>
#include <sys/attr.h>
#include <unistd.h>

namespace pryvane {

bool FolderBatch::fill(FolderHandle& folder)
{
    m_folder = &folder;
    m_at = m_filled = 0;
    m_atEnd = true;
    struct attrlist asked {};
    asked.bitmapcount = ATTR_BIT_MAP_COUNT;
    asked.commonattr = ATTR_CMN_RETURNED_ATTRS | ATTR_CMN_ERROR | ATTR_CMN_NAME | ATTR_CMN_OBJTYPE;
    const int entries = getattrlistbulk(folder.m_fd, &asked, m_buffer.get(), kSize, 0);
    if (entries < 0)
        return false;
    const auto filled = entriesOfBulk(m_buffer.get(), kSize, entries);
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
    return nextKept(entry);
}

} // namespace pryvane
