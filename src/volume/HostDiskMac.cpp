#include "core/Files.h"
#include "volume/HostVolume.h"
#include "volume/VolumeIdentity.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <sys/attr.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace pryvane {

namespace {

using Identifier = std::array<std::uint8_t, 16>;

/// The identifier that the volume got when it was made. The kernel tells it of a volume's root
/// only, so it is asked where the volume is mounted.
std::optional<Identifier> volumeIdentifier(const char* mountedAt)
{
    struct Answer {
        std::uint32_t length;
        Identifier identifier;
    } answer{};
    struct attrlist asked {};
    asked.bitmapcount = ATTR_BIT_MAP_COUNT;
    asked.volattr = ATTR_VOL_INFO | ATTR_VOL_UUID;
    if (getattrlist(mountedAt, &asked, &answer, sizeof answer, 0) != 0 ||
        answer.length < sizeof answer ||
        std::ranges::all_of(answer.identifier, [](std::uint8_t byte) { return byte == 0; }))
        return std::nullopt;
    return answer.identifier;
}

bool isSameFileSystem(const struct statfs& a, const struct statfs& b)
{
    return std::memcmp(&a.f_fsid, &b.f_fsid, sizeof a.f_fsid) == 0;
}

} // namespace

bool leavesOutBlocks(int)
{
    return false;
}

FileTimes timesOfEntry(int folder, const char* name)
{
    struct stat data {};
    if (fstatat(folder, name, &data, AT_SYMLINK_NOFOLLOW) != 0)
        return {};
    const auto told = [](const timespec& moment) {
        return DiskMoment::of(moment.tv_sec, moment.tv_nsec);
    };
    return {data.st_birthtimespec.tv_sec > 0 ? told(data.st_birthtimespec) : DiskMoment(),
            told(data.st_mtimespec), told(data.st_ctimespec)};
}

std::optional<FolderMarks> folderMarks(int folder)
{
    struct statfs fileSystem {};
    struct statfs there {};
    struct stat data {};
    if (fstatfs(folder, &fileSystem) != 0 || fstat(folder, &data) != 0)
        return std::nullopt;
    FolderMarks marks;
    marks.fileSystem = static_cast<std::uint32_t>(fileSystem.f_fsid.val[0]);
    marks.inode = data.st_ino;
    if (data.st_birthtimespec.tv_sec > 0)
        marks.made = BirthTime{data.st_birthtimespec.tv_sec, data.st_birthtimespec.tv_nsec};
    // Another disk may have been mounted over it meanwhile.
    if (statfs(fileSystem.f_mntonname, &there) == 0 && isSameFileSystem(there, fileSystem))
        marks.volume = volumeIdentifier(fileSystem.f_mntonname);
    return marks;
}

} // namespace pryvane
