#include "removal/disk/RemovalErrors.h"

#include "core/Result.h"
#include "removal/disk/ConfinedWork.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace pryvane {

namespace {

constexpr std::string_view kSticky = "in this folder only its owner may remove it";

/// Whether the folder's sticky bit keeps this user from removing what others own in it.
bool stickyForbids(const EntryFacts& folder, const EntryFacts& entry)
{
    const uid_t self = geteuid();
    return folder.isSticky && self != 0 && self != folder.owner && self != entry.owner;
}

bool isReadOnly(int folder)
{
    struct statvfs data {};
    return fstatvfs(folder, &data) == 0 && (data.f_flag & ST_RDONLY) != 0;
}

/// EPERM and EACCES have many causes; which one it was is seen from what stands there.
RemovalFailure forbidden(int error, int folder, const std::string& name)
{
    const auto above = factsOf(folder, {});
    const auto entry = factsOf(folder, name);
    if ((above && above->isLocked) || (entry && entry->isLocked))
        return {RemovalObstacle::Locked, {}};
    if (above && entry && stickyForbids(*above, *entry))
        return {RemovalObstacle::NotPermitted, std::string(kSticky)};
    if (entry && isSwappedTo(entry->id))
        return {RemovalObstacle::Busy, "the system swaps to it"};
    // What the permissions allow and the kernel still denies, it denies because of the confinement.
    if (error == EACCES && faccessat(folder, ".", W_OK | X_OK, AT_EACCESS) == 0 &&
        isThisThreadConfined())
        return {RemovalObstacle::Confined, errorText(error)};
    return {RemovalObstacle::NotPermitted, errorText(error)};
}

} // namespace

RemovalFailure failureOf(int error, int folder, const std::string& name)
{
    switch (error) {
    case EROFS:
        return {RemovalObstacle::ReadOnlyVolume, {}};
    case EBUSY:
        if (const auto entry = factsOf(folder, name); entry && entry->isMountRoot)
            return {RemovalObstacle::MountPoint, {}};
        return {RemovalObstacle::Busy, errorText(error)};
    case ETXTBSY:
        return {RemovalObstacle::Busy, errorText(error)};
    case EXDEV:
        return {RemovalObstacle::MountPoint, {}};
    case EPERM:
    case EACCES:
        return forbidden(error, folder, name);
    case ENOTEMPTY:
    case EEXIST:
        return {RemovalObstacle::KeepsRefilling, {}};
    default:
        return {RemovalObstacle::DeviceError, errorText(error)};
    }
}

RemovalFailure unreadable(int error)
{
    if (error == EACCES || error == EPERM || error == EDEADLK) // the last: not on this disk
        return {RemovalObstacle::Unreadable, errorText(error)};
    if (error == EXDEV)
        return {RemovalObstacle::MountPoint, {}};
    return {RemovalObstacle::DeviceError, errorText(error)};
}

FolderRules::FolderRules(int folder) : m_folder(factsOf(folder, {}).value_or(EntryFacts()))
{
    if (isReadOnly(folder))
        m_forAll = {RemovalObstacle::ReadOnlyVolume, {}};
    else if (m_folder.isLocked)
        m_forAll = {RemovalObstacle::Locked, {}};
    else if (faccessat(folder, ".", W_OK | X_OK, AT_EACCESS) != 0)
        m_forAll = {RemovalObstacle::NotPermitted, errorText(errno)};
}

RemovalFailure FolderRules::foreseen(const EntryFacts& entry) const
{
    if (m_forAll)
        return m_forAll;
    if (entry.isMountRoot)
        return {RemovalObstacle::MountPoint, {}};
    if (entry.isLocked)
        return {RemovalObstacle::Locked, {}};
    if (stickyForbids(m_folder, entry))
        return {RemovalObstacle::NotPermitted, std::string(kSticky)};
    return {};
}

} // namespace pryvane
