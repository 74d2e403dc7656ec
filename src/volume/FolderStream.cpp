#include "volume/FolderStream.h"

#include <cerrno>

namespace pryvane {

bool FolderStream::next(Entry& entry)
{
    FolderBatch::Entry read;
    while (m_error == 0) {
        if (m_batch.next(read)) {
            // Gone since it was listed: what it was can no longer be told.
            entry.kind = read.kind == FileKind::Missing ? FileKind::Unknown : read.kind;
            entry.name = read.name.data();
            return true;
        }
        if (m_batch.atEnd())
            return false;
        if (!m_batch.fill(m_folder))
            m_error = errno;
    }
    return false;
}

} // namespace pryvane
