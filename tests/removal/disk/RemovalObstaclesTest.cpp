#include "removal/disk/ConfinedWork.h"
#include "support/HostForm.h"
#include "support/RemovalFixtures.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <optional>
#include <sched.h>
#include <string_view>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {
namespace {

using testing::StartsWith;

constexpr const char* kSkipped = "skipped: ";

/// Runs a command of the shell in the disk's root; whether it worked.
bool shell(const RemovalDisk& disk, const std::string& command)
{
    const std::string names = "finding=a/finding f=a/finding/f in=a/finding/in; ";
    return std::system(
               ("cd " + disk.folder.path() + " && { " + names + command + "; } >/dev/null 2>&1")
                   .c_str()) == 0;
}

/// From here on that system call fails in this process; with a third argument only where it is
/// that.
bool fails(unsigned call, unsigned error, std::optional<unsigned> third = std::nullopt)
{
    const auto value = static_cast<unsigned>(offsetof(seccomp_data, args) + 2 * sizeof(__u64));
    sock_filter rules[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, value),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, third.value_or(0), 0, static_cast<__u8>(third ? 1 : 0)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program = {std::size(rules), rules};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

/// Plan and removal of one item, in one text.
std::string attempt(const RemovalDisk& disk, const RemovalItem& item)
{
    const RemovalForecast forecast = disk.plan(item);
    const RemovalResult result = disk.remove(item);
    std::string text = inWords(result);
    if (forecast.obstacle != result.obstacle)
        text += "; foreseen: " + obstacleText(forecast.obstacle, forecast.detail);
    return text;
}

enum class Who : std::uint8_t { Root, Nobody };
using enum Who;

struct Row {
    const char* name;
    const char* path;
    const char* prepare; ///< as root, in mounts of its own; where it fails, it is not possible here
    Who remover;
    int stay;         ///< so many of the four entries of /a/finding
    std::string told; ///< the beginning
    bool foreseen = true;
};

const std::string kNotAllowed = "failed after 0: the folder that holds it may not be changed; ask "
                                "its owner, or run this with the rights to ";
const std::string kLocked = ": it is locked", kUnread = ": its folder cannot be read",
                  kMounted = ": another disk is mounted there";

/// Below the volume lie /a/finding/{f,in/g} and, to be hurt, /victim/{f,in/g}.
const Row kRows[] = {
    {"immutableFile", "/a/finding", "chattr +i $f", Root, 2, "failed after 2" + kLocked},
    {"appendOnlyFile", "/a/finding/f", "chattr +a $f", Root, 4, "failed after 0" + kLocked},
    {"immutableFolder", "/a/finding", "chattr +i $in", Root, 3, "failed after 1" + kLocked},
    {"immutableParent", "/a/finding/f", "chattr +i $finding", Root, 4, "failed after 0" + kLocked},
    {"sticky", "/a/finding", "chmod 1777 a", Nobody, 4, kNotAllowed + "(permission denied)"},
    {"stickyFile", "/a/finding/f", "chmod 1777 $finding", Nobody, 4,
     kNotAllowed + "(in this folder only its owner may remove it)"},
    {"noPermission", "/a/finding/f", "true", Nobody, 4, kNotAllowed + "(permission denied)"},
    {"unreadableInside", "/a/finding", "chmod 777 a $finding; chmod 700 $in", Nobody, 3,
     "failed after 1" + kUnread},
    {"unreadableOnTheWay", "/a/finding/f", "chmod 600 $finding", Nobody, 4,
     "failed after 0" + kUnread},
    {"readOnly", "/a/finding/in", "mount -B $finding $finding && mount -o remount,bind,ro $finding",
     Root, 4, "failed after 0: the volume is mounted read-only"},
    {"otherFileSystemInside", "/a/finding", "mount -t tmpfs none $in", Root, 3,
     "failed after 1" + kMounted},
    {"sameDeviceMountedInside", "/a/finding", "mount -B victim $in", Root, 3,
     "failed after 1" + kMounted},
    {"fileMountedInside", "/a/finding", "mount -B victim/f $f", Root, 2,
     "failed after 2" + kMounted},
    {"mountItself", "/a/finding", "mount -B victim/in $finding", Root, 4,
     "failed after 0" + kMounted},
    {"homeMountedElsewhere", "/a/finding/in", "mount -B Users $finding && mv Users/alice Users/in",
     Root, 4, "failed after 0: this folder is never removed"},
    {"swap", "/a/finding/f", "head -c 1M /dev/zero >$f && chmod 600 $f && mkswap $f && swapon $f",
     Root, 4, "failed after 0: it is in use; close what uses it and try again (the system swaps",
     false},
    {"mountBesides", "/a/finding", "mount -B a a", Root, 0, "removed 4"}, // none is in the way
};

/// Why that row asks what no POSIX system has to tell; empty for the others.
std::string unknownToPosix(std::string_view row)
{
    if (row.starts_with("immutable") || row.starts_with("appendOnly"))
        return "on Linux, stat() does not tell the marks of a file";
    if (row.starts_with("sameDevice") || row.starts_with("fileMounted") || row == "mountItself")
        return "a mount of the same device has the same device number; what it holds is removed";
    return "";
}

class ObstacleTest : public testing::TestWithParam<std::tuple<Row, bool>> {};

INSTANTIATE_TEST_SUITE_P(All, ObstacleTest,
                         testing::Combine(testing::ValuesIn(kRows), testing::Bool()),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name) +
                                    (std::get<1>(row.param) ? "" : "WithoutOpenat2");
                         });

