#include "removal/session/RecordRemoval.h"

#include "platform/FileSystem.h"

namespace pryvane {

/// Why a record is not to be looked for on this disk; None where it is.
RemovalObstacle RecordRemoval::strangeness(const RecordSelection& selection,
                                           const Spyware& record) const
{
    const std::string here = m_disk.identity();
    if (isSameVolume(selection.volume, here))
        return RemovalObstacle::None;
    if (!selection.volume.empty() && !here.empty())
        return RemovalObstacle::OtherVolume;
    return record.seen && selection.volume == here ? RemovalObstacle::None
                                                   : RemovalObstacle::UnknownVolume;
}

/// Lets `work` answer for the records that are this disk's, and refuses the others; all are told in
/// the order of the list. After a stop those that were not reached are left out.
template <typename Answer, typename Work, typename Told>
void RecordRemoval::each(const RecordSelection& selection, const StopFlag& stop, const Work& work,
                         const Told& told) const
{
    std::vector<RemovalItem> items;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < selection.records.size(); ++i) {
        const Spyware& record = *selection.records[i];
        if (strangeness(selection, record) != RemovalObstacle::None)
            continue;
        items.push_back({record.url, record.seen, RemovalScope::Item, record.kind});
        places.push_back(i);
    }
    std::size_t next = 0;
    const auto refuseUntil = [&](std::size_t end) {
        for (; next < end; ++next) {
            Answer answer;
            answer.obstacle = strangeness(selection, *selection.records[next]);
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

RemovalPlan RecordRemoval::plan(const RecordSelection& selection, const StopFlag& stop)
{
    RemovalPlan plan;
    plan.rows.reserve(selection.records.size());
    const auto add = [&](std::size_t item, const RemovalForecast& forecast) {
        const auto& record = selection.records[item];
        plan.rows.push_back(
            {record, flaggedBy(*record, selection.user, selection.foldedName), forecast});
    };
    each<RemovalForecast>(
        selection, stop,
        [&](const auto& items, const auto& planned) { m_remover.plan(items, stop, planned); },
        [&](std::size_t item, RemovalForecast forecast) {
            if (forecast.obstacle == RemovalObstacle::OtherVolume ||
                forecast.obstacle == RemovalObstacle::UnknownVolume)
                forecast.kind = FileKind::Unknown;
            add(item, forecast);
        });
    plan.stopped = plan.rows.size() < selection.records.size();
    return plan;
}

void RecordRemoval::remove(const RecordSelection& selection, const StopFlag& stop,
                           const RemovalResults& told)
{
    const StopFlag never; // what is not begun is told too
    each<RemovalResult>(
        selection, never,
        [&](const auto& items, const auto& removed) { m_remover.remove(items, stop, removed); },
        told);
}

void setOutcome(Spyware& record, const RemovalResult& result)
{
    record.isNoAction = false;
    record.isDeleted = result.outcome != RemovalOutcome::Failed;
    record.removalFailure = record.isDeleted ? std::string() : result.note();
    record.removalRemark = record.isDeleted ? result.note() : std::string();
}

} // namespace pryvane
