#include "app/LastScans.h"

namespace pryvane {

LastScans lastScansOf(const std::vector<ReportFacts>& reports)
{
    LastScans last;
    if (reports.empty())
        return last;
    last.date = reports.front().scanDate;
    last.threatFound = reports.front().isRed;
    for (const auto& report : reports) {
        std::string& duration =
            report.reportType == "Deep Scan" ? last.deepDuration : last.quickDuration;
        if (duration.empty() && report.scanDuration != "Stopped")
            duration = report.scanDuration;
    }
    return last;
}

} // namespace pryvane
