#pragma once

#include "cli/Console.h"
#include "core/Result.h"
#include "reports/ReportFacts.h"
#include "reports/SpywareScanReport.h"

#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {
struct RemovalRecord;
} // namespace pryvane

namespace pryvane {
class DefaultMethods;
}

namespace pryvane::cli {

/// The findings of a report as a numbered table, in the report's order; nothing without any.
void writeFindings(const SpywareList& list, std::ostream& out);

/// What the journal last said of records, by their place in the report.
using RemovalRecords = std::map<std::size_t, RemovalRecord>;

/// When each of those was removed or why it was not, numbered as the findings are; empty without
/// any.
[[nodiscard]] std::string removalsText(const RemovalRecords& records);

/// What the person who had it made said of a report, in lines; empty where nothing was said.
[[nodiscard]] std::string labelsText(const CaseLabels& labels);

/// What a scan looked at and what it could not, a few lines.
[[nodiscard]] std::string coverageText(const ScanCoverage& coverage);

/// The verdict line, coloured where the console shows colour.
[[nodiscard]] std::string verdictText(const SpywareScanReport& report, const Console& console);

/// What is listed of the report that a person named: "latest", an identity, or the beginning of
/// exactly one. "latest" is the newest of the volume of that identity, and of all where none is
/// given; of one that cannot be told from others there is none. Reads no findings.
[[nodiscard]] Result<ReportFacts> findFacts(DefaultMethods& store, std::string_view id,
                                            const std::optional<std::string>& of);

/// The same report with its findings.
[[nodiscard]] Result<std::shared_ptr<SpywareScanReport>>
findReport(DefaultMethods& store, std::string_view id, const std::optional<std::string>& of);

} // namespace pryvane::cli
