#pragma once

#include "browser/ReportDetails.h"
#include "browser/ReportRemoval.h"
#include "browser/ReportRows.h"
#include "core/NotificationCenter.h"
#include "core/tasks/TaskQueue.h"
#include "platform/PlatformServices.h"
#include "reports/DefaultMethods.h"
#include "reports/ReportCompare.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

class FileViewer;
class ReportBrowserHost;
class ReportPrinting;
struct PrintOutcome;

/// Two reports and what changed from the earlier scan to the later.
struct ComparedReports {
    std::shared_ptr<SpywareScanReport> earlier, later;
    ReportComparison changes;
};

/// The report browser without its widgets: the list of stored reports, and the details of one of
/// them. Main thread only; the store is read and written, the disk asked and a report printed on
/// threads that end with it.
class ReportViewController final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ReportViewController)

public:
    struct Parts {
        ReportBrowserHost& host;
        FileViewer& fileViewer;
        ReportPrinting& printing;
        Remover& remover; ///< used by nobody else meanwhile
        std::string user; ///< short name
    };

    ReportViewController(const PlatformServices& services, const Parts& parts,
                         QObject* parent = nullptr);
    ~ReportViewController() override;

    /// The screen has come to the front: the list is read anew.
    void viewWillAppear();

    // The list
    [[nodiscard]] const std::vector<ReportFacts>& reportList() const { return m_rows.reports(); }
    [[nodiscard]] const ReportRows& rows() const { return m_rows; }
    /// How many of the list are of the disk in front; none where that cannot be told from others.
    [[nodiscard]] std::optional<std::size_t> reportsOfThisDisk() const;
    [[nodiscard]] bool isReportAvailable() const { return !reportList().empty(); }
    [[nodiscard]] bool isLoading() const { return m_loads > 0; }
    /// Whether the store or the disk is being asked.
    [[nodiscard]] bool isBusy() const { return m_storeTasks.isBusy() || m_diskTasks.isBusy(); }
    [[nodiscard]] bool isScanning() const { return m_isScanning; } ///< shows the spinner
    void setFilter(ReportFilter filter);
    void setSearch(std::string_view words);
    void selectRow(std::optional<std::size_t> row) { m_selectedRow = row; }
    [[nodiscard]] std::optional<std::size_t> selectedRow() const { return m_selectedRow; }

    /// The row's action: reads and opens a report with threats, asks whether to delete one without.
    void openThisReport(std::size_t row);
    /// Reads and opens the selected row's report.
    void viewReport();
    /// Reads the reports of two rows and hands over what changed between them; says so instead
    /// where one cannot be read.
    void compare(std::size_t row, std::size_t otherRow, std::function<void(ComparedReports)> done);
    /// Deletes the selected row's report after confirmation.
    void trashSelectedReport();
    /// The same of several rows, after one confirmation.
    void trashReports(const std::vector<std::size_t>& rows);
    [[nodiscard]] std::vector<std::string> reportIds(const std::vector<std::size_t>& rows) const;
    /// Reads one report as it is stored, behind what is done already.
    void readReport(const std::string& reportId,
                    std::function<void(const Result<std::shared_ptr<SpywareScanReport>>&)> told);
    void scanningStartAction();

    // The details
    [[nodiscard]] bool isReportDetails() const { return m_isReportDetails; }
    /// The open report; none while the list shows.
    [[nodiscard]] const std::shared_ptr<SpywareScanReport>& report() const { return m_report; }
    [[nodiscard]] const ReportDetails& details() const { return m_details; }
    [[nodiscard]] const SelectionState& selection() const { return m_selection; }
    /// Whether the open report is of the volume that is looked at.
    [[nodiscard]] bool isOfThisVolume() const;
    /// What the last action had to say, as one line of plain text; empty without.
    [[nodiscard]] const std::string& notice() const { return m_notice; }
    /// Whether that action failed.
    [[nodiscard]] bool isNoticeOfFailure() const { return m_noticeOfFailure; }
    enum class NoticeOf : bool { Success, Failure };
    void say(std::string notice, NoticeOf what = NoticeOf::Success);
    void backtoReportList();
    void trashReport();
    void checkClicked(std::size_t index, bool on);
    void checkRows(const std::vector<int>& rows, bool on);
    void checkAllAction(bool on);
    void showThreatInFileDelegate(std::size_t index);
    /// Prints the open report on the queue (empty: the default one).
    void makeAndPrintPDF(std::string_view queue = {});
    /// What the application's print action does instead of printing on the default queue at once.
    void setPrintQuestion(std::function<void()> ask) { m_printQuestion = std::move(ask); }
    [[nodiscard]] bool isPrinting() const { return m_printTasks.isBusy(); }

    // Removal
    [[nodiscard]] ReportRemoval& removal() { return m_removal; }
    void removeSelected() { m_removal.removeSelected(); }
    void reloadReportView() { m_removal.reloadReportView(); }
    void removeSpyware() { m_removal.removeSpyware(); }

Q_SIGNALS:
    /// Something that is shown has changed.
    void stateChanged();
    /// The rows are others than before.
    void listChanged();

private:
    void observe();
    void scanStatusChange(bool started);
    void refreshReport(const std::shared_ptr<SpywareScanReport>& report);
    void load();
    void loaded(SearchableReports list);
    void readAndOpen(const std::string& reportId);
    void openDetails(std::shared_ptr<SpywareScanReport> report);
    void closeDetails();
    void hideDetailsOfEmptyList();
    void reloadThreatDetails();
    void ChangeSelection();
    void deleteReport(const std::string& id) { deleteReports({id}); }
    void deleteReports(std::vector<std::string> ids);
    void deleted(const std::vector<std::string>& gone, const std::string& problem);
    void offerPrinting();
    void printed(const PrintOutcome& outcome);

    PlatformServices m_services;
    const Parts m_parts;
    DefaultMethods m_store; ///< used by m_storeTasks only
    ReportRows m_rows;
    std::optional<std::size_t> m_selectedRow;
    int m_loads = 0;             ///< asked for and not ended
    std::uint64_t m_opening = 0; ///< counts what was opened or closed: what is read may be late
    bool m_isScanning = false;
    bool m_isReportDetails = false;
    bool m_detailsNeedAList = false; ///< they were opened before the list was there
    std::shared_ptr<SpywareScanReport> m_report;
    ReportDetails m_details;
    SelectionState m_selection;
    std::string m_notice;
    bool m_noticeOfFailure = false;
    std::function<void()> m_printQuestion;
    std::vector<NotificationCenter::Observation> m_observations;
    TaskQueue m_storeTasks; // they end before anything they use
    TaskQueue m_diskTasks;
    TaskQueue m_printTasks;
    TaskQueue m_releaseTasks; ///< frees what would hold the main thread too long
    ReportRemoval m_removal;
};

} // namespace pryvane
