#include "volume/image/reader/Confinement.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pryvane {

namespace {

#if defined(__x86_64__)
constexpr std::uint32_t kMachine = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t kMachine = AUDIT_ARCH_AARCH64;
#else
constexpr std::uint32_t kMachine = 0; // no filter
#endif

/// Every right that the first version of Landlock knows; newer ones concern changes only.
constexpr std::uint64_t kEveryRight = (std::uint64_t{1} << 13) - 1;

bool limit(int what, rlim_t most)
{
    struct rlimit now {};
    if (getrlimit(static_cast<__rlimit_resource_t>(what), &now) != 0)
        return false;
    const rlim_t value = std::min(most, now.rlim_max);
    const struct rlimit bound {
        value, value
    };
    return setrlimit(static_cast<__rlimit_resource_t>(what), &bound) == 0;
}

bool limitAll()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    const bool memory = true; // a sanitizer reserves terabytes
#else
    const bool memory = limit(RLIMIT_AS, rlim_t{3} << 30);
#endif
    return memory && limit(RLIMIT_CORE, 0) && limit(RLIMIT_FSIZE, 0) && limit(RLIMIT_CPU, 3600);
}

bool hasLandlock()
{
    return syscall(SYS_landlock_create_ruleset, nullptr, std::size_t{0},
                   LANDLOCK_CREATE_RULESET_VERSION) > 0;
}

bool readOnly(const std::vector<std::string>& files)
{
    landlock_ruleset_attr handled{};
    handled.handled_access_fs = kEveryRight;
    const int rules = static_cast<int>(
        syscall(SYS_landlock_create_ruleset, &handled, sizeof handled.handled_access_fs, 0U));
    if (rules < 0)
        return false;
    for (const std::string& file : files) {
        landlock_path_beneath_attr rule{};
        rule.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE;
        rule.parent_fd = open(file.c_str(), O_PATH | O_CLOEXEC);
        if (rule.parent_fd < 0)
            return false;
        const long added =
            syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &rule, 0U);
        close(rule.parent_fd);
        if (added != 0)
            return false;
    }
    const bool done = syscall(SYS_landlock_restrict_self, rules, 0U) == 0;
    close(rules);
    return done;
}

/// What reading, computing and answering take.
constexpr std::array kCalls = {
    SYS_read,
    SYS_pread64,
    SYS_readv,
    SYS_write,
    SYS_writev,
    SYS_lseek,
    SYS_close,
    SYS_fstat,
    SYS_newfstatat,
    SYS_statx,
    SYS_mmap,
    SYS_munmap,
    SYS_mremap,
    SYS_mprotect,
    SYS_madvise,
    SYS_brk,
    SYS_futex,
    SYS_exit,
    SYS_exit_group,
    SYS_clock_gettime,
    SYS_getrandom,
    SYS_rt_sigaction,
    SYS_rt_sigprocmask,
    SYS_rt_sigreturn,
    SYS_gettid,
    SYS_getppid,
    SYS_getpid,
    SYS_tgkill,
    SYS_sigaltstack,
    SYS_fcntl,
    SYS_sched_yield,
    SYS_getrusage,
    SYS_prlimit64,
    SYS_ioctl,
    SYS_fadvise64,
    SYS_gettimeofday,
    SYS_readlinkat,
    SYS_faccessat,
    SYS_sysinfo,
    SYS_uname,
    SYS_clock_nanosleep,
#if defined(__x86_64__)
    SYS_stat,
    SYS_lstat,
    SYS_access,
    SYS_readlink,
    SYS_time,
#endif
};

constexpr std::uint32_t kMayNotWrite = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;

/// What may be called beside kCalls.
enum Beside : unsigned { kOpen = 1, kConfine = 2 };

/// Anything else fails as not permitted. Of several filters each may refuse.
bool filterCalls(unsigned beside)
{
    if (kMachine == 0)
        return true;
    std::vector<sock_filter> program;
    const auto load = [&](std::size_t at) {
        program.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<std::uint32_t>(at)));
    };
    const auto jump = [&](std::uint32_t equals, std::uint8_t yes, std::uint8_t no) {
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, equals, yes, no));
    };
    const auto end = [&](std::uint32_t what) {
        program.push_back(BPF_STMT(BPF_RET | BPF_K, what));
    };
    constexpr std::uint32_t kRefuse = SECCOMP_RET_ERRNO | EPERM;
    load(offsetof(seccomp_data, arch));
    jump(kMachine, 1, 0);
    end(SECCOMP_RET_KILL_PROCESS);
    load(offsetof(seccomp_data, nr));
    for (const long call : kCalls) {
        jump(static_cast<std::uint32_t>(call), 0, 1);
        end(SECCOMP_RET_ALLOW);
    }
    // Files are opened for reading only.
    const auto opening = [&](long call, std::size_t flags) {
        jump(static_cast<std::uint32_t>(call), 0, 4);
        load(flags);
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, kMayNotWrite, 0, 1));
        end(kRefuse);
        end(SECCOMP_RET_ALLOW);
    };
    if ((beside & kOpen) != 0) {
        opening(SYS_openat, offsetof(seccomp_data, args[2]));
#if defined(__x86_64__)
        opening(SYS_open, offsetof(seccomp_data, args[1]));
#endif
    }
    if ((beside & kConfine) != 0) {
        jump(SYS_prctl, 0, 1);
        end(SECCOMP_RET_ALLOW);
    }
    end(kRefuse);
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

} // namespace

Confinement confineTo(const std::vector<std::string>& files)
{
    const auto refused = [](const char* what) {
        return Confinement{std::string(what) + " (" + std::strerror(errno) + ")", false};
    };
    if (!limitAll())
        return refused("limits on memory and time");
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) != 0)
        return refused("giving up rights");
    const bool toFiles = hasLandlock();
    if (toFiles && !readOnly(files))
        return refused("Landlock");
    if (!filterCalls(kOpen | kConfine))
        return refused("the filter of system calls");
    return {{}, toFiles};
}

bool confineFurther(Opening stillNeeded)
{
    return filterCalls(stillNeeded == Opening::TheSameFiles ? kOpen : 0U);
}

} // namespace pryvane
