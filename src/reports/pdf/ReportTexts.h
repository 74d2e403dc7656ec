#pragma once

#include "reports/ReportAppendix.h"

#include <array>
#include <string>
#include <vector>

namespace pryvane {
class FileSystem;
class MachineInfo;
class SpywareScanReport;
struct PDFFacts;
} // namespace pryvane

namespace pryvane::pdf {

/// The status column of a finding: what the disk says at the moment of printing.
inline constexpr const char* kQuarantined = "Quarantined";
inline constexpr const char* kNotQuarantined = "Not Quarantined";
/// The disk could not be asked: it is not the one that was scanned, or a folder on the way could
/// not be searched. Neither of the others would be true then.
inline constexpr const char* kNotChecked = "Not Checked";

/// One row of the table, as raw bytes.
struct TableRow {
    std::string url;
    std::string infection;
    std::string available;
    std::string status;
};

/// One of the eight facts about the Mac that was looked at and the scan.
struct Fact {
    std::string label; ///< up to and including its colon
    std::string value;
};

/// All that a printed report says, as raw bytes, before anything is measured or placed.
struct ReportTexts {
    std::string application; ///< name and versions
    std::string scanDate;
    std::array<std::array<Fact, 2>, 4> facts; ///< lines of a left and a right one
    std::vector<TableRow> rows;
    std::string verdict;                      ///< stands below the table,
    std::vector<std::string> remarks;         ///< and these, each a paragraph of its own, below it
    const ReportAppendix* appendix = nullptr; ///< begins on a page of its own; none: not wanted
};

/// Asks the disk, each distinct location once, and the machine where its own disk was scanned.
[[nodiscard]] ReportTexts reportTexts(const SpywareScanReport& report, const PDFFacts& facts,
                                      FileSystem& disk, MachineInfo& machine);

} // namespace pryvane::pdf
