#pragma once

#include "cli/Console.h"
#include "reports/SpywareScanReport.h"

#include <string>

namespace pryvane::cli {

/// The findings of a report as a numbered table, in the report's order; empty without any.
[[nodiscard]] std::string findingsText(const SpywareList& list);

/// What a scan looked at and what it could not, a few lines.
[[nodiscard]] std::string coverageText(const ScanCoverage& coverage);

/// The verdict line, coloured where the console shows colour.
[[nodiscard]] std::string verdictText(const SpywareScanReport& report, const Console& console);

} // namespace pryvane::cli
