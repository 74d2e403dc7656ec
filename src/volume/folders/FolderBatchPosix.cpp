#include "volume/folders/EntryKind.h"
#include "volume/folders/FolderHandle.h"

#include <cerrno>
#include <cstring>

namespace pryvane {

namespace {

constexpr std::size_t kLongestName = 1024; // more than any dirent holds

} // namespace

/// Fills the buffer with a kind and a NUL-terminated name for each entry. Where the host fails
/// behind some entries, these come first, and the next fill fails without asking it again: what it
/// says after a failure, its end included, means nothing.
bool FolderBatch::fill(FolderHandle& folder)
{
    m_folder = &folder;
    m_at = m_filled = 0;
    m_atEnd = true;
    if (folder.m_failure != 0) {
        errno = folder.m_failure;
        return false;
    }
    if (!folder.m_stream)
        folder.m_stream = fdopendir(folder.m_fd);
    if (!folder.m_stream)
        return false;
    while (m_filled + kLongestName + 2 < kSize) {
        errno = 0;
        const dirent* const read = readdir(folder.m_stream);
        if (!read) {
            folder.m_failure = errno;
            m_atEnd = folder.m_failure == 0 || m_filled == 0;
            return folder.m_failure == 0 || m_filled > 0;
        }
        const std::string_view name = read->d_name;
        if (name == "." || name == "..")
            continue;
        m_buffer[m_filled++] = static_cast<char>(kindOfType(read->d_type));
        std::memcpy(m_buffer.get() + m_filled, name.data(), name.size() + 1);
        m_filled += name.size() + 1;
    }
    m_atEnd = false;
    return true;
}

bool FolderBatch::next(Entry& entry)
{
    return nextKept(entry);
}

} // namespace pryvane
