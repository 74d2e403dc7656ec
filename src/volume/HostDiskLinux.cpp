#include "volume/HostVolume.h"
#include "volume/VolumeIdentity.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>

namespace pryvane {

bool leavesOutBlocks(int fd)
{
    struct statfs data {};
    return fstatfs(fd, &data) == 0 && data.f_type == FUSE_SUPER_MAGIC;
}

FileTimes timesOfEntry(int folder, const char* name)
{
    struct statx data {};
    const auto asked = STATX_BTIME | STATX_MTIME | STATX_CTIME;
    if (statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, asked, &data) != 0)
        return {};
    const auto told = [&](unsigned which, const statx_timestamp& moment) {
        return (data.stx_mask & which) != 0 ? DiskMoment::of(moment.tv_sec, moment.tv_nsec)
                                            : DiskMoment();
    };
    return {told(STATX_BTIME, data.stx_btime), told(STATX_MTIME, data.stx_mtime),
            told(STATX_CTIME, data.stx_ctime)};
}

std::optional<FolderMarks> folderMarks(int folder)
{
    struct statvfs fileSystem {};
    struct stat data {};
    if (fstatvfs(folder, &fileSystem) != 0 || fstat(folder, &data) != 0)
        return std::nullopt;
    FolderMarks marks;
    marks.fileSystem = fileSystem.f_fsid;
    marks.fileSystemLasts = true;
    marks.inode = data.st_ino;
    struct statx birth {};
    if (statx(folder, "", AT_EMPTY_PATH, STATX_BTIME, &birth) == 0 &&
        (birth.stx_mask & STATX_BTIME) != 0)
        marks.made = BirthTime{birth.stx_btime.tv_sec, birth.stx_btime.tv_nsec};
    return marks;
}

} // namespace pryvane
