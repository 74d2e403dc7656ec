#include "browser/ReportViewController.h"

#include "browser/ReportBrowserHost.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
#include "reports/RecordAvailability.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr int kScanRow = 1; // of the navigation table

} // namespace

ReportViewController::ReportViewController(const PlatformServices& services, const Parts& parts,
                                           QObject* parent)
    : QObject(parent), m_services(services), m_parts(parts),
      m_store(services.defaults, services.disk, services.clock, services.log),
      m_storeTasks(services.mainQueue), m_diskTasks(services.mainQueue),
      m_printTasks(services.mainQueue, std::chrono::milliseconds(0)),
      m_releaseTasks(services.mainQueue, std::chrono::milliseconds(0)),
      m_removal(services, parts.remover,
                {parts.user, [this] { return m_report; },
                 [this] { m_parts.host.openRemoteDesktopInstructions(); },
                 [this] { Q_EMIT stateChanged(); }, [this] { reloadThreatDetails(); }})
{
    observe();
}

ReportViewController::~ReportViewController()
{
    if (m_isReportDetails)
        m_parts.host.setPrintAction({});
}

void ReportViewController::observe()
{
    const auto on = [this](NotificationName name, NotificationCenter::Handler handler) {
        m_observations.push_back(m_services.notifications.observe(name, std::move(handler)));
    };
    on(NotificationName::ScanStatusChange, [this](const Notification& note) {
        if (const auto* started = std::get_if<bool>(&note.object))
            scanStatusChange(*started);
    });
    on(NotificationName::ReloadReport, [this](const Notification&) { reloadReportView(); });
    on(NotificationName::RefreshReport, [this](const Notification& note) {
        if (const auto* object = std::get_if<std::any>(&note.object)) {
            if (const auto* report = std::any_cast<std::shared_ptr<SpywareScanReport>>(object))
                refreshReport(*report);
        }
    });
}

void ReportViewController::viewWillAppear()
{
    load();
    if (m_isReportDetails)
        offerPrinting();
}

void ReportViewController::offerPrinting()
{
    m_parts.host.setPrintAction([this] {
        if (m_printQuestion)
            m_printQuestion();
        else
            makeAndPrintPDF();
    });
}

void ReportViewController::scanStatusChange(bool started)
{
    m_isScanning = started;
    if (!started)
        load();
    Q_EMIT stateChanged();
}

void ReportViewController::load()
{
    ++m_loads;
    m_storeTasks.run(
        [this](const StopFlag&) {
            auto list = m_store.listReports();
            if (!list)
                m_services.log.line(list.error().message);
            return SearchableReports(list ? std::move(list).value() : std::vector<ReportFacts>());
        },
        [this](SearchableReports list) { loaded(std::move(list)); });
    Q_EMIT stateChanged();
}

void ReportViewController::loaded(SearchableReports list)
{
    --m_loads;
    m_selectedRow.reset();
    m_releaseTasks.run(
        [old =
             m_rows.setReports(std::move(list), m_services.clock.now())](const StopFlag&) mutable {
            old = SearchableReports();
            return Done{};
        },
        [](Done) {});
    if (std::exchange(m_detailsNeedAList, false))
        hideDetailsOfEmptyList();
    Q_EMIT listChanged();
    Q_EMIT stateChanged();
}

void ReportViewController::setFilter(ReportFilter filter)
{
    m_selectedRow.reset();
    m_rows.setFilter(filter);
    Q_EMIT listChanged();
}

void ReportViewController::setSearch(std::string_view words)
{
    m_selectedRow.reset();
    m_rows.setSearch(words);
    Q_EMIT listChanged();
}

void ReportViewController::openThisReport(std::size_t row)
{
    if (row >= m_rows.size())
        return;
    const ReportFacts& report = m_rows.report(row);
    if (!report.hasThreats()) {
        deleteReport(report.reportId);
        return;
    }
    const auto index = static_cast<std::int64_t>(m_rows.listIndex(row));
    readAndOpen(report.reportId);
    m_storeTasks.run([&defaults = m_services.defaults,
                      index](const StopFlag&) { return defaults.set(preferences::kIndex, index); },
                     [this](const Result<Done>& stored) { logFailure(m_services.log, stored); });
}

void ReportViewController::viewReport()
{
    if (m_selectedRow && *m_selectedRow < m_rows.size())
        readAndOpen(m_rows.report(*m_selectedRow).reportId);
}

void ReportViewController::readAndOpen(const std::string& reportId)
{
    m_storeTasks.run(
        [this, reportId](const StopFlag&) { return m_store.loadReport(reportId); },
        [this, opening = ++m_opening](const Result<std::shared_ptr<SpywareScanReport>>& report) {
            if (opening != m_opening)
                return; // something else was opened or closed meanwhile
            if (report)
                openDetails(*report);
            else
                say("The report cannot be opened: " + report.error().message, NoticeOf::Failure);
        });
    Q_EMIT stateChanged();
}

