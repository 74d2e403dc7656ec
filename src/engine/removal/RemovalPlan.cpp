#include "engine/removal/RemovalPlan.h"

#include "signatures/Catalogue.h"

#include <algorithm>
#include <map>
#include <utility>

namespace pryvane {

namespace {

constexpr std::string_view kNoRule = "no rule of this catalogue";

std::string folderOf(const FileURL& url)
{
    const std::string path = url.absolutePath();
    return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

std::string titleOf(const PlannedRecord& row, PlanGrouping grouping)
{
    if (grouping == PlanGrouping::ByFolder)
        return folderOf(row.record->url);
    return row.record->infections + ": " + std::string(row.flaggedBy.rule);
}

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

RemovalPlan::Totals RemovalPlan::totals() const
{
    Totals totals;
    for (const PlannedRecord& row : rows) {
        const RemovalForecast& forecast = row.forecast;
        if (forecast.obstacle != RemovalObstacle::None) {
            ++totals.hindered;
            continue;
        }
        totals.gone += forecast.kind == FileKind::Missing ? 1 : 0;
        totals.entries += forecast.entries;
        totals.bytes += forecast.bytes;
        totals.countedWhole = totals.countedWhole && forecast.countedWhole;
    }
    return totals;
}

std::vector<PlanGroup> grouped(const RemovalPlan& plan, PlanGrouping grouping)
{
    std::vector<PlanGroup> groups;
    std::map<std::pair<std::string, bool>, std::size_t> places;
    for (std::size_t i = 0; i < plan.rows.size(); ++i) {
        const PlannedRecord& row = plan.rows[i];
        const bool weak = isWeak(row.flaggedBy.evidence);
        std::string title = titleOf(row, grouping);
        const auto [place, isNew] = places.try_emplace({title, weak}, groups.size());
        if (isNew)
            groups.push_back({std::move(title), weak, {}, 0, 0});
        PlanGroup& group = groups[place->second];
        group.rows.push_back(i);
        group.entries += row.forecast.entries;
        group.bytes += row.forecast.bytes;
    }
    std::stable_partition(groups.begin(), groups.end(),
                          [](const PlanGroup& group) { return !group.weak; });
    return groups;
}

} // namespace pryvane
