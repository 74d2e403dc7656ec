// The half of it that has one report open.

#include "browser/ReportBrowserHost.h"
#include "browser/ReportViewController.h"
#include "platform/Clock.h"
#include "platform/DesktopPrograms.h"
#include "platform/FileSystem.h"
#include "reports/RecordAvailability.h"
#include "reports/pdf/ReportPrinting.h"
#include "signatures/MakersApplications.h"

namespace pryvane {

namespace {

/// What is to be known of a report that is not of the disk in front; empty of one that is.
std::string remarkOn(const SpywareScanReport& report, std::string_view here)
{
    const std::string_view why = whyNotAsked(report, here);
    if (why.empty() || report.spyWareList->empty())
        return {};
    return (report.volume.empty() || here.empty()
                ? "It cannot be told whether this report is of the disk in front"
                : "This report is of another disk than the one in front") +
           std::string(", so what of it is still there is not known.");
}

} // namespace

void ReportViewController::openDetails(std::shared_ptr<SpywareScanReport> report)
{
    ++m_opening;
    m_report = std::move(report);
    m_details = detailsOf(*m_report, m_services.clock.now());
    m_notice = remarkOn(*m_report, m_services.disk.identity());
    m_removal.reset();
    m_isReportDetails = true;
    offerPrinting();
    reloadThreatDetails();
    m_detailsNeedAList = isLoading();
    if (!m_detailsNeedAList)
        hideDetailsOfEmptyList();
    Q_EMIT stateChanged();
}

void ReportViewController::hideDetailsOfEmptyList()
{
    if (reportList().empty() && m_isReportDetails)
        closeDetails();
}

void ReportViewController::closeDetails()
{
    ++m_opening;
    m_isReportDetails = false;
    m_report.reset();
    m_details = {};
    m_selection = {};
    m_notice.clear();
    m_removal.reset();
    m_removal.disMissPanel();
    m_parts.host.setPrintAction({});
}

void ReportViewController::reloadThreatDetails()
{
    if (!m_report) {
        Q_EMIT stateChanged();
        return;
    }
    ChangeSelection();
    m_diskTasks.run(
        [&disk = m_services.disk, report = m_report](const StopFlag& stop) {
            return std::pair(report, presencesOf(*report, disk, stop));
        },
        [this](const auto& told) {
            const auto& [report, there] = told;
            const std::string here = m_services.disk.identity();
            for (std::size_t i = 0; i < there.size(); ++i) {
                Spyware& record = *(*report->spyWareList)[i];
                const bool checked = record.isChecked;
                record.setPresence(there[i], whyNotKnown(*report, record, here));
                // Remote desktop is switched off by instructions, never removed.
                record.isChecked = record.isAvail() && checked && !isRemoteDesktop(record);
            }
            ChangeSelection();
        });
}

void ReportViewController::ChangeSelection()
{
    m_selection = m_report ? selectionOf(*m_report->spyWareList) : SelectionState{};
    Q_EMIT stateChanged();
}

void ReportViewController::checkClicked(std::size_t index, bool on)
{
    if (!m_report || index >= m_report->spyWareList->size() || m_removal.isRemoving())
        return;
    (*m_report->spyWareList)[index]->isChecked = on;
    ChangeSelection();
}

void ReportViewController::checkRows(const std::vector<int>& rows, bool on)
{
    if (!m_report || m_removal.isRemoving())
        return;
    for (const int row : rows)
        m_report->spyWareList->at(static_cast<std::size_t>(row))->isChecked = on;
    ChangeSelection();
}

void ReportViewController::checkAllAction(bool on)
{
    if (!m_report || m_removal.isRemoving())
        return;
    for (const auto& record : *m_report->spyWareList) {
        if (record->isAvail() && !isRemoteDesktop(*record))
            record->isChecked = on;
    }
    ChangeSelection();
}

void ReportViewController::showThreatInFileDelegate(std::size_t index)
{
    if (!m_report || index >= m_report->spyWareList->size())
        return;
    if (!isOfThisVolume()) {
        say(m_report->volume.empty() || m_services.disk.identity().empty()
                ? "It cannot be told whether this report is of this disk, so there is nothing to "
                  "show."
                : "This report is of another volume, so there is nothing to show.");
        return;
    }
    const auto shown = m_parts.fileViewer.reveal((*m_report->spyWareList)[index]->url);
    shown ? say({}) : say(shown.error().message, NoticeOf::Failure);
}

bool ReportViewController::isOfThisVolume() const
{
    return m_report && isSameVolume(m_report->volume, m_services.disk.identity());
}

void ReportViewController::makeAndPrintPDF(std::string_view queue)
{
    if (!m_report || isPrinting())
        return;
    m_printTasks.run([&printing = m_parts.printing, report = m_report->independentCopy(),
                      queue = std::string(queue)](
                         const StopFlag&) { return printing.makeAndPrintPDF(report, queue); },
                     [this](const PrintOutcome& outcome) { printed(outcome); });
    Q_EMIT stateChanged();
}

void ReportViewController::printed(const PrintOutcome& outcome)
{
    switch (outcome.state) {
    case PrintOutcome::State::Sent:
        say("The report was sent to the printer.");
        break;
    case PrintOutcome::State::Failed:
        say("The report was not printed: " + outcome.reason, NoticeOf::Failure);
        break;
    case PrintOutcome::State::NothingToPrint:
        say({});
        break;
    }
}

} // namespace pryvane
