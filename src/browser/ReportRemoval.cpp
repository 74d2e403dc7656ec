#include "browser/ReportRemoval.h"

#include "platform/Messages.h"
#include "removal/session/RemovalRefusal.h"
#include "signatures/MakersApplications.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace pryvane {

namespace {

/// The first record of each location: a report may list one twice.
SpywareList eachOnce(const SpywareList& records)
{
    std::unordered_set<std::string_view> seen;
    SpywareList once;
    for (const auto& record : records) {
        if (seen.insert(record->url.identity()).second)
            once.push_back(record);
    }
    return once;
}

} // namespace

ReportRemoval::ReportRemoval(const PlatformServices& services, Remover& remover, Screen screen)
    : m_alerts(services.alerts), m_remover(remover), m_screen(std::move(screen)),
      m_records(services.disk, remover),
      m_consent(services.alerts, services.workspace,
                {m_screen.user, m_screen.openReport, [this] { return pathsOf(checked()); },
                 m_screen.changed, [this] { reloadReportView(); }}),
      m_session(services.mainQueue)
{
}

bool ReportRemoval::mayStart() const
{
    return m_screen.openReport() && !isRemoving() && !m_consent.isOpen();
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

bool ReportRemoval::isRefused() const
{
    return pryvane::isRefused(m_remover, m_alerts);
}

void ReportRemoval::removeSelected()
{
    if (mayStart() && !checked().empty() && !isRefused() && forceQuitBrowsers())
        start(checked(), Then::BannerPlain);
}

void ReportRemoval::planSelected(std::function<void(RemovalPlan)> done)
{
    if (!mayStart())
        return;
    m_session.plan(
        [this, what = RecordSelection{eachOnce(checked()), m_screen.openReport()->volume}](
            const StopFlag& stop) { return m_records.plan(what, stop); },
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
            remoteDesktop = remoteDesktop || record->isAvail();
        else if (record->isAvail())
            records.push_back(record);
    }
    if (remoteDesktop)
        m_screen.remoteDesktopInstructions();
    if (!records.empty())
        start(records, Then::Confirmation);
}

void ReportRemoval::start(const SpywareList& records, Then then)
{
    m_banner.reset();
    const auto from = m_screen.openReport();
    const auto what = std::make_shared<const RecordSelection>(
        RecordSelection{eachOnce(records), from->volume, thereOf(*from->spyWareList)});
    const auto counts = std::make_shared<std::optional<RemovalCounts>>();
    m_session.remove(
        what->records.size(),
        [this, what, counts](const StopFlag& stop, const RemovalResults& told) {
            *counts = m_records.remove(*what, stop, told);
        },
        [this, from, records, what, counts, then](const std::vector<RemovalResult>& results) {
            removed(records, what->records, results);
            if (from == m_screen.openReport()) // without counts, it was given up
                tell(then, *counts ? **counts : countsOf(*what, results));
            m_screen.ended();
        });
    m_screen.changed();
}

void ReportRemoval::removed(const SpywareList& records, const SpywareList& once,
                            const std::vector<RemovalResult>& results)
{
    if (once.size() < records.size()) {
        // A record of a location that is listed twice shares the outcome of the first.
        std::unordered_map<std::string_view, std::size_t> places;
        for (std::size_t i = 0; i < once.size(); ++i)
            places.emplace(once[i]->url.identity(), i);
        for (const auto& record : records)
            setOutcome(*record, results[places.at(record->url.identity())]);
    }
    auto sorted = sortOutcomes(once, results);
    m_deletedSpyware = std::move(sorted.removed);
    m_unDeletedSpyware = std::move(sorted.failed);
    m_deletedCount = m_deletedSpyware.size();
}

void ReportRemoval::tell(Then then, const RemovalCounts& counts)
{
    m_listUnDeleted = m_unDeletedSpyware;
    m_isFileListPresented = !m_listUnDeleted.empty();
    if (then != Then::Confirmation) {
        m_banner = removalSummary(counts, then == Then::BannerIndented ? FailedText::Indented
                                                                       : FailedText::Plain);
    } else if (m_listUnDeleted.empty()) {
        m_alerts.runModal({"Alert", "Selected malware successfully removed.", {"OK"}});
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
