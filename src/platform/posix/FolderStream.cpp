#include "platform/posix/FolderStream.h"

#include <cerrno>
#include <fcntl.h>

namespace pryvane {

namespace {

bool isDots(const char* name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

FileKind kindOfType(unsigned char type)
{
    switch (type) {
    case DT_UNKNOWN:
        return FileKind::Unknown;
    case DT_DIR:
        return FileKind::Folder;
    case DT_REG:
        return FileKind::RegularFile;
    case DT_LNK:
        return FileKind::SymbolicLink;
    default:
        return FileKind::Other;
    }
}

} // namespace

FileKind kindOfMode(mode_t mode)
{
    if (S_ISDIR(mode))
        return FileKind::Folder;
    if (S_ISREG(mode))
        return FileKind::RegularFile;
    return S_ISLNK(mode) ? FileKind::SymbolicLink : FileKind::Other;
}

FolderStream::FolderStream(UniqueFd fd) : m_stream(fdopendir(fd.get()))
{
    if (m_stream)
        static_cast<void>(fd.release());
    else
        m_error = errno;
}

bool FolderStream::next(Entry& entry)
{
    if (!m_stream || m_error)
        return false;
    while (true) {
        errno = 0;
        const dirent* read = readdir(m_stream.get());
        if (!read) {
            m_error = errno;
            return false;
        }
        if (isDots(read->d_name))
            continue;
        entry.name = read->d_name;
        entry.kind = kindOfType(read->d_type);
        struct stat data {};
        if (entry.kind == FileKind::Unknown &&
            fstatat(fd(), read->d_name, &data, AT_SYMLINK_NOFOLLOW) == 0)
            entry.kind = kindOfMode(data.st_mode);
        return true;
    }
}

} // namespace pryvane
