#include "removal/session/RemovalPlan.h"

namespace pryvane {

void RemovalPlan::Totals::add(const PlannedRecord& row)
{
    const RemovalForecast& forecast = row.forecast;
    ++rows;
    if (forecast.obstacle != RemovalObstacle::None) {
        ++hindered;
        return;
    }
    gone += forecast.kind == FileKind::Missing ? 1 : 0;
    entries += forecast.entries;
    bytes += forecast.bytes;
    countedWhole = countedWhole && forecast.countedWhole;
}

RemovalPlan::Totals RemovalPlan::totals() const
{
    Totals totals;
    for (const PlannedRecord& row : rows)
        totals.add(row);
    return totals;
}

} // namespace pryvane
