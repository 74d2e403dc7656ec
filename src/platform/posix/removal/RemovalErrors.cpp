#include "platform/posix/removal/RemovalErrors.h"

#include "platform/posix/ErrorText.h"
#include "platform/posix/removal/HostRemoval.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace pryvane {

namespace {

/// Whether the folder's sticky bit keeps this user from removing what others own in it.
bool stickyForbids(int folder, const std::string& name)
{
    struct stat parent {
    }, item{};
    if (fstat(folder, &parent) != 0 || !(parent.st_mode & S_ISVTX) ||
        fstatat(folder, name.c_str(), &item, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    const uid_t self = geteuid();
    return self != 0 && self != parent.st_uid && self != item.st_uid;
}

bool isReadOnly(int folder)
{
    struct statvfs data {};
    return fstatvfs(folder, &data) == 0 && (data.f_flag & ST_RDONLY) != 0;
}

} // namespace

RemovalFailure failureOf(int error, int folder, const std::string& name)
{
    switch (error) {
    case EROFS:
        return {RemovalObstacle::ReadOnlyVolume, {}};
    case EBUSY:
        return {isMountPoint(folder, name) ? RemovalObstacle::MountPoint : RemovalObstacle::Busy,
                {}};
    case EXDEV:
        return {RemovalObstacle::MountPoint, {}};
    case EPERM:
    case EACCES:
        if (isLocked(folder, name))
            return {RemovalObstacle::Locked, {}};
        return {RemovalObstacle::NotPermitted,
                stickyForbids(folder, name) ? "only its owner may remove it" : errorText(error)};
    case ENOTEMPTY:
    case EEXIST:
        return {RemovalObstacle::KeepsRefilling, {}};
    default:
        return {RemovalObstacle::DeviceError, errorText(error)};
    }
}

RemovalFailure foreseenFailure(int folder, const std::string& name)
{
    if (isReadOnly(folder))
        return {RemovalObstacle::ReadOnlyVolume, {}};
    if (isLocked(folder, name))
        return {RemovalObstacle::Locked, {}};
    if (faccessat(folder, ".", W_OK | X_OK, AT_EACCESS) != 0)
        return {RemovalObstacle::NotPermitted, errorText(errno)};
    if (stickyForbids(folder, name))
        return {RemovalObstacle::NotPermitted, "only its owner may remove it"};
    if (isMountPoint(folder, name))
        return {RemovalObstacle::MountPoint, {}};
    return {};
}

} // namespace pryvane
