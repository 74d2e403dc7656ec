#pragma once

#include "cli/Console.h"
#include "reports/SpywareScanReport.h"

#include <map>
#include <string>

namespace pryvane {
struct RemovalRecord;
}

namespace pryvane::cli {

/// Whether what the records say of the disk was asked of the report's own volume.
enum class DiskState : std::uint8_t { Asked, NotAsked };

/// The findings of a report as a numbered table, in the report's order; empty without any.
[[nodiscard]] std::string findingsText(const SpywareList& list, DiskState state);

/// What the journal last said of records, by their place in the report.
using RemovalRecords = std::map<std::size_t, RemovalRecord>;

/// When each of those was removed or why it was not, numbered as the findings are; empty without
/// any.
[[nodiscard]] std::string removalsText(const RemovalRecords& records);

/// What a scan looked at and what it could not, a few lines.
[[nodiscard]] std::string coverageText(const ScanCoverage& coverage);

/// The verdict line, coloured where the console shows colour.
[[nodiscard]] std::string verdictText(const SpywareScanReport& report, const Console& console);

} // namespace pryvane::cli