TEST_P(ObstacleTest, IsToldForeseenAndLeavesTheRest)
{
    if (!runningAsRoot())
        GTEST_SKIP() << "only root may mark, mount and become another user";
    const Row& row = std::get<0>(GetParam());
    const bool openat2Known = std::get<1>(GetParam());
    if (const std::string why = unknownToPosix(row.name); isPosixForm() && !why.empty())
        GTEST_SKIP() << why;
    RemovalDisk disk;
    for (const char* path :
         {"a/finding/f", "a/finding/in/g", "victim/f", "victim/in/g", "Users/alice/f"})
        disk.folder.file(path);
    chmod(disk.folder.path().c_str(), 0755);
    const std::string answer = inChild([&] {
        if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr))
            return std::string(kSkipped) + "no mounts of its own";
        if (!shell(disk, row.prepare))
            return std::string(kSkipped) + "not possible on this file system";
        if (!openat2Known && !fails(SYS_openat2, ENOSYS))
            return std::string(kSkipped) + "no filter of system calls";
        constexpr unsigned kNobody = 65534;
        if (row.remover == Nobody && (setgid(kNobody) != 0 || setuid(kNobody) != 0))
            return std::string(kSkipped) + "cannot become nobody";
        disk.volume = volumeAt(disk.folder, NameMatching::AsOnMac); // opened as what this now is
        return attempt(disk, disk.seen(row.path));
    });
    shell(disk, "swapoff $f; chattr -ia $f $in $finding");
    if (answer.starts_with(kSkipped))
        GTEST_SKIP() << answer;
    EXPECT_THAT(answer, StartsWith(row.told));
    EXPECT_EQ(answer.find("foreseen") == answer.npos, row.foreseen) << answer;
    int stayed = 0;
    for (const char* path : {"a/finding", "a/finding/f", "a/finding/in", "a/finding/in/g"})
        stayed += disk.folder.contains(path) ? 1 : 0;
    EXPECT_EQ(stayed, row.stay);
    for (const char* path : {"victim/f", "victim/in/g"})
        EXPECT_TRUE(disk.folder.contains(path)) << path;
}

struct FailingCall {
    unsigned call, error;
    std::optional<unsigned> third; ///< only where its third argument is that
    std::string told;              ///< the beginning
};

