#include "volume/VolumeIdentity.h"

#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <sched.h>
#include <sys/mount.h>

namespace pryvane {
namespace {

using namespace test;

/// Mounts two disks of a kind, one after the other at the same folder, and tells their identities
/// apart by a "/"; or why that cannot be done here.
std::string identitiesOf(const TemporaryFolder& host, const std::string& kind)
{
    if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return "skipped: no mounts of its own";
    const std::string at = host.hostPath("at");
    std::string identities;
    for (const std::string disk : {"one", "two"}) {
        std::string command = "mount -t " + kind + " none " + at;
        if (kind == "overlay")
            command += " -o lowerdir=" + host.hostPath("lower") +
                       ",upperdir=" + host.hostPath(disk) +
                       "/upper,workdir=" + host.hostPath(disk) + "/work";
        if (kind == "fuse")
            command = "truncate -s 2M " + host.hostPath(disk) + ".img && mkfs.ext2 -q " +
                      host.hostPath(disk) + ".img && fuse2fs " + host.hostPath(disk) + ".img " + at;
        if (std::system(("{ " + command + "; } >/dev/null 2>&1").c_str()) != 0)
            return "skipped: cannot mount " + kind;
        identities += (disk == "two" ? "/" : "") + VolumeFileSystem::open(at).value()->identity();
        umount2(at.c_str(), MNT_DETACH);
    }
    return identities;
}

/// A wrong answer here lets the report of one disk remove what lies on another.
TEST(VolumeIdentity, NoTwoDisksEverHaveOneIdentity)
{
    if (!runningAsRoot())
        GTEST_SKIP() << "only root may mount";
    int compared = 0;
    for (const std::string kind : {"tmpfs", "ramfs", "overlay", "fuse"}) {
        const TemporaryFolder host;
        for (const char* folder : {"at", "lower", "one/upper", "one/work", "two/upper", "two/work"})
            host.folder(folder);
        const std::string told = inChild([&] { return identitiesOf(host, kind); });
        if (told.starts_with("skipped")) {
            std::cout << told << "\n";
            continue;
        }
        ++compared;
        const auto slash = told.find('/');
        EXPECT_FALSE(isSameVolume(told.substr(0, slash), told.substr(slash + 1)))
            << kind << " " << told;
        if (kind == "ramfs" || kind == "fuse") {
            EXPECT_EQ(told, "/") << kind << " has nothing that tells its disks apart";
        }
    }
    if (compared == 0)
        GTEST_SKIP() << "nothing can be mounted here";
}

constexpr std::array<std::uint8_t, 16> kOne = {1, 2, 3};
constexpr std::array<std::uint8_t, 16> kOther = {1, 2, 4};

/// A disk's root as a Mac tells of it, which gives numbers out as it mounts.
FolderMarks onMac(std::optional<std::array<std::uint8_t, 16>> volume, std::uint64_t number,
                  std::optional<BirthTime> made = BirthTime{1700000000, 5})
{
    return {volume, number, false, 2, made};
}

/// The same on Linux, where the number comes from the disk.
FolderMarks onLinux(std::uint64_t number, std::optional<BirthTime> made = BirthTime{1700000000, 5})
{
    return {std::nullopt, number, true, 2, made};
}

TEST(VolumeIdentity, RestsOnWhatTheDiskItselfHolds)
{
    const struct {
        const char* of;
        FolderMarks one;
        FolderMarks other;
        bool isSame;
    } rows[] = {
        {"two disks of a Mac mounted in turn under one number", onMac(kOne, 7), onMac(kOther, 7),
         false},
        {"one disk of a Mac mounted under two numbers", onMac(kOne, 7), onMac(kOne, 8), true},
        {"two folders made in turn under one inode", onMac(kOne, 7),
         onMac(kOne, 7, BirthTime{1700000000, 6}), false},
        {"a Mac's disk without an identifier", onMac({}, 7), onMac({}, 7), false},
        {"a Mac's disk without a time", onMac(kOne, 7, {}), onMac(kOne, 7, {}), false},
        {"one disk on Linux", onLinux(7), onLinux(7), true},
        {"two disks on Linux", onLinux(7), onLinux(8), false},
        {"two disks made in turn on Linux", onLinux(7), onLinux(7, BirthTime{1700000001, 5}),
         false},
        {"a disk without a number on Linux", onLinux(0), onLinux(0), false},
        {"a disk without a time on Linux", onLinux(7, {}), onLinux(7, {}), false},
    };
    for (const auto& row : rows) {
        const FolderIdentity one = identityOf(row.one);
        const FolderIdentity other = identityOf(row.other);
        EXPECT_EQ(one.isComplete && other.isComplete && one.text == other.text, row.isSame)
            << row.of << ": " << one.text << " and " << other.text;
    }
    EXPECT_EQ(identityOf(onLinux(0xabc)).text, "abc-2-6553f100.5") << "as reports have it";
}

} // namespace
} // namespace pryvane
