#pragma once

#include "core/Texts.h"
#include "findings/Verdict.h"

#include <optional>
#include <string>

namespace pryvane {

/// What the protection status is decided from.
struct StatusFacts {
    bool homeWritable = false;
    bool scanRunning = false;
    std::optional<Verdict> verdict; ///< of the scan that ended during this run
    std::string detail;             ///< what limits that verdict
    std::optional<Date> lastScan;
    Date launch{};
    Date now{};
};

/// Names of the artwork behind a large statement, and of the badge beside it.
struct Artwork {
    const char* background;
    const char* badge;
};
[[nodiscard]] Artwork artworkOf(Tone tone);

/// The protection status at the top of the scan screen. Texts and image names are shown as they
/// stand.
struct StatusPanel {
    bool isUserDirAccessible = false;
    bool isScanLast3Days = false;
    bool isTodayScan = false; ///< a scan finished during this run
    bool isResult = false;    ///< it tells what a scan came to; else nothing was looked at yet
    bool showsScanNow = false;
    bool showsRemove = false;
    bool showsInfoBox = false;
    int headerHeight = 0; ///< points
    std::string statusText;
    std::string background;
    std::string badge;
    std::string bottomText;
    std::string bottomIcon;
    std::string logLine; ///< to be logged, when not empty
};

/// Pure: the same facts always give the same panel.
[[nodiscard]] StatusPanel makeStatusPanel(const StatusFacts& facts);

} // namespace pryvane
