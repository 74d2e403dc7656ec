#include "support/Volumes.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace pryvane
