#include "removal/session/RecordRemoval.h"

#include "platform/FileSystem.h"
#include "signatures/MakersApplications.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace pryvane {

/// Why a record is not even to be looked for; None where it is.
RemovalObstacle RecordRemoval::refusal(const RecordSelection& selection,
                                       const Spyware& record) const
{
    if (isRemoteDesktop(record))
        return RemovalObstacle::RemoteDesktop;
    const std::string here = m_disk.identity();
    if (isSameVolume(selection.volume, here))
        return RemovalObstacle::None;
    if (!selection.volume.empty() && !here.empty())
        return RemovalObstacle::OtherVolume;
    return record.seen && selection.volume == here ? RemovalObstacle::None
                                                   : RemovalObstacle::UnknownVolume;
}

/// Lets `work` answer for the records that are looked for, and refuses the others; all are told in
/// the order of the list. After a stop those that were not reached are left out.
template <typename Answer, typename Work, typename Told>
void RecordRemoval::each(const RecordSelection& selection, const StopFlag& stop, const Work& work,
                         const Told& told) const
{
    std::vector<RemovalItem> items;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < selection.records.size(); ++i) {
        const Spyware& record = *selection.records[i];
        if (refusal(selection, record) != RemovalObstacle::None)
            continue;
        items.push_back({record.url,
                         record.seen,
                         RemovalScope::Item,
                         record.kind,
                         {},
                         std::string(record.spelling())});
        places.push_back(i);
    }
    std::size_t next = 0;
    const auto refuseUntil = [&](std::size_t end) {
        for (; next < end; ++next) {
            Answer answer;
            answer.obstacle = refusal(selection, *selection.records[next]);
            told(next, answer);
        }
    };
    work(items, [&](std::size_t item, const Answer& answer) {
        refuseUntil(places[item]);
        told(next++, answer);
    });
    if (!stop.requested())
        refuseUntil(selection.records.size());
}

RemovalPlan RecordRemoval::plan(const RecordSelection& selection, const StopFlag& stop) const
{
    RemovalPlan plan;
    FindingRules rules;
    plan.rows.reserve(selection.records.size());
    each<RemovalForecast>(
        selection, stop,
        [&](const auto& items, const auto& planned) { m_remover.plan(items, stop, planned); },
        [&](std::size_t item, RemovalForecast forecast) {
            const auto& record = selection.records[item];
            if (refusal(selection, *record) != RemovalObstacle::None)
                forecast.kind = FileKind::Unknown;
            plan.rows.push_back({record, rules.flaggedBy(*record), forecast});
        });
    plan.isFirst = !m_remover.hasRemovedBefore();
    plan.stopped = plan.rows.size() < selection.records.size();
    return plan;
}

RemovalCounts RecordRemoval::remove(const RecordSelection& selection, const StopFlag& stop,
                                    const RemovalResults& told) const
{
    const StopFlag never; // what is not begun is told too
    std::vector<RemovalResult> results(selection.records.size());
    each<RemovalResult>(
        selection, never,
        [&](const auto& items, const auto& removed) { m_remover.remove(items, stop, removed); },
        [&](std::size_t item, const RemovalResult& result) {
            results[item] = result;
            told(item, result);
        });
    const RemovalCounts counts = countsOf(selection, results);
    m_remover.conclude(counts.tally);
    return counts;
}

SpywareList thereOf(const SpywareList& all)
{
    SpywareList there;
    there.reserve(all.size());
    std::ranges::copy_if(all, std::back_inserter(there), [](const auto& record) {
        return record->isAvail() && !record->isDeleted;
    });
    return there;
}

RemovalTally tallyOf(const RecordSelection& selection, std::span<const RemovalResult> results)
{
    RemovalTally tally;
    GoingLocations going, gone;
    for (std::size_t i = 0; i < results.size(); ++i) {
        going.add(*selection.records[i]);
        if (results[i].outcome == RemovalOutcome::Failed) {
            ++tally.failed;
        } else {
            ++tally.removed;
            gone.add(*selection.records[i]);
        }
    }
    tally.left =
        static_cast<std::size_t>(std::ranges::count_if(selection.there, [&](const auto& record) {
            return !going.holds(*record) && !gone.holdFolderOf(*record);
        }));
    return tally;
}

RemovalCounts countsOf(const RecordSelection& selection, std::span<const RemovalResult> results)
{
    return {tallyOf(selection, results),
            std::ranges::any_of(selection.there,
                                [](const auto& record) { return isRemoteDesktop(*record); })};
}

SpywareList removable(const SpywareList& records)
{
    SpywareList list;
    list.reserve(records.size());
    std::ranges::copy_if(records, std::back_inserter(list),
                         [](const auto& record) { return !isRemoteDesktop(*record); });
    return list;
}

std::vector<std::string> pathsOf(const SpywareList& records)
{
    std::vector<std::string> paths;
    paths.reserve(records.size());
    for (const auto& record : records)
        paths.push_back(record->url.relativePath());
    return paths;
}

void setOutcome(Spyware& record, const RemovalResult& result)
{
    record.isNoAction = false;
    record.isDeleted = result.outcome != RemovalOutcome::Failed;
    (record.isDeleted ? record.removalRemark : record.removalFailure) = result.note();
    (record.isDeleted ? record.removalFailure : record.removalRemark) = {};
}

SortedRecords sortOutcomes(const SpywareList& records, std::span<const RemovalResult> results)
{
    SortedRecords sorted;
    for (std::size_t i = 0; i < records.size(); ++i) {
        setOutcome(*records[i], results[i]);
        (records[i]->isDeleted ? sorted.removed : sorted.failed).push_back(records[i]);
    }
    return sorted;
}

} // namespace pryvane