void ReportViewController::refreshReport(const std::shared_ptr<SpywareScanReport>& report)
{
    if (report)
        openDetails(report);
}

void ReportViewController::compare(std::size_t row, std::size_t otherRow,
                                   std::function<void(ComparedReports)> done)
{
    m_storeTasks.run(
        [this, id = m_rows.report(row).reportId,
         otherId = m_rows.report(otherRow).reportId](const StopFlag&) -> Result<ComparedReports> {
            auto first = m_store.loadReport(id), second = m_store.loadReport(otherId);
            if (!first || !second)
                return first ? second.error() : first.error();
            ComparedReports compared{*first, *second, {}};
            if (compared.later->scanDate < compared.earlier->scanDate)
                std::swap(compared.earlier, compared.later);
            compared.changes = compareReports(*compared.earlier, *compared.later);
            return compared;
        },
        [this, done = std::move(done)](Result<ComparedReports> compared) {
            if (compared)
                done(std::move(compared).value());
            else
                say("The reports cannot be compared: " + compared.error().message,
                    NoticeOf::Failure);
        });
}

void ReportViewController::scanningStartAction()
{
    m_parts.host.checkForHDAccess();
    m_services.notifications.post(NotificationName::MainTableChangedManually,
                                  std::int64_t{kScanRow});
    m_services.notifications.post(NotificationName::MainTableSelectionChange,
                                  SelectionChange{kScanRow, true, true});
}

void ReportViewController::backtoReportList()
{
    closeDetails();
    m_rows.setNow(m_services.clock.now());
    Q_EMIT listChanged();
    Q_EMIT stateChanged();
}

std::optional<std::size_t> ReportViewController::reportsOfThisDisk() const
{
    const std::string here = m_services.disk.identity();
    if (here.empty())
        return std::nullopt;
    return static_cast<std::size_t>(std::ranges::count_if(
        reportList(), [&](const auto& report) { return isSameVolume(report.volume, here); }));
}

void ReportViewController::trashSelectedReport()
{
    if (m_selectedRow && *m_selectedRow < m_rows.size())
        deleteReport(m_rows.report(*m_selectedRow).reportId);
}

void ReportViewController::trashReport()
{
    if (m_report)
        deleteReport(m_report->reportId);
}

std::vector<std::string> ReportViewController::reportIds(const std::vector<std::size_t>& rows) const
{
    std::vector<std::string> ids;
    for (const std::size_t row : rows)
        if (row < m_rows.size())
            ids.push_back(m_rows.report(row).reportId);
    return ids;
}

void ReportViewController::trashReports(const std::vector<std::size_t>& rows)
{
    if (auto ids = reportIds(rows); !ids.empty())
        deleteReports(std::move(ids));
}

void ReportViewController::readReport(
    const std::string& reportId,
    std::function<void(const Result<std::shared_ptr<SpywareScanReport>>&)> told)
{
    m_storeTasks.run([this, reportId](const StopFlag&) { return m_store.loadReport(reportId); },
                     std::move(told));
}

/// The reports may end while the question stands, so their identities are copies.
void ReportViewController::deleteReports(std::vector<std::string> ids)
{
    const std::string question = ids.size() == 1 ? "Are you sure you want to delete this report?"
                                                 : "Are you sure you want to delete these " +
                                                       std::to_string(ids.size()) + " reports?";
    if (m_services.alerts.runModal({"Alert", question, {"Yes", "No"}}) != kAlertFirstButton)
        return;
    closeDetails();
    m_selectedRow.reset();
    m_rows.setNow(m_services.clock.now());
    for (const std::string& id : ids)
        m_rows.remove(id);
    struct Outcome {
        std::vector<std::string> gone;
        std::string problem; ///< of the first that stayed
    };
    m_storeTasks.run(
        [this, ids = std::move(ids)](const StopFlag&) {
            Outcome outcome;
            for (const std::string& id : ids) {
                if (const auto deleted = m_store.deleteReport(id))
                    outcome.gone.push_back(id);
                else if (outcome.problem.empty())
                    outcome.problem = deleted.error().message;
            }
            return outcome;
        },
        [this](const Outcome& outcome) { deleted(outcome.gone, outcome.problem); });
    Q_EMIT listChanged();
    Q_EMIT stateChanged();
}

void ReportViewController::deleted(const std::vector<std::string>& gone, const std::string& problem)
{
    if (!problem.empty()) {
        say("The report could not be deleted: " + problem, NoticeOf::Failure);
        load();
        return;
    }
    for (const std::string& id : gone)
        m_rows.remove(id); // a list read meanwhile still holds it
    Q_EMIT listChanged();
    Q_EMIT stateChanged();
}

void ReportViewController::say(std::string notice, NoticeOf what)
{
    m_notice = std::move(notice);
    m_noticeOfFailure = what == NoticeOf::Failure;
    Q_EMIT stateChanged();
}

} // namespace pryvane
