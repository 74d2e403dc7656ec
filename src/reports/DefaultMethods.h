#pragma once

#include "core/Result.h"
#include "reports/SpywareScanReport.h"

#include <string_view>

namespace pryvane {

class Clock;
class FileSystem;
class Log;
class UserDefaults;

/// The report store: the newest-first list of all reports, kept whole under one preference key.
/// Main thread only. Records that are read back follow the disk as it is now; those of another
/// volume than `disk` are unavailable.
class DefaultMethods {
public:
    DefaultMethods(UserDefaults& defaults, FileSystem& disk, Clock& clock, Log& log);

    /// Stores the list under the key. A failure is logged too, and leaves what was stored.
    Result<Done> saveListReport(const ReportList& list, std::string_view key);

    /// The stored list; empty when the key is absent or its value is damaged. A damaged value is
    /// logged once and set aside before the next save.
    [[nodiscard]] ReportList loadListReportWithKey(std::string_view key);

    /// Puts the report at the head of the stored list, in place of the first one of the same
    /// identity, with no other writer in between, and returns the new list.
    Result<ReportList> updateReportInDefaults(const std::shared_ptr<SpywareScanReport>& report);

    /// Takes the report of that identity out of the stored list; false when there is none.
    Result<bool> deleteReport(std::string_view reportId);

private:
    UserDefaults& m_defaults;
    FileSystem& m_disk;
    Clock& m_clock;
    Log& m_log;
};

} // namespace pryvane
