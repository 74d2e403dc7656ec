#pragma once

#include "reports/ReportAppendix.h"
#include "reports/SpywareScanReport.h"

#include <string>

namespace pryvane {

/// One report with its coverage as a JSON object, indented and ended by a newline. Paths stand
/// there twice: as text, with everything deceptive escaped, and as a URL of their exact bytes. An
/// appendix is its "facts".
[[nodiscard]] std::string reportAsJson(const SpywareScanReport& report,
                                       const ReportAppendix* appendix = nullptr);

/// Its findings as a table (RFC 4180) with a header row. Each row carries the verdict and whose
/// disk it is; a report without findings has one row, item 0, that says nothing else. No cell can
/// pass for a formula: one that begins like a formula gets an apostrophe in front.
[[nodiscard]] std::string reportAsCsv(const SpywareScanReport& report);

/// One self-contained page without scripts and without anything from elsewhere.
[[nodiscard]] std::string reportAsHtml(const SpywareScanReport& report,
                                       const ReportAppendix* appendix = nullptr);

} // namespace pryvane