TEST(FailingCalls, AreToldAndNeverAsRemoved)
{
    const std::string device = "the system reports an error; check the disk, then try again (";
    const std::string kept = "failed after 0: the folder that holds it may not be changed";
    const std::string untold =
        "failed after 0: " + device + "which folders must stay cannot be told: ";
    const bool confined = kernelConfinementOfRemoval() == KernelConfinement::Enforced;
    const auto any = std::nullopt;
    const FailingCall rows[] = {
        // a folder that is never empty, however often it is emptied
        {SYS_unlinkat, ENOTEMPTY, AT_REMOVEDIR, "failed after 2: something keeps filling"},
        // a file that is a folder at the moment it is removed, however often it is tried
        {SYS_unlinkat, EISDIR, 0, "failed after 0: its name or one in it is exchanged"},
        {SYS_unlinkat, EBUSY, 0, "failed after 0: it is in use; close what uses it"},
        {SYS_unlinkat, EIO, AT_REMOVEDIR, "failed after 2: " + device + "input/output error)"},
        {SYS_unlinkat, EPERM, 0, kept},
        {SYS_unlinkat, EACCES, 0,
         confined ? "failed after 0: the system stopped a removal outside" : kept},
        {SYS_unlinkat, EROFS, 0, "failed after 0: the volume is mounted read-only"},
        // folders that cannot be read may be homes
        {SYS_getdents64, EIO, any, untold + "input/output"},
        {SYS_openat2, EMFILE, any, isPosixForm() ? "removed 4" : untold + "too many"},
        {SYS_fsync, EIO, any, "failed after 4: " + device + "input/output error)"},
        {SYS_fsync, EINVAL, any, "removed 4"}, // a file system that has nothing to sync
        // the kernel's confinement, which it may refuse for reasons of its own
        {SYS_landlock_restrict_self, EPERM, any,
         confined
             ? "removed 4; done without the kernel's confinement, which it refused: operation not"
             : "removed 4"},
        {SYS_clone3, EAGAIN, any, "failed after 0: " + device},
    };
    for (const FailingCall& row : rows) {
        const RemovalDisk disk;
        disk.folder.file("a/finding/f");
        disk.folder.file("a/finding/in/g");
        const std::string answer = inChild([&] {
            if (!fails(row.call, row.error, row.third) ||
                (row.call == SYS_clone3 && !fails(SYS_clone, row.error)))
                return std::string(kSkipped) + "no filter of system calls";
            return inWords(disk.remove(disk.seen("/a/finding")));
        });
        if (answer.starts_with(kSkipped))
            GTEST_SKIP() << answer;
        EXPECT_THAT(answer, StartsWith(row.told)) << "call " << row.call << " error " << row.error;
    }
}

/// A folder that is renamed out of the volume while its content is removed stays as it is from then
/// on, and that is what is told.
TEST(ConfinedRemoval, EndsWhereAFolderLeavesTheVolume)
{
    if (kernelConfinementOfRemoval() != KernelConfinement::Enforced)
        GTEST_SKIP() << kernelConfinementText();
    const InMemory inMemory;
    const RemovalDisk disk;
    const TemporaryFolder outside;
    disk.folder.folder("lib");
    const std::string inside = disk.folder.hostPath("lib/place");
    const std::string away = outside.hostPath("place");
    std::atomic<bool> done{false};
    std::thread attacker([&] {
        while (!done)
            static_cast<void>(rename(inside.c_str(), away.c_str()) ||
                              rename(away.c_str(), inside.c_str()));
    });
    bool seen = false;
    for (int i = 0; i < 3'000 && !seen; ++i) {
        mkdir(inside.c_str(), 0755); // the first time
        const UniqueFd place(open((i % 2 ? inside : away).c_str(), O_PATH | O_CLOEXEC));
        mkdirat(place.get(), "finding", 0755);
        for (const char* name : {"finding/1", "finding/2", "finding/3", "finding/4"})
            makeFile(place.get(), name);
        const auto result = disk.remove(RemovalDisk::stored("/lib/place/finding"));
        seen = result.obstacle == RemovalObstacle::Confined;
        EXPECT_NE(result.obstacle, RemovalObstacle::NotPermitted) << inWords(result);
    }
    done = true;
    attacker.join();
    if (!seen)
        GTEST_SKIP() << "no removal met the rename on this machine, busy as it is";
}

} // namespace
} // namespace pryvane::test
