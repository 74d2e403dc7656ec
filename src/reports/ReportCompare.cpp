#include "reports/ReportCompare.h"

#include <string_view>
#include <unordered_set>

namespace pryvane {

namespace {

using Locations = std::unordered_set<std::string_view>;

Locations locationsOf(const SpywareScanReport& report)
{
    Locations locations;
    for (const auto& record : *report.spyWareList)
        locations.insert(record->url.identity());
    return locations;
}

} // namespace

ReportComparison compareReports(const SpywareScanReport& earlier, const SpywareScanReport& later)
{
    const Locations before = locationsOf(earlier), after = locationsOf(later);
    ReportComparison comparison;
    for (const auto& record : *later.spyWareList) {
        const bool known = before.contains(record->url.identity());
        (known ? comparison.kept : comparison.added).push_back(record);
    }
    for (const auto& record : *earlier.spyWareList) {
        if (!after.contains(record->url.identity()))
            comparison.gone.push_back(record);
    }
    return comparison;
}

} // namespace pryvane
