#pragma once

#include "core/Result.h"
#include "reports/ReportFacts.h"
#include "reports/SpywareScanReport.h"

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

class Clock;
class FileSystem;
class Log;
class ReportStore;
class UserDefaults;
struct StoredReport;

/// The report store: the newest-first list of all reports, each stored by itself. One thread at a
/// time: the main thread, or one that it waits for in turn. Records that are read back follow the
/// disk as it is now; those of another volume than `disk` are unavailable. A damaged report counts
/// as absent, is logged once, and stays stored.
class DefaultMethods {
public:
    DefaultMethods(UserDefaults& defaults, FileSystem& disk, Clock& clock, Log& log);

    /// What the list shows of each report, newest first. Reads no findings.
    [[nodiscard]] Result<std::vector<ReportFacts>> listReports();

    /// The newest report of that identity. The error says why there is none.
    [[nodiscard]] Result<std::shared_ptr<SpywareScanReport>> loadReport(std::string_view reportId);

    /// Puts this list in place of the stored one. A failure is logged too, and leaves what was
    /// stored.
    Result<Done> saveListReport(const ReportList& list, std::string_view key);

    /// The stored list with all findings; empty where nothing can be read.
    [[nodiscard]] ReportList loadListReportWithKey(std::string_view key);

    /// The same without touching the disk: all records read as unavailable.
    [[nodiscard]] ReportList loadListReportWithoutDisk(std::string_view key);

    /// Puts the report at the head of the stored list, in place of the first one of the same
    /// identity, with no other writer in between. A failure is logged too.
    Result<Done> updateReportInDefaults(const std::shared_ptr<SpywareScanReport>& report);

    /// Takes the report of that identity out of the stored list; false when there is none.
    Result<bool> deleteReport(std::string_view reportId);

private:
    class Pieces;

    /// The list as an earlier version kept it, all in one preference; none once it was taken over.
    [[nodiscard]] std::optional<ReportList> olderList();
    [[nodiscard]] Result<Done> takeOver();
    [[nodiscard]] std::optional<Error> sameInRows(const ReportList& list);
    [[nodiscard]] Result<std::shared_ptr<SpywareScanReport>> read(const StoredReport& row);
    [[nodiscard]] Result<std::shared_ptr<SpywareScanReport>> read(const StoredReport& row,
                                                                  Pieces& pieces);
    [[nodiscard]] Result<std::shared_ptr<SpywareScanReport>> readNewest(StoredReport row,
                                                                        Pieces& pieces);
    Result<Done> told(Result<Done> outcome);
    void tellDamage(std::string_view what, const Error& error);

    UserDefaults& m_defaults;
    ReportStore& m_reports;
    FileSystem& m_disk;
    Clock& m_clock;
    Log& m_log;
    std::set<std::string, std::less<>> m_toldDamage;
};

} // namespace pryvane
