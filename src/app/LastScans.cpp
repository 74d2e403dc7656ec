#include "app/LastScans.h"

#include "reports/SpywareScanReport.h"

namespace pryvane {

LastScans lastScansOf(const std::vector<ReportFacts>& reports, const ScansOf& whose)
{
    LastScans last;
    for (const auto& report : reports) {
        const bool isOfThese = isAbout(report.volume, report.subject, whose.volume, whose.users) ||
                               (!whose.madeHere.empty() && report.reportId == whose.madeHere);
        if (!isOfThese)
            continue;
        if (!last.date) {
            last.date = report.scanDate;
            last.verdict = report.verdict;
            last.verdictLine = report.verdictLine;
        }
        std::string& duration =
            report.reportType == "Deep Scan" ? last.deepDuration : last.quickDuration;
        if (duration.empty() && report.scanDuration != kStopped)
            duration = report.scanDuration;
    }
    return last;
}

} // namespace pryvane
