#include "platform/posix/removal/VolumeRemover.h"

#include "platform/RemovalJournal.h"
#include "platform/posix/ErrorText.h"
#include "platform/posix/FoldedName.h"
#include "platform/posix/VolumeFileSystem.h"
#include "platform/posix/removal/ConfinedWork.h"
#include "platform/posix/removal/HostRemoval.h"
#include "platform/posix/removal/ProtectedPlaces.h"
#include "platform/posix/removal/RemovalTarget.h"
#include "platform/posix/removal/TreeCensus.h"
#include "platform/posix/removal/TreeRemoval.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace pryvane {

namespace {

// So many intentions go to the device at once. What a crash leaves open is never more than these.
constexpr std::size_t kJournalledAtOnce = 64;

// How often an item that is exchanged under our hands, file for folder, is tried anew.
constexpr int kTries = 64;

bool isSystemsLink(const std::string& name)
{
    static constexpr std::array<std::string_view, 4> kLinks = {"etc", "tmp", "var", "home"};
    return std::ranges::any_of(kLinks, [&](auto link) { return sameFoldedName(name, link); });
}

RemovalResult failedWith(RemovalObstacle obstacle, std::string detail = {})
{
    RemovalResult result;
    result.obstacle = obstacle;
    result.detail = std::move(detail);
    return result;
}

/// The parent's names on the device, so that what is told as removed stays so.
bool syncFolder(int folder)
{
    const FolderHandle readable = FolderHandle::openIn(folder, ".");
    // A folder that may be changed but not read cannot be synced by itself.
    return readable ? fsync(readable.fd()) == 0 || errno == EINVAL : (::sync(), true);
}

/// Carries out the removal of one target.
class Act {
public:
    Act(const RemovalTarget& target, RemovalScope scope, const ProtectedPlaces& places,
        const StopFlag& stop)
        : m_target(target), m_scope(scope), m_tree(places, stop), m_places(places)
    {
    }

    RemovalResult result()
    {
        RemovalResult result;
        const RemovalFailure failure = act();
        result.entriesRemoved = m_tree.entriesRemoved() + (m_leafRemoved ? 1 : 0);
        result.bytesRemoved = m_tree.bytesRemoved();
        const bool synced = result.entriesRemoved == 0 || syncFolder(m_target.parent.get());
        result.obstacle = failure.obstacle;
        result.detail = failure.detail;
        if (!failure && !synced) {
            result.obstacle = RemovalObstacle::DeviceError;
            result.detail = errorText(errno);
        }
        if (result.obstacle == RemovalObstacle::None)
            result.outcome = RemovalOutcome::Removed;
        return result;
    }

private:
    [[nodiscard]] RemovalFailure act()
    {
        const int parent = m_target.parent.get();
        const std::string& name = m_target.name;
        for (int tries = 0; tries < kTries; ++tries) {
            if (m_scope == RemovalScope::Item && m_tree.removeFile(parent, name))
                return m_tree.failure();
            FolderHandle folder = openBelow(parent, name);
            if (!folder) {
                if (errno == ENOENT)
                    return m_tree.failure();
                if (errno == ENOTDIR || errno == ELOOP) {
                    if (m_scope == RemovalScope::ContentsOf)
                        return {RemovalObstacle::KindChanged, {}};
                    continue; // a file or a link by now
                }
                if (errno == EACCES && emptied(parent, name))
                    return {};
                return errno == EACCES ? RemovalFailure{RemovalObstacle::Unreadable, {}}
                                       : failureOf(errno, parent, name);
            }
            if (m_places.contains(folder.id()))
                return {RemovalObstacle::ProtectedPlace, {}};
            m_tree.empty(std::move(folder));
            if (m_tree.failure() || m_scope == RemovalScope::ContentsOf)
                return m_tree.failure();
            if (emptied(parent, name))
                return {};
            if (errno != ENOTEMPTY && errno != EEXIST && errno != ENOTDIR)
                return failureOf(errno, parent, name);
        }
        return {RemovalObstacle::KeepsRefilling, {}};
    }

    /// Removes the folder itself, which is gone also where somebody else was faster.
    [[nodiscard]] bool emptied(int parent, const std::string& name)
    {
        if (m_scope == RemovalScope::ContentsOf)
            return false;
        if (unlinkat(parent, name.c_str(), AT_REMOVEDIR) == 0) {
            m_leafRemoved = true;
            return true;
        }
        return errno == ENOENT;
    }

    const RemovalTarget& m_target;
    const RemovalScope m_scope;
    TreeRemoval m_tree;
    const ProtectedPlaces& m_places;
    bool m_leafRemoved = false;
};

} // namespace

VolumeRemover::VolumeRemover(const VolumeFileSystem& disk, RemovalJournal& journal,
                             std::vector<std::string> ownFolders)
    : m_disk(disk), m_journal(journal), m_ownFolders(std::move(ownFolders))
{
}

