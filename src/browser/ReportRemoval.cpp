#include "browser/ReportRemoval.h"

#include "core/tasks/MainQueue.h"
#include "platform/Alerts.h"
#include "platform/Workspace.h"
#include "signatures/RemoteDesktop.h"

#include <string_view>
#include <unordered_map>

namespace pryvane {

namespace {

/// The first record of each location: a report may list one twice.
SpywareList eachOnce(const SpywareList& records)
{
    std::unordered_map<std::string_view, bool> seen;
    SpywareList once;
    for (const auto& record : records) {
        if (seen.try_emplace(record->url.identity(), true).second)
            once.push_back(record);
    }
    return once;
}

} // namespace

ReportRemoval::ReportRemoval(const PlatformServices& services, Remover& remover, Screen screen)
    : m_services(services), m_remover(remover), m_screen(std::move(screen)),
      m_panel(services.workspace), m_planning(services.disk, remover, services.mainQueue)
{
    m_panel.setDelegate(this);
    QObject::connect(&m_panel, &FourceQuitBrowserView::changed, &m_panel,
                     [this] { m_screen.changed(); });
}

ReportRemoval::~ReportRemoval()
{
    m_stop.request();
}

bool ReportRemoval::mayStart() const
{
    return m_screen.openReport() && !m_isRemoving && !m_isAsking && !m_panel.isPresented();
}

SpywareList ReportRemoval::checked() const
{
    SpywareList list;
    for (const auto& record : *m_screen.openReport()->spyWareList) {
        if (record->isChecked && !isRemoteDesktop(*record))
            list.push_back(record);
    }
    return list;
}

void ReportRemoval::removeSelected()
{
    if (mayStart() && !checked().empty() && forceQuitBrowsers())
        start(checked(), Then::BannerPlain);
}

bool ReportRemoval::forceQuitBrowsers()
{
    m_confirmed = m_screen.openReport();
    m_isAsking = true;
    const int answer = m_services.alerts.runModal(
        {"Alert", "Are you sure you want to delete selected threats?", {"Yes", "No"}});
    m_isAsking = false;
    // While the question stood, another report may have been opened.
    if (answer != kAlertFirstButton || m_confirmed != m_screen.openReport())
        return false;
    auto entries = blockingBrowsers();
    if (entries.empty())
        return true;
    m_panel.present(std::move(entries));
    return false;
}

std::vector<BrowserEntry> ReportRemoval::blockingBrowsers() const
{
    std::vector<std::string> paths;
    for (const auto& record : checked())
        paths.push_back(record->url.relativePath());
    return browsersToQuit(paths, m_services.workspace.runningApplications(), m_screen.user);
}

bool ReportRemoval::tryAgain()
{
    auto entries = blockingBrowsers();
    if (entries.empty())
        return true;
    m_panel.reload(std::move(entries));
    return false;
}

bool ReportRemoval::retryActionForWebBrowser()
{
    // Behind the panel another report may have been opened, of which nobody was asked.
    const bool sameReport = m_screen.openReport() && m_confirmed == m_screen.openReport();
    if (sameReport && !tryAgain())
        return false;
    m_panel.dismiss();
    if (sameReport)
        reloadReportView();
    return sameReport;
}

void ReportRemoval::planSelected(std::function<std::string(std::string_view)> foldedName,
                                 std::function<void(RemovalPlan)> done)
{
    if (mayStart())
        m_planning.start({eachOnce(checked()), m_screen.openReport()->volume, m_screen.user,
                          std::move(foldedName)},
                         std::move(done));
}

void ReportRemoval::reloadReportView()
{
    if (!mayStart())
        return;
    if (const SpywareList records = checked(); !records.empty())
        start(records, Then::BannerIndented);
}

void ReportRemoval::removeSpyware()
{
    if (mayStart())
        removeThisAdware(*m_screen.openReport()->spyWareList);
}

void ReportRemoval::removeThisAdware(const SpywareList& list)
{
    if (!mayStart())
        return;
    SpywareList records;
    bool remoteDesktop = false;
    for (const auto& record : list) {
        if (isRemoteDesktop(*record))
            remoteDesktop = remoteDesktop || record->isAvail;
        else if (record->isAvail)
            records.push_back(record);
    }
    if (remoteDesktop)
        m_screen.remoteDesktopInstructions();
    if (!records.empty())
        start(records, Then::Confirmation);
}

void ReportRemoval::start(const SpywareList& records, Then then)
{
    m_planning.stop();
    m_isRemoving = true;
    m_done = 0;
    m_banner.reset();
    m_stop.clear();
    m_removingFrom = m_screen.openReport();
    m_screen.changed();
    const RecordSelection selection{eachOnce(records), m_removingFrom->volume, m_screen.user};
    m_total = selection.records.size();
    const auto shared = std::make_shared<std::vector<RemovalResult>>(m_total);
    const auto end = [this, selection, records, then, shared, alive = std::weak_ptr(m_alive)] {
        const auto& results = *shared;
        // A record of a location that is listed twice shares the outcome of the first.
        std::unordered_map<std::string_view, std::size_t> places;
        for (std::size_t i = 0; i < results.size(); ++i)
            places.emplace(selection.records[i]->url.identity(), i);
        std::vector<RemovalResult> ofAll;
        for (const auto& record : records)
            ofAll.push_back(results[places.at(record->url.identity())]);
        m_services.mainQueue.post([this, alive, records, ofAll = std::move(ofAll), then] {
            if (!alive.expired())
                removed(records, ofAll, then);
        });
    };
    m_thread.start(
        [this, selection, shared, end] {
            RecordRemoval(m_services.disk, m_remover)
                .remove(selection, m_stop, [&](std::size_t item, const RemovalResult& result) {
                    (*shared)[item] = result;
                    ++m_done;
                });
            end();
        },
        [shared, end](const char* why) {
            for (RemovalResult& result : *shared)
                result.giveUp(why);
            end();
        });
}

void ReportRemoval::removed(const SpywareList& records, const std::vector<RemovalResult>& results,
                            Then then)
{
    m_isRemoving = false;
    for (std::size_t i = 0; i < records.size(); ++i)
        setOutcome(*records[i], results[i]);
    m_deletedSpyware.clear();
    m_unDeletedSpyware.clear();
    for (const auto& record : eachOnce(records))
        (record->isDeleted ? m_deletedSpyware : m_unDeletedSpyware).push_back(record);
    m_deletedCount = m_deletedSpyware.size();
    const auto from = std::exchange(m_removingFrom, nullptr);
    if (from == m_screen.openReport())
        tell(then);
    m_screen.ended();
}

void ReportRemoval::tell(Then then)
{
    m_listUnDeleted = m_unDeletedSpyware;
    m_isFileListPresented = !m_listUnDeleted.empty();
    if (then != Then::Confirmation) {
        m_banner =
            removalSummary(m_unDeletedSpyware.size(),
                           then == Then::BannerIndented ? FailedText::Indented : FailedText::Plain);
    } else if (m_listUnDeleted.empty()) {
        m_services.alerts.runModal({"Alert", "Selected malware successfully removed.", {"OK"}});
    }
}

void ReportRemoval::reset()
{
    m_banner.reset();
    m_listUnDeleted.clear();
    m_isFileListPresented = false;
}

void ReportRemoval::closeFileList()
{
    m_isFileListPresented = false;
    m_screen.changed();
}

} // namespace pryvane
