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

/// A disk that was attached for reading alone is no danger, and can be scanned.
void showReadOnly(StatusPanel& panel)
{
    panel.background.clear();
    panel.badge = "icn_white_question";
    panel.showsScanNow = true;
    panel.statusText = "The Home Folder Cannot Be Written To";
    panel.bottomText = "It can be scanned as far as it can be read; nothing in it can be removed.";
}

void showResult(StatusPanel& panel, Verdict verdict, const std::string& detail)
{
    const VerdictWords& words = wordsFor(verdict);
    const Artwork artwork = artworkOf(words.tone);
    panel.isResult = true;
    panel.background = artwork.background;
    panel.badge = artwork.badge;
    panel.statusText = words.headline;
    panel.showsRemove = verdict == Verdict::Found;
    if (verdict == Verdict::Clean) {
        panel.headerHeight = kResultHeaderHeight;
        panel.showsInfoBox = true;
        panel.bottomIcon = "icn_white_question";
        panel.bottomText = "Do you still think you are infected\nwith spyware?";
    } else if (verdict != Verdict::Found) {
        panel.showsScanNow = true;
        panel.bottomText = detail;
    }
}

} // namespace

Artwork artworkOf(Tone tone)
{
    switch (tone) {
    case Tone::Red:
        break;
    case Tone::Amber:
        return {"attention_bg", "icn_white_question"};
    case Tone::Green:
        return {"no_threats_bg", "icn_white_check"};
    }
    return {"threats_bg", "icn_white_cross"};
}

StatusPanel makeStatusPanel(const StatusFacts& facts)
{
    StatusPanel panel;
    panel.background = "threats_bg";
    panel.badge = "icn_white_cross";
    panel.isUserDirAccessible = facts.homeWritable;
    if (!facts.homeWritable)
        panel.logLine = "Please restart your app";
    if (facts.scanRunning)
        return panel;
    if (!facts.homeWritable && !facts.verdict) {
        showReadOnly(panel);
        return panel;
    }
    if (!facts.lastScan) {
        panel.showsScanNow = true;
        panel.statusText = "A scan has never been run on your system";
        return panel;
    }
    // Signed on purpose: a date in the past is always "within three days".
    const double untilLastScan = std::chrono::duration<double>(*facts.lastScan - facts.now).count();
    panel.isScanLast3Days = untilLastScan < static_cast<double>(kThreeDays);
    panel.isTodayScan = facts.launch < *facts.lastScan;
    if (panel.isTodayScan && facts.verdict)
        showResult(panel, *facts.verdict, facts.detail);
    else
        showReminder(panel, untilLastScan);
    return panel;
}

} // namespace pryvane