void VolumeRemover::plan(std::span<const RemovalItem> items, const StopFlag& stop,
                         const RemovalForecasts& told)
{
    const ProtectedPlaces places(m_disk, m_ownFolders);
    for (std::size_t i = 0; i < items.size() && !stop.requested(); ++i)
        told(i, forecastOf(items[i], stop, places));
}

void VolumeRemover::remove(std::span<const RemovalItem> items, const StopFlag& stop,
                           const RemovalResults& told)
{
    const ProtectedPlaces places(m_disk, m_ownFolders);
    for (std::size_t first = 0; first < items.size(); first += kJournalledAtOnce)
        removeSome(items.subspan(first, std::min(kJournalledAtOnce, items.size() - first)), first,
                   stop, places, told);
}

void VolumeRemover::removeSome(std::span<const RemovalItem> items, std::size_t first,
                               const StopFlag& stop, const ProtectedPlaces& places,
                               const RemovalResults& told)
{
    if (stop.requested()) {
        for (std::size_t i = 0; i < items.size(); ++i)
            told(first + i, failedWith(RemovalObstacle::Stopped));
        return;
    }
    const auto begun = m_journal.begin(items);
    std::vector<RemovalResult> results(items.size());
    const auto act = [&] {
        for (std::size_t i = 0; i < items.size(); ++i)
            results[i] = stop.requested() ? failedWith(RemovalObstacle::Stopped)
                                          : removed(items[i], stop, places);
    };
    if (begun) {
        const std::array writable{m_disk.rootHandle()};
        runConfined(writable, act);
    } else {
        std::ranges::fill(results, failedWith(RemovalObstacle::DeviceError,
                                              "the journal: " + begun.error().message));
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (begun)
            m_journal.ended(i, results[i]);
        told(first + i, results[i]);
    }
    if (begun)
        static_cast<void>(m_journal.flush()); // what is not on the device is told from the disk
}

/// The target, with what is refused by what it is.
RemovalTarget VolumeRemover::target(const RemovalItem& item, const ProtectedPlaces& places) const
{
    RemovalTarget target = findTarget(m_disk, item);
    if (target.isGone || target.obstacle != RemovalObstacle::None)
        return target;
    struct stat parent {};
    const bool inRoot =
        fstat(target.parent.get(), &parent) == 0 && places.isRoot({parent.st_dev, parent.st_ino});
    const bool isLink = S_ISLNK(target.leaf.st_mode);
    if (places.contains({target.leaf.st_dev, target.leaf.st_ino}) ||
        (inRoot && (target.isFolder() || (isLink && isSystemsLink(target.name)))))
        target.obstacle = RemovalObstacle::ProtectedPlace;
    else if (isMountPoint(target.parent.get(), target.name))
        target.obstacle = RemovalObstacle::MountPoint;
    else if (geteuid() == 0 && item.seen && target.isFolder() &&
             item.seen->kind != FileKind::Folder && item.seen->kind != FileKind::Unknown)
        target.obstacle = RemovalObstacle::KindChanged;
    return target;
}

RemovalForecast VolumeRemover::forecastOf(const RemovalItem& item, const StopFlag& stop,
                                          const ProtectedPlaces& places) const
{
    RemovalForecast forecast;
    const RemovalTarget found = target(item, places);
    if (found.isGone)
        return forecast;
    forecast.obstacle = found.obstacle;
    forecast.detail = found.detail;
    forecast.kind = found.parent ? kindOfMode(found.leaf.st_mode) : FileKind::Unknown;
    if (found.obstacle != RemovalObstacle::None)
        return forecast;
    const bool itself = item.scope == RemovalScope::Item;
    if (itself) {
        auto foreseen = foreseenFailure(found.parent.get(), found.name);
        forecast.obstacle = foreseen.obstacle;
        forecast.detail = std::move(foreseen.detail);
        forecast.entries = 1;
    }
    if (!found.isFolder()) {
        forecast.bytes = std::int64_t{found.leaf.st_blocks} * 512;
        return forecast;
    }
    if (FolderHandle folder = openBelow(found.parent.get(), found.name)) {
        countBelow(std::move(folder), places, stop, forecast);
    } else {
        forecast.countedWhole = false;
        if (forecast.obstacle == RemovalObstacle::None)
            forecast.obstacle = RemovalObstacle::Unreadable;
    }
    return forecast;
}

RemovalResult VolumeRemover::removed(const RemovalItem& item, const StopFlag& stop,
                                     const ProtectedPlaces& places) const
{
    const RemovalTarget found = target(item, places);
    if (found.isGone) {
        RemovalResult result;
        result.outcome = RemovalOutcome::AlreadyGone;
        return result;
    }
    if (found.obstacle != RemovalObstacle::None)
        return failedWith(found.obstacle, found.detail);
    return Act(found, item.scope, places, stop).result();
}

} // namespace pryvane
