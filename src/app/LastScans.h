#pragma once

#include "core/Texts.h"
#include "reports/ReportFacts.h"

#include <optional>
#include <string>
#include <vector>

namespace pryvane {

/// What the dashboard tells of the scans so far.
struct LastScans {
    std::optional<Date> date; ///< of the newest report; none: there is no report
    bool threatFound = false;
    std::string quickDuration; ///< of the last quick or real-time scan that was not stopped
    std::string deepDuration;  ///< of the last deep scan that was not stopped
};

/// From the report list, newest first.
[[nodiscard]] LastScans lastScansOf(const std::vector<ReportFacts>& reports);

} // namespace pryvane
