#include "removal/session/RemovalPlan.h"

#include "signatures/Catalogue.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::string_view kNoRule = "no rule of this catalogue";

} // namespace

FlaggedBy flaggedBy(const Spyware& record, std::string_view user,
                    const std::function<std::string(std::string_view)>& foldedName)
{
    // A deep scan can flag a great many files, and all of them in this one way.
    if (record.infections == catalogue::kFullSystem)
        return {ruleText(RuleKind::FullSystemSubstring), {}, Evidence::BareSubstring};
    const Explanation explanation =
        explain({record.url.relativePath(), std::string(user), foldedName, record.infections});
    const auto best = std::ranges::min_element(explanation.matches, {}, &ExplainMatch::evidence);
    if (best == explanation.matches.end())
        return {kNoRule, {}, Evidence::BareSubstring};
    return {ruleText(best->row.rule), best->location, best->evidence};
}

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
