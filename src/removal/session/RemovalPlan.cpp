#include "removal/session/RemovalPlan.h"

namespace pryvane {

bool GoingLocations::holdFolderOf(const Spyware& record) const
{
    std::string_view above = record.url.identity();
    for (auto slash = above.rfind('/'); slash < above.size(); slash = above.rfind('/')) {
        above = above.substr(0, slash);
        if (m_places.contains(above))
            return true;
    }
    return false;
}

RemovalPlan::Totals totalsOf(std::span<const PlannedRecord> rows,
                             const std::function<bool(std::size_t row)>& counts)
{
    RemovalPlan::Totals totals;
    GoingLocations going;
    std::vector<const PlannedRecord*> added;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!counts(i))
            continue;
        const RemovalForecast& forecast = rows[i].forecast;
        ++totals.rows;
        if (forecast.obstacle != RemovalObstacle::None)
            ++totals.hindered;
        else if (forecast.kind == FileKind::Missing)
            ++totals.gone;
        else if (going.add(*rows[i].record))
            added.push_back(&rows[i]);
    }
    for (const PlannedRecord* row : added) {
        if (going.holdFolderOf(*row->record))
            continue;
        totals.entries += row->forecast.entries;
        totals.bytes += row->forecast.bytes;
        totals.countedWhole = totals.countedWhole && row->forecast.countedWhole;
    }
    return totals;
}

RemovalPlan::Totals RemovalPlan::totals() const
{
    return totalsOf(rows, [](std::size_t) { return true; });
}

} // namespace pryvane
