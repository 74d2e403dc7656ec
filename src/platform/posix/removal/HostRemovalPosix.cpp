#include "platform/posix/removal/HostRemoval.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

FolderHandle openBelow(int folder, const std::string& name)
{
    FolderHandle handle = FolderHandle::openIn(folder, name.c_str());
    struct stat above {};
    if (!handle || (fstat(folder, &above) == 0 && above.st_dev == handle.id().device))
        return handle;
    handle.close();
    errno = EXDEV;
    return handle;
}

bool isMountPoint(int folder, const std::string& name)
{
    struct stat above {
    }, here{};
    return fstat(folder, &above) == 0 &&
           fstatat(folder, name.c_str(), &here, AT_SYMLINK_NOFOLLOW) == 0 &&
           above.st_dev != here.st_dev;
}

bool isLocked(int folder, const std::string& name)
{
#ifdef __APPLE__
    constexpr auto kMarks = UF_IMMUTABLE | UF_APPEND | SF_IMMUTABLE | SF_APPEND;
    struct stat above {
    }, here{};
    return (fstat(folder, &above) == 0 && (above.st_flags & kMarks) != 0) ||
           (fstatat(folder, name.c_str(), &here, AT_SYMLINK_NOFOLLOW) == 0 &&
            (here.st_flags & kMarks) != 0);
#else
    static_cast<void>(folder);
    static_cast<void>(name);
    return false; // the host tells no such mark
#endif
}

} // namespace pryvane
