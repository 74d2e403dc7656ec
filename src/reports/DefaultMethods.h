#pragma once

#include "core/Result.h"
#include "reports/SpywareScanReport.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace pryvane {

class Clock;
class FileSystem;
class Log;
class UserDefaults;

/// The report store: the newest-first list of all reports, kept whole under one preference key.
/// One thread at a time: the main thread, or one that it waits for in turn. Records that are read
/// back follow the disk as it is now; those of another volume than `disk` are unavailable.
class DefaultMethods {
public:
    DefaultMethods(UserDefaults& defaults, FileSystem& disk, Clock& clock, Log& log);

    /// Stores the list under the key. A failure is logged too, and leaves what was stored.
    Result<Done> saveListReport(const ReportList& list, std::string_view key);

    /// The stored list; empty when the key is absent or its value is damaged. A damaged value is
    /// logged once and set aside before the next save.
    [[nodiscard]] ReportList loadListReportWithKey(std::string_view key);

    /// The same without touching the disk: all records read as unavailable.
    [[nodiscard]] ReportList loadListReportWithoutDisk(std::string_view key);

    /// Puts the report at the head of the stored list, in place of the first one of the same
    /// identity, with no other writer in between, and returns the new list.
    Result<ReportList> updateReportInDefaults(const std::shared_ptr<SpywareScanReport>& report);

    /// Takes the report of that identity out of the stored list; false when there is none.
    Result<bool> deleteReport(std::string_view reportId);

private:
    /// Changes a list in place; false leaves what is stored as it is.
    using Edit = std::function<bool(ReportList& list)>;

    /// Loads, edits and stores the list under the key with no other writer in between.
    Result<Done> edit(std::string_view key, const Edit& edit);
    void tellDamage(std::string_view key, const Error& error);

    UserDefaults& m_defaults;
    FileSystem& m_disk;
    Clock& m_clock;
    Log& m_log;
    std::set<std::string, std::less<>> m_toldDamage; ///< keys
};

} // namespace pryvane
