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

std::string comparisonRemark(const SpywareScanReport& earlier, const SpywareScanReport& later)
{
    constexpr const char* kElsewhere = "what is new or gone here may merely be elsewhere.";
    std::string remark;
    const auto add = [&](const std::string& sentence) {
        remark += (remark.empty() ? "" : " ") + sentence;
    };
    if (earlier.volume.empty() || later.volume.empty())
        add(std::string("It cannot be told whether these reports are of one disk: ") + kElsewhere);
    else if (earlier.volume != later.volume)
        add(std::string("These two are reports of different volumes: ") + kElsewhere);
    else if (earlier.subject.users != later.subject.users)
        add(std::string("These two are reports of different users: ") + kElsewhere);
    const Verdict unfound = verdictOf(0, later.coverage); // what it would be without findings
    if (unfound == Verdict::Stopped || unfound == Verdict::Incomplete)
        add("The later scan did not look at everything: what is gone here may still be there.");
    if (earlier.reportType == "Deep Scan" && later.reportType != earlier.reportType)
        add("Only the earlier scan was a deep one: what is gone here may still be there.");
    return remark;
}

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
