#include "browser/ReportDetails.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "signatures/MakersApplications.h"

namespace pryvane {

ReportDetails detailsOf(const SpywareScanReport& report, Date now)
{
    const bool fullSystem = report.reportType == "Full System Scan";
    ReportDetails details;
    details.type = fullSystem ? report.reportType : "Custom Scan";
    details.path = "Scan Path: " + (fullSystem ? "/" : forScreen(report.reportType));
    details.spyWareCount = report.spyWareCount;
    details.startTime = relativeLocalizedDate(report.scanDate, now);
    details.durationLabel = report.scanDuration == "Stopped" ? "Scan Status:" : "Scan Duration:";
    details.duration = forScreen(report.scanDuration);
    return details;
}

SelectionState selectionOf(const SpywareList& threats)
{
    SelectionState state{.selectAll = true};
    for (const auto& threat : threats) {
        if (isRemoteDesktop(*threat))
            continue; // it is not removed
        state.quarantineBtn |= threat->isChecked;
        if (threat->isAvail()) {
            state.quarantineBtnHide = false;
            state.selectAll &= threat->isChecked;
        }
    }
    return state.quarantineBtnHide ? SelectionState{} : state;
}

} // namespace pryvane
