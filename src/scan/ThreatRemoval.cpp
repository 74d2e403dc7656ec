#include "scan/ThreatRemoval.h"

#include "core/tasks/MainQueue.h"
#include "findings/ScanState.h"
#include "platform/Alerts.h"
#include "platform/Workspace.h"
#include "scan/ScanDisplay.h"

#include <algorithm>
#include <chrono>
#include <unordered_set>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kBetweenUpdates{33};

using Records = std::unordered_set<const Spyware*>;

Records setOf(const SpywareList& list)
{
    Records records;
    records.reserve(list.size());
    for (const auto& record : list)
        records.insert(record.get());
    return records;
}

void append(SpywareList& list, const SpywareList& more)
{
    list.insert(list.end(), more.begin(), more.end());
}

} // namespace

ThreatRemoval::ThreatRemoval(const PlatformServices& services, Remover& remover, Screen screen)
    : m_services(services), m_remover(remover), m_screen(std::move(screen)),
      m_panel(services.workspace)
{
    m_panel.setDelegate(this);
    QObject::connect(&m_panel, &FourceQuitBrowserView::changed, &m_panel,
                     [this] { m_screen.changed(); });
}

ThreatRemoval::~ThreatRemoval()
{
    m_stop.request();
    m_stopPlan.request();
    m_planThread.join();
    m_thread.join();
}

bool ThreatRemoval::mayStart() const
{
    return !m_isRemoving && !m_isAsking && !m_panel.isPresented() && !m_screen.scanRuns();
}

void ThreatRemoval::deleteSelectedThreat()
{
    if (!mayStart())
        return;
    m_screen.lists.unDeletedSpyware.clear();
    m_screen.lists.deletedSpyware.clear();
    setAsideUnselected();
    if (forceQuitBrowsers())
        removeAndReport(Then::Report);
}

void ThreatRemoval::setAsideUnselected()
{
    ThreatLists& lists = m_screen.lists;
    lists.notActionSpyware.clear();
    const Records selected = setOf(lists.arrThreats);
    for (const auto& record : m_screen.state.arrSpywareList.records()) {
        if (selected.contains(record.get()))
            continue;
        record->isNoAction = true;
        lists.notActionSpyware.push_back(record);
    }
}

bool ThreatRemoval::forceQuitBrowsers()
{
    m_confirmed = m_screen.state.arrSpywareList.shared();
    m_isAsking = true;
    const int answer = m_services.alerts.runModal(
        {"Alert", "Are you sure you want to delete selected threats?", {"Yes", "No"}});
    m_isAsking = false;
    // While the question stood, a timer may have started a scan; the answer was not about its list.
    const bool sameList = m_confirmed == m_screen.state.arrSpywareList.shared();
    if (answer != kAlertFirstButton || !sameList || m_screen.scanRuns())
        return false;
    auto entries = blockingBrowsers();
    if (entries.empty())
        return true;
    displayPanel(std::move(entries));
    return false;
}

std::vector<BrowserEntry> ThreatRemoval::blockingBrowsers()
{
    return browsersToQuit(m_screen.lists.arrSpyWarePath, m_services.workspace.runningApplications(),
                          m_screen.user);
}

bool ThreatRemoval::tryAgain()
{
    auto entries = blockingBrowsers();
    if (entries.empty())
        return true;
    reloadPanel(std::move(entries));
    return false;
}

bool ThreatRemoval::retryActionForWebBrowser()
{
    if (!tryAgain())
        return false;
    disMissPanel();
    reloadThreatDetails();
    return true;
}

void ThreatRemoval::displayPanel(std::vector<BrowserEntry> entries)
{
    m_panel.present(std::move(entries));
}

void ThreatRemoval::reloadPanel(std::vector<BrowserEntry> entries)
{
    m_panel.reload(std::move(entries));
}

void ThreatRemoval::disMissPanel()
{
    m_panel.dismiss();
}

void ThreatRemoval::reloadThreatDetails()
{
    if (m_isRemoving)
        return;
    m_screen.lists.unDeletedSpyware.clear();
    m_screen.lists.deletedSpyware.clear();
    // A scan that ran behind the panel has put a list there that nobody was asked about.
    const bool sameList = m_confirmed == m_screen.state.arrSpywareList.shared();
    if (sameList && !m_screen.scanRuns())
        removeAndReport(Then::ReportAfterRetry);
}

void ThreatRemoval::removeAndReport(Then then)
{
    m_screen.display.reportBox = true;
    m_screen.display.scanBox = false;
    start(m_screen.lists.arrThreats, then);
}

void ThreatRemoval::removeThisSpyware(const SpywareList& list)
{
    if (mayStart())
        start(list, Then::Nothing);
}

void ThreatRemoval::removeSpyware()
{
    if (mayStart())
        start(m_screen.lists.arrThreats, Then::RebuildList);
}

RecordSelection ThreatRemoval::selection(SpywareList records) const
{
    return {std::move(records), m_screen.lists.volume, m_screen.user, m_foldedName};
}

