#include "platform/posix/removal/HostRemoval.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pryvane {

namespace {

struct statx attributesOf(int folder, const char* name, int flags)
{
    struct statx data {};
    if (statx(folder, name, flags | AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_MNT_ID, &data) !=
        0)
        return {};
    return data;
}

/// For kernels without openat2: opens, then compares the mounts.
FolderHandle openAndCompare(int folder, const std::string& name)
{
    FolderHandle handle = FolderHandle::openIn(folder, name.c_str());
    if (!handle)
        return handle;
    const auto above = attributesOf(folder, "", AT_EMPTY_PATH);
    const auto here = attributesOf(handle.fd(), "", AT_EMPTY_PATH);
    if (above.stx_mnt_id == here.stx_mnt_id && above.stx_dev_major == here.stx_dev_major &&
        above.stx_dev_minor == here.stx_dev_minor)
        return handle;
    handle.close();
    errno = EXDEV;
    return handle;
}

} // namespace

FolderHandle openBelow(int folder, const std::string& name)
{
    open_how how{};
    how.flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    how.resolve = RESOLVE_NO_XDEV | RESOLVE_NO_SYMLINKS | RESOLVE_BENEATH;
    for (int tries = 0; tries < 128; ++tries) {
        const long fd = syscall(SYS_openat2, folder, name.c_str(), &how, sizeof how);
        if (fd >= 0)
            return FolderHandle(static_cast<int>(fd));
        if (errno == ENOSYS || errno == EPERM)
            return openAndCompare(folder, name);
        if (errno != EAGAIN && errno != EINTR)
            break;
    }
    return {};
}

bool isMountPoint(int folder, const std::string& name)
{
    return (attributesOf(folder, name.c_str(), 0).stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

bool isLocked(int folder, const std::string& name)
{
    constexpr auto kMarks = STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND;
    return (attributesOf(folder, name.c_str(), 0).stx_attributes & kMarks) != 0 ||
           (attributesOf(folder, "", AT_EMPTY_PATH).stx_attributes & kMarks) != 0;
}

} // namespace pryvane
