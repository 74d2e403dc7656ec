#include "scan/StatusPanel.h"

#include <cstdlib>

namespace pryvane {

namespace {

constexpr long long kThreeDays = 259'200;
constexpr long long kDay = 86'400;
constexpr int kResultHeaderHeight = 112;

void showReminder(StatusPanel& panel, double secondsUntilLastScan)
{
    panel.showsScanNow = true;
    if (panel.isScanLast3Days) {
        panel.statusText = "Not scan yet, please scan your mac";
        return;
    }
    const auto days = std::llabs(static_cast<long long>(secondsUntilLastScan)) / kDay;
    panel.statusText =
        "A scan has not been run on your system for " + std::to_string(days) + " days";
}

void showResult(StatusPanel& panel, bool threatFound)
{
    if (threatFound) {
        panel.showsRemove = true;
        panel.statusText = "Potential Threats Detected";
        return;
    }
    panel.headerHeight = kResultHeaderHeight;
    panel.showsInfoBox = true;
    panel.background = "no_threats_bg";
    panel.badge = "icn_white_check";
    panel.bottomIcon = "icn_white_question";
    panel.bottomText = "Do you still think you are infected\nwith spyware?";
    panel.statusText = "No Potential Threats Detected";
}

} // namespace

StatusPanel makeStatusPanel(const StatusFacts& facts)
{
    StatusPanel panel;
    panel.background = "threats_bg";
    panel.badge = "icn_white_cross";
    panel.isUserDirAccessible = facts.homeWritable;
    if (!facts.homeWritable) {
        panel.logLine = "Please restart your app";
        return panel;
    }
    if (facts.scanRunning)
        return panel;
    if (!facts.lastScan) {
        panel.showsScanNow = true;
        panel.statusText = "A scan has never been run on your system";
        return panel;
    }
    // Signed on purpose: a date in the past is always "within three days".
    const double untilLastScan = std::chrono::duration<double>(*facts.lastScan - facts.now).count();
    panel.isScanLast3Days = untilLastScan < static_cast<double>(kThreeDays);
    panel.isTodayScan = facts.launch < *facts.lastScan;
    if (panel.isTodayScan)
        showResult(panel, facts.threatFound);
    else
        showReminder(panel, untilLastScan);
    return panel;
}

} // namespace pryvane
