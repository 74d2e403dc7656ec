#include "removal/disk/HostRemoval.h"

namespace pryvane {

namespace {

// Newer than some headers; the kernel's numbers never change.
constexpr unsigned kRestricted = 0x00080000; // the system's own, which even root may not change
constexpr unsigned kNoUnlink = 0x00100000;

} // namespace

bool isLocked(const struct stat& data)
{
    constexpr unsigned kLocks =
        UF_IMMUTABLE | UF_APPEND | SF_IMMUTABLE | SF_APPEND | kRestricted | kNoUnlink;
    return (data.st_flags & kLocks) != 0;
}

} // namespace pryvane
