#include "engine/removal/RecordRemoval.h"

#include "platform/FileSystem.h"

namespace pryvane {

namespace {

std::vector<RemovalItem> itemsOf(const SpywareList& records)
{
    std::vector<RemovalItem> items;
    items.reserve(records.size());
    for (const auto& record : records)
        items.push_back({record->url, record->seen, RemovalScope::Item});
    return items;
}

} // namespace

bool RecordRemoval::isOfThisVolume(const RecordSelection& selection) const
{
    return !selection.volume.empty() && selection.volume == m_disk.identity();
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
    if (isOfThisVolume(selection)) {
        m_remover.plan(itemsOf(selection.records), stop, add);
    } else {
        RemovalForecast forecast;
        forecast.kind = FileKind::Unknown;
        forecast.obstacle = RemovalObstacle::OtherVolume;
        for (std::size_t i = 0; i < selection.records.size() && !stop.requested(); ++i)
            add(i, forecast);
    }
    plan.stopped = plan.rows.size() < selection.records.size();
    return plan;
}

void RecordRemoval::remove(const RecordSelection& selection, const StopFlag& stop,
                           const RemovalResults& told)
{
    if (isOfThisVolume(selection)) {
        m_remover.remove(itemsOf(selection.records), stop, told);
        return;
    }
    RemovalResult result;
    result.obstacle = RemovalObstacle::OtherVolume;
    for (std::size_t i = 0; i < selection.records.size(); ++i)
        told(i, result);
}

void setOutcome(Spyware& record, const RemovalResult& result)
{
    record.isNoAction = false;
    record.isDeleted = result.outcome != RemovalOutcome::Failed;
    record.removalFailure = record.isDeleted ? std::string() : result.reason();
}

} // namespace pryvane
