#include "core/Files.h"
#include "core/Result.h"
#include "removal/disk/ConfinedWork.h"

#include <cerrno>
#include <cstdint>
#include <exception>
#include <fcntl.h>
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

/// What a removal needs of them: folders that lie very deep are moved up before they go, and the
/// kernel asks for the right to make a folder where one is moved to.
std::uint64_t removingRights(int version)
{
    std::uint64_t rights = LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR;
    if (version >= 2)
        rights |= kRefer | LANDLOCK_ACCESS_FS_MAKE_DIR;
    return rights;
}

/// What the kernel does when it is asked: it may have Landlock and still refuse it.
const ConfinementState& triedConfinement(TriedOn thread = TriedOn::OwnThread)
{
    static const ConfinementState state = [thread]() -> ConfinementState {
        try {
            const UniqueFd root(open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
            const int folders[] = {root.get()};
            return thread == TriedOn::CallingThread ? confineThisThread(folders)
                                                    : runConfined(folders, [] {});
        } catch (const std::exception& error) {
            return {KernelConfinement::Refused, error.what()};
        }
    }();
    return state;
}

ConfinementState refused()
{
    return {KernelConfinement::Refused, errorText(errno)};
}

} // namespace

KernelConfinement kernelConfinementOfRemoval()
{
    return triedConfinement().kind;
}

std::string_view kernelConfinementText(TriedOn thread)
{
    static const std::string text = [thread]() -> std::string {
        const std::string version = "Landlock, version " + std::to_string(landlockVersion());
        switch (triedConfinement(thread).kind) {
        case KernelConfinement::Enforced:
            return "confined to the volume by " + version;
        case KernelConfinement::Refused:
            return "not confined: this kernel has " + version + ", and refuses it (" +
                   triedConfinement().reason + ")";
        case KernelConfinement::NotAvailable:
            break;
        }
        return "not confined: this kernel has no Landlock";
    }();
    return text;
}

ConfinementState confineThisThread(std::span<const int> folders)
{
    if (landlockVersion() == 0)
        return {};
    landlock_ruleset_attr handled{};
    handled.handled_access_fs = changingRights(landlockVersion());
    const UniqueFd rules(static_cast<int>(
        syscall(SYS_landlock_create_ruleset, &handled, sizeof handled.handled_access_fs, 0U)));
    if (!rules)
        return refused();
    for (const int folder : folders) {
        landlock_path_beneath_attr below{};
        below.allowed_access = removingRights(landlockVersion());
        below.parent_fd = folder;
        if (syscall(SYS_landlock_add_rule, rules.get(), LANDLOCK_RULE_PATH_BENEATH, &below, 0U) !=
            0)
            return refused();
    }
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        syscall(SYS_landlock_restrict_self, rules.get(), 0U) != 0)
        return refused();
    return {KernelConfinement::Enforced, {}};
}

} // namespace pryvane
