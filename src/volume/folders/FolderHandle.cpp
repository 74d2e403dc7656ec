#include "volume/folders/FolderHandle.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

FolderHandle FolderHandle::openIn(int folder, const char* name)
{
    return FolderHandle(openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

FolderHandle FolderHandle::openParent(const FolderId& was) const
{
    FolderHandle parent = openChild("..");
    if (parent && parent.id() != was)
        parent.close();
    return parent;
}

FolderHandle FolderHandle::duplicate() const
{
    return FolderHandle(fcntl(m_fd, F_DUPFD_CLOEXEC, 0));
}

FolderId FolderHandle::id() const
{
    struct stat data {};
    if (fstat(m_fd, &data) != 0)
        return {};
    return folderIdOf(data);
}

void FolderHandle::close()
{
    if (m_stream)
        closedir(std::exchange(m_stream, nullptr)); // and the descriptor with it
    else if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

FileKind kindOfMode(mode_t mode)
{
    if (S_ISDIR(mode))
        return FileKind::Folder;
    if (S_ISREG(mode))
        return FileKind::RegularFile;
    return S_ISLNK(mode) ? FileKind::SymbolicLink : FileKind::Other;
}

FileKind kindAt(int folder, const char* name)
{
    struct stat data {};
    if (fstatat(folder, name, &data, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT || errno == ENOTDIR ? FileKind::Missing : FileKind::Unknown;
    return kindOfMode(data.st_mode);
}

} // namespace pryvane
