#pragma once

#include "reports/SpywareScanReport.h"

#include <string>

namespace pryvane {

/// What changed from one report to a later one. Findings at the same location are the same finding.
struct ReportComparison {
    SpywareList added; ///< in the later report only, in its order
    SpywareList gone;  ///< in the earlier report only, in its order
    SpywareList kept;  ///< in both, the later report's records, in its order
};

/// Why what is new or gone may not be so, in one line; empty where both scans looked at the same,
/// and the later one at all of it.
[[nodiscard]] std::string comparisonRemark(const SpywareScanReport& earlier,
                                           const SpywareScanReport& later);

[[nodiscard]] ReportComparison compareReports(const SpywareScanReport& earlier,
                                              const SpywareScanReport& later);

} // namespace pryvane
