#include "platform/posix/UniqueFd.h"
#include "platform/posix/removal/HostConfinement.h"

#include <cstdint>
#include <linux/landlock.h>
#include <string>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pryvane {

namespace {

// Newer than the headers that this may be built with; the kernel's numbers never change.
constexpr std::uint64_t kRefer = 1ULL << 13;    // link or rename between folders, version 2
constexpr std::uint64_t kTruncate = 1ULL << 14; // version 3

/// The version of Landlock that the kernel runs; 0 where there is none.
int landlockVersion()
{
    static const int version = [] {
        const long answer = syscall(SYS_landlock_create_ruleset, nullptr, std::size_t{0},
                                    LANDLOCK_CREATE_RULESET_VERSION);
        return answer > 0 ? static_cast<int>(answer) : 0;
    }();
    return version;
}

/// Every right to change something in the file system that this version knows.
std::uint64_t changingRights(int version)
{
    std::uint64_t rights = LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
                           LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR |
                           LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_REG |
                           LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
                           LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;
    if (version >= 2)
        rights |= kRefer;
    if (version >= 3)
        rights |= kTruncate;
    return rights;
}

} // namespace

KernelConfinement kernelConfinementOfRemoval()
{
    return landlockVersion() > 0 ? KernelConfinement::Enforced : KernelConfinement::NotAvailable;
}

std::string_view kernelConfinementText()
{
    static const std::string text =
        landlockVersion() > 0
            ? "confined to the volume by Landlock, version " + std::to_string(landlockVersion())
            : "not confined: this kernel has no Landlock";
    return text;
}

KernelConfinement confineThisThread(std::span<const int> writableFolders)
{
    if (landlockVersion() == 0)
        return KernelConfinement::NotAvailable;
    const std::uint64_t rights = changingRights(landlockVersion());
    landlock_ruleset_attr handled{};
    handled.handled_access_fs = rights;
    const UniqueFd rules(static_cast<int>(
        syscall(SYS_landlock_create_ruleset, &handled, sizeof handled.handled_access_fs, 0U)));
    if (!rules)
        return KernelConfinement::NotAvailable;
    for (const int folder : writableFolders) {
        landlock_path_beneath_attr below{};
        below.allowed_access = rights;
        below.parent_fd = folder;
        if (syscall(SYS_landlock_add_rule, rules.get(), LANDLOCK_RULE_PATH_BENEATH, &below, 0U) !=
            0)
            return KernelConfinement::NotAvailable;
    }
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        syscall(SYS_landlock_restrict_self, rules.get(), 0U) != 0)
        return KernelConfinement::NotAvailable;
    return KernelConfinement::Enforced;
}

} // namespace pryvane
