#include "scan/ThreatRemoval.h"

#include "findings/ScanState.h"
#include "removal/session/RemovalRefusal.h"
#include "scan/ScanDisplay.h"
#include "signatures/MakersApplications.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace pryvane {

namespace {

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
    : m_screen(std::move(screen)), m_alerts(services.alerts), m_remover(remover),
      m_records(services.disk, remover),
      m_consent(services.alerts, services.workspace,
                {m_screen.user,
                 [this] {
                     // A timer may start a scan; it makes a list of its own.
                     return m_screen.scanRuns() ? nullptr : m_screen.state.arrSpywareList.shared();
                 },
                 [this] { return m_screen.lists.arrSpyWarePath; }, m_screen.changed,
                 [this] { reloadThreatDetails(); }}),
      m_session(services.mainQueue, m_screen.changed)
{
}

bool ThreatRemoval::mayStart() const
{
    return !isRemoving() && !m_consent.isOpen() && !m_screen.scanRuns();
}

void ThreatRemoval::deleteSelectedThreat()
{
    if (!mayStart() || isRefused())
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
    const SpywareList& all = m_screen.state.arrSpywareList.records();
    // The mark itself tells the selected ones from the others, and is theirs again afterwards.
    const SpywareList selected = removable(lists.arrThreats);
    std::vector<bool> marks;
    marks.reserve(selected.size());
    for (const auto& record : selected)
        marks.push_back(record->isNoAction);
    for (const auto& record : all)
        record->isNoAction = true;
    for (const auto& record : selected)
        record->isNoAction = false;
    std::ranges::copy_if(all, std::back_inserter(lists.notActionSpyware),
                         [](const auto& record) { return record->isNoAction; });
    for (std::size_t i = selected.size(); i-- > 0;)
        selected[i]->isNoAction = marks[i];
}

void ThreatRemoval::reloadThreatDetails()
{
    if (isRemoving())
        return;
    m_screen.lists.unDeletedSpyware.clear();
    m_screen.lists.deletedSpyware.clear();
    if (m_consent.holds())
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

std::shared_ptr<const RecordSelection> ThreatRemoval::selection(const SpywareList& records) const
{
    return std::make_shared<const RecordSelection>(
        RecordSelection{removable(records), m_screen.lists.volume,
                        thereOf(m_screen.state.arrSpywareList.records())});
}

void ThreatRemoval::start(const SpywareList& selected, Then then)
{
    m_summary.reset();
    m_screen.lists.deletedCount = 0;
    const auto what = selection(selected);
    const auto counts = std::make_shared<std::optional<RemovalCounts>>();
    m_session.remove(
        what->records.size(),
        [this, what, counts](const StopFlag& stop, const RemovalResults& told) {
            *counts = m_records.remove(*what, stop, told);
        },
        [this, what, counts, then](const std::vector<RemovalResult>& results) {
            m_counts = *counts ? **counts : countsOf(*what, results); // of one that was given up
            removed(sortOutcomes(what->records, results), then);
        });
    m_screen.changed();
}

void ThreatRemoval::removed(const SortedRecords& records, Then then)
{
    ThreatLists& lists = m_screen.lists;
    lists.deletedCount = records.removed.size();
    append(lists.deletedSpyware, records.removed);
    append(lists.unDeletedSpyware, records.failed);
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
    m_summary = removalSummary(m_counts);
}

void ThreatRemoval::selectThreats(std::span<const std::size_t> rows, bool on)
{
    if (isRemoving() || m_consent.panel().isPresented())
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
    return m_screen.lists.arrThreats.size() > notCounted && !isRemoving() && !m_screen.scanRuns();
}

bool ThreatRemoval::isRefused() const
{
    return pryvane::isRefused(m_remover, m_alerts);
}

void ThreatRemoval::planSelectedThreats()
{
    if (isRemoving())
        return;
    m_plan = {};
    m_session.plan([this, what = selection(m_screen.lists.arrThreats)](
                       const StopFlag& stop) { return m_records.plan(*what, stop); },
                   [this](RemovalPlan plan) {
                       m_plan = std::move(plan);
                       m_screen.changed();
                   });
    m_screen.changed();
}

} // namespace pryvane
