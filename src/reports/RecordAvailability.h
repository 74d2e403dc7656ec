#pragma once

#include "core/StopFlag.h"
#include "platform/FileSystem.h"
#include "reports/SpywareScanReport.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pryvane {

/// Why a report's own disk cannot be asked where the volume `here` is looked at; empty where it
/// can.
[[nodiscard]] std::string_view whyNotAsked(const SpywareScanReport& report, std::string_view here);

/// Why it is not known whether the record is there still, where it is not.
[[nodiscard]] std::string_view whyNotKnown(const SpywareScanReport& report, const Spyware& record,
                                           std::string_view here);

/// What a disk holds of the findings of stored reports. Tests each distinct path once; the reports
/// must outlive it.
class DiskPresence {
public:
    explicit DiskPresence(FileSystem& disk) : m_disk(disk), m_volume(disk.identity()) {}

    /// Unknown for a report that is not known to be of this volume, and for a damaged record
    /// without a path.
    [[nodiscard]] Presence of(const SpywareScanReport& report, const Spyware& record);

private:
    FileSystem& m_disk;
    std::string m_volume;
    /// By the path as given: a trailing slash asks for a folder, which is a test of its own. The
    /// views stay valid because a record's location never changes.
    std::unordered_map<std::string_view, Presence> m_known;
    std::unordered_map<std::string_view, bool> m_spelled; ///< whether that very name is there
};

/// The same of all records of one report, in their order, with as few questions as that takes.
/// Unknown for what a stop leaves out. Any thread.
[[nodiscard]] std::vector<Presence> presencesOf(const SpywareScanReport& report, FileSystem& disk,
                                                const StopFlag& stop);

/// Makes the report's records follow the disk as it is now.
void followDisk(SpywareScanReport& report, FileSystem& disk);

/// Makes the records of all reports follow the disk as it is now. The records of another volume
/// than `disk`, and of one that cannot be told from others, are not known.
void followDisk(const ReportList& reports, FileSystem& disk);

} // namespace pryvane