void ThreatRemoval::start(SpywareList records, Then then)
{
    m_isRemoving = true;
    m_summary.reset();
    m_stop.clear();
    m_stopPlan.request();
    m_planAgain = false;
    m_told = 0;
    m_total = records.size();
    m_screen.lists.deletedCount = 0;
    m_screen.changed();
    const auto selected = std::make_shared<const RecordSelection>(selection(std::move(records)));
    const auto results = std::make_shared<std::vector<RemovalResult>>(m_total);
    const auto end = [this, selected, results, then] {
        postToMain([this, selected, results, then] { removed(selected->records, *results, then); });
    };
    m_thread.start(
        [this, selected, results, end] {
            carryOut(*selected, *results);
            end();
        },
        [results, end](const char* why) {
            for (RemovalResult& result : *results)
                result.giveUp(why);
            end();
        });
}

/// On the removal's thread.
void ThreatRemoval::carryOut(const RecordSelection& selection, std::vector<RemovalResult>& results)
{
    const std::lock_guard lock(m_oneAtATime);
    auto nextUpdate = std::chrono::steady_clock::now();
    RecordRemoval(m_services.disk, m_remover)
        .remove(selection, m_stop, [&](std::size_t item, const RemovalResult& result) {
            results[item] = result;
            ++m_told;
            const auto now = std::chrono::steady_clock::now();
            if (now < nextUpdate)
                return;
            nextUpdate = now + kBetweenUpdates;
            postToMain([this] { m_screen.changed(); });
        });
}

void ThreatRemoval::removed(const SpywareList& records, const std::vector<RemovalResult>& results,
                            Then then)
{
    m_thread.join();
    m_isRemoving = false;
    classify(records, results);
    ThreatLists& lists = m_screen.lists;
    if (then == Then::RebuildList) {
        lists.threatFound = !m_screen.state.arrSpywareList.records().empty();
        m_screen.refreshStatus();
        lists.arrThreats = m_screen.state.arrSpywareList.records();
    } else if (then != Then::Nothing) {
        report(then);
    }
    m_screen.changed();
    m_screen.removalEnded();
}

void ThreatRemoval::classify(const SpywareList& records, const std::vector<RemovalResult>& results)
{
    ThreatLists& lists = m_screen.lists;
    for (std::size_t i = 0; i < records.size(); ++i) {
        setOutcome(*records[i], results[i]);
        const bool deleted = records[i]->isDeleted;
        (deleted ? lists.deletedSpyware : lists.unDeletedSpyware).push_back(records[i]);
        lists.deletedCount += deleted ? 1 : 0;
    }
}

/// The orders differ on purpose.
void ThreatRemoval::report(Then then)
{
    ThreatLists& lists = m_screen.lists;
    const bool afterRetry = then == Then::ReportAfterRetry;
    const auto list = std::make_shared<SpywareList>(lists.unDeletedSpyware);
    append(*list, afterRetry ? lists.notActionSpyware : lists.deletedSpyware);
    append(*list, afterRetry ? lists.deletedSpyware : lists.notActionSpyware);
    if (lists.tempReport)
        lists.tempReport->spyWareList = list;
    m_summary = removalSummary(lists.unDeletedSpyware.size());
}

void ThreatRemoval::selectThreats(std::span<const std::size_t> rows, bool on)
{
    if (m_isRemoving || m_panel.isPresented())
        return;
    SpywareList& selected = m_screen.lists.arrThreats;
    const SpywareList& records = m_screen.state.arrSpywareList.records();
    Records taken = setOf(selected);
    Records dropped;
    for (const std::size_t row : rows) {
        if (row >= records.size())
            continue;
        const auto& record = records[row];
        record->isChecked = on;
        if (!on)
            dropped.insert(record.get());
        else if (taken.insert(record.get()).second)
            selected.push_back(record);
    }
    std::erase_if(selected, [&](const auto& record) { return dropped.contains(record.get()); });
    m_screen.changed();
}

bool ThreatRemoval::removeButtonEnabled() const
{
    const std::size_t notCounted = m_screen.lists.ARDDetect ? 1 : 0;
    return m_screen.lists.arrThreats.size() > notCounted && !m_isRemoving && !m_screen.scanRuns();
}

void ThreatRemoval::planSelectedThreats(std::function<std::string(std::string_view)> foldedName)
{
    if (m_isRemoving)
        return;
    m_foldedName = std::move(foldedName);
    if (m_isPlanning) {
        m_planAgain = true;
        m_stopPlan.request();
        return;
    }
    startPlan();
}

void ThreatRemoval::startPlan()
{
    m_isPlanning = true;
    m_planAgain = false;
    m_plan = {};
    m_stopPlan.clear();
    m_screen.changed();
    m_planThread.start(
        [this, selected = selection(m_screen.lists.arrThreats)] {
            RemovalPlan plan;
            {
                const std::lock_guard lock(m_oneAtATime);
                plan = RecordRemoval(m_services.disk, m_remover).plan(selected, m_stopPlan);
            }
            postToMain([this, plan = std::move(plan)]() mutable { planned(std::move(plan)); });
        },
        [this](const char*) { postToMain([this] { planned({}); }); });
}

void ThreatRemoval::planned(RemovalPlan plan)
{
    m_planThread.join();
    m_isPlanning = false;
    if (m_planAgain) {
        startPlan();
        return;
    }
    m_plan = std::move(plan);
    m_screen.changed();
}

void ThreatRemoval::postToMain(std::function<void()> work)
{
    m_services.mainQueue.post([alive = std::weak_ptr(m_alive), work = std::move(work)] {
        if (!alive.expired())
            work();
    });
}

} // namespace pryvane
