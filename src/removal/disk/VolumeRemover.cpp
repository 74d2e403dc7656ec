#include "removal/disk/VolumeRemover.h"

#include "core/Escape.h"
#include "platform/Remover.h"
#include "removal/disk/ConfinedWork.h"
#include "removal/disk/ProtectedPlaces.h"
#include "removal/disk/RemovalTarget.h"
#include "removal/disk/TreeCensus.h"
#include "volume/VolumeFileSystem.h"

#include <algorithm>
#include <array>
#include <exception>

namespace pryvane {

namespace {

// So many intentions go to the device at once. What a crash leaves open is never more than these.
constexpr std::size_t kJournalledAtOnce = 64;

RemovalResult failedWith(RemovalObstacle obstacle, std::string detail = {})
{
    RemovalResult result;
    result.obstacle = obstacle;
    result.detail = std::move(detail);
    return result;
}

std::string otherSpellingText(const std::string& name)
{
    return name.empty() ? name
                        : "another one is there, spelled \"" + forScreen(name) + "\"; scan again";
}

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
    for (std::size_t i = 0; i < items.size() && !stop.requested(); ++i) {
        const RemovalForecast forecast = forecastOf(items[i], stop, places);
        if (!stop.requested())
            told(i, forecast);
    }
}

void VolumeRemover::remove(std::span<const RemovalItem> items, const StopFlag& stop,
                           const RemovalResults& told)
{
    const ProtectedPlaces places(m_disk, m_ownFolders);
    OtherSpellings spellings;
    const Run run{stop, places, spellings};
    for (std::size_t first = 0; first < items.size(); first += kJournalledAtOnce)
        removeSome(items.subspan(first, std::min(kJournalledAtOnce, items.size() - first)), first,
                   run, told);
}

void VolumeRemover::conclude(const RemovalTally& tally)
{
    static_cast<void>(m_journal.conclude(tally)); // each outcome is on record by itself
}

void VolumeRemover::removeSome(std::span<const RemovalItem> items, std::size_t first,
                               const Run& run, const RemovalResults& told)
{
    if (run.stop.requested()) {
        for (std::size_t i = 0; i < items.size(); ++i)
            told(first + i, failedWith(RemovalObstacle::Stopped));
        return;
    }
    const auto begun = m_journal.begin(items);
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (!begun) {
            told(first + i, failedWith(RemovalObstacle::DeviceError,
                                       "nothing is removed without an account of it, and that "
                                       "could not be written: " +
                                           begun.error().message));
            continue;
        }
        const RemovalResult result = removed(items[i], run);
        m_journal.ended(i, result);
        told(first + i, result);
    }
    if (begun)
        static_cast<void>(m_journal.flush()); // an outcome that is lost is seen from the disk
}

RemovalResult VolumeRemover::removed(const RemovalItem& item, const Run& run) const
{
    RemovalResult result = failedWith(RemovalObstacle::Stopped);
    const auto work = [&] {
        if (run.stop.requested())
            return;
        const RemovalTarget target = findTarget(m_disk, item);
        if (target.found()) {
            result = TargetRemoval(item, target, run.places, run.stop).run();
            if (result.outcome == RemovalOutcome::Removed && item.scope == RemovalScope::Item &&
                m_disk.nameMatching() == NameMatching::AsOnMac)
                result.remark =
                    otherSpellingText(run.spellings.of(target.parent.get(), target.name));
        } else {
            result = failedWith(target.failure.obstacle, target.failure.detail);
            if (target.isGone)
                result.outcome = RemovalOutcome::AlreadyGone;
        }
    };
    try {
        const std::array folders{m_disk.rootHandle()};
        if (const auto state = runConfined(folders, work); state.kind == KernelConfinement::Refused)
            result.remark.append(result.remark.empty() ? "" : "; ")
                .append("done without the kernel's confinement, which it refused: ")
                .append(state.reason);
    } catch (const std::exception& error) { // no thread or no memory: nothing was begun
        result = failedWith(RemovalObstacle::DeviceError, error.what());
    }
    return result;
}

RemovalForecast VolumeRemover::forecastOf(const RemovalItem& item, const StopFlag& stop,
                                          const ProtectedPlaces& places) const
{
    RemovalForecast forecast;
    const auto foresee = [&forecast](RemovalFailure failure) {
        forecast.obstacle = failure.obstacle;
        forecast.detail = std::move(failure.detail);
        return forecast;
    };
    const RemovalTarget target = findTarget(m_disk, item);
    if (target.isGone)
        return forecast;
    forecast.kind = target.failure ? FileKind::Unknown : target.leaf.kind;
    if (target.failure)
        return foresee(target.failure);
    forecast.place = target.path.empty() ? m_disk.placeBehindLinks(item.url) : target.path;
    if (forecast.place == item.url.absolutePath())
        forecast.place.clear();
    if (auto refusal = refusalOf(item, target, target.leaf, places))
        return foresee(std::move(refusal));
    if (item.scope == RemovalScope::Item) {
        foresee(FolderRules(target.parent.get()).foreseen(target.leaf));
        forecast.entries = 1;
        forecast.bytes = target.leaf.bytes;
    }
    if (forecast.kind == FileKind::Folder)
        foreseeBelow(target.parent.get(), target.name, places, stop, forecast);
    return forecast;
}

} // namespace pryvane
