#include "removal/disk/HostRemoval.h"
#include "volume/HostVolume.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace pryvane {

namespace {

/// Which mount of the host an open folder belongs to; -1 where the kernel does not tell. Asked in
/// the way that kernels without openat2 know too.
int mountOf(int folder)
{
    file_handle none{};
    int mount = -1;
    if (name_to_handle_at(folder, "", &none, &mount, AT_EMPTY_PATH) == 0 || errno == EOVERFLOW)
        return mount;
    struct statx data {};
    if (statx(folder, "", AT_EMPTY_PATH, STATX_MNT_ID, &data) == 0 &&
        (data.stx_mask & STATX_MNT_ID) != 0)
        return static_cast<int>(data.stx_mnt_id);
    return -1;
}

/// For kernels without openat2: opens, then compares what was opened with the folder above.
FolderHandle openAndCompare(int folder, const std::string& name)
{
    FolderHandle handle = FolderHandle::openIn(folder, name.c_str());
    struct stat above {};
    if (!handle || (fstat(folder, &above) == 0 && folderIdOf(above).device == handle.id().device &&
                    mountOf(folder) == mountOf(handle.fd())))
        return handle;
    handle.close();
    errno = EXDEV;
    return handle;
}

} // namespace

std::optional<EntryFacts> factsOf(int folder, const std::string& name)
{
    constexpr unsigned kAsked =
        STATX_TYPE | STATX_MODE | STATX_INO | STATX_BLOCKS | STATX_SIZE | STATX_UID | STATX_MNT_ID;
    const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | (name.empty() ? AT_EMPTY_PATH : 0);
    struct statx data {};
    if (statx(folder, name.c_str(), flags, kAsked, &data) != 0)
        return std::nullopt;
    EntryFacts facts;
    facts.id = {makedev(data.stx_dev_major, data.stx_dev_minor), data.stx_ino};
    facts.kind = kindOfMode(data.stx_mode);
    if (facts.kind != FileKind::Folder)
        facts.bytes = static_cast<std::int64_t>(data.stx_blocks) * 512;
    if (data.stx_blocks == 0 && data.stx_size > 0 && facts.kind == FileKind::RegularFile &&
        leavesOutBlocks(folder))
        facts.bytes = static_cast<std::int64_t>((data.stx_size + 511) / 512 * 512);
    facts.owner = data.stx_uid;
    facts.isSticky = facts.kind == FileKind::Folder && (data.stx_mode & S_ISVTX) != 0;
    facts.isLocked = (data.stx_attributes & (STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND)) != 0;
    facts.isMountRoot = (data.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    return facts;
}

FolderHandle openBelow(int folder, const std::string& name)
{
    constexpr int kTries = 128;
    open_how how{};
    how.flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    how.resolve = RESOLVE_NO_XDEV | RESOLVE_NO_SYMLINKS | RESOLVE_BENEATH;
    for (int tries = 0; tries < kTries; ++tries) {
        const long fd = syscall(SYS_openat2, folder, name.c_str(), &how, sizeof how);
        if (fd >= 0)
            return FolderHandle(static_cast<int>(fd));
        if (errno == ENOSYS || errno == EPERM) // containers forbid it with EPERM
            return openAndCompare(folder, name);
        if (errno != EAGAIN && errno != EINTR)
            break;
    }
    return {};
}

} // namespace pryvane
