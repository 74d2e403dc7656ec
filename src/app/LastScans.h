#pragma once

#include "core/Texts.h"
#include "reports/ReportFacts.h"

#include <optional>
#include <string>
#include <vector>

namespace pryvane {

/// What the dashboard tells of the scans so far of one disk and its users.
struct LastScans {
    std::optional<Date> date; ///< of the newest report; none: there is no report
    Verdict verdict = Verdict::Incomplete;
    std::string verdictLine;
    std::string quickDuration; ///< of the last quick or real-time scan that was not stopped
    std::string deepDuration;  ///< of the last deep scan that was not stopped
};

/// Whose scans are told of.
struct ScansOf {
    std::string volume;             ///< identity of the disk that is looked at; empty: it has none
    std::vector<std::string> users; ///< a report must have looked at each of them
    /// A report that was made of that disk since it was opened, so that it needs no identity.
    std::string madeHere;
};

/// From the report list, newest first. What was found on other disks is not told.
[[nodiscard]] LastScans lastScansOf(const std::vector<ReportFacts>& reports, const ScansOf& whose);

} // namespace pryvane
