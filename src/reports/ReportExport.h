#pragma once

#include "core/Files.h"
#include "reports/ReportAppendix.h"
#include "reports/SpywareScanReport.h"

namespace pryvane {

// Each hands a report over bit by bit, as its text may be much larger than the report.

/// One report with its coverage as a JSON object, indented and ended by a newline. Paths stand
/// there twice: as text, with everything deceptive escaped, and as a URL of their exact bytes. An
/// appendix is its "facts".
void writeAsJson(const SpywareScanReport& report, const TextSink& sink,
                 const ReportAppendix* appendix = nullptr);

/// Its findings as a table (RFC 4180) with a header row. Each row carries the verdict and whose
/// disk it is; a report without findings has one row, item 0, that says nothing else. No cell can
/// pass for a formula: one that begins like a formula gets an apostrophe in front.
void writeAsCsv(const SpywareScanReport& report, const TextSink& sink);

/// What happened when, as timeline tools read it: a table with message, datetime (ISO 8601 in UTC)
/// and timestamp_desc, sorted by time. When each finding was made and changed, as far as its disk
/// told, and the scan itself.
void writeAsTimeline(const SpywareScanReport& report, const TextSink& sink);

/// One self-contained page without scripts and without anything from elsewhere.
void writeAsHtml(const SpywareScanReport& report, const TextSink& sink,
                 const ReportAppendix* appendix = nullptr);

} // namespace pryvane
