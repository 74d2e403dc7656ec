#include "app/AppDelegate.h"
#include "app/DashBoardViewController.h"
#include "findings/Homes.h"
#include "platform/Clock.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
#include "reports/DefaultMethods.h"

#include <sstream>

namespace pryvane {

namespace {

/// The duration text with its words one space apart.
std::string oneSpaced(const std::string& duration)
{
    std::istringstream words(duration);
    std::string text, word;
    while (words >> word)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

} // namespace

void DashBoardViewController::observe()
{
    NotificationCenter& center = m_services.notifications;
    m_observations.push_back(
        center.observe(NotificationName::ScanStatusChange, [this](const Notification& note) {
            if (const auto* running = std::get_if<bool>(&note.object))
                scanStatusChange(*running);
        }));
    m_observations.push_back(
        center.observe(NotificationName::ChangeUI, [this](const Notification&) { UIChange(); }));
    m_observations.push_back(
        center.observe(NotificationName::StopScan, [this](const Notification&) { stopScan(); }));
}

void DashBoardViewController::btnDeepScanClicked(bool state)
{
    m_scanButton.deepChecked = state;
    m_delegate.state().isDeepScan = state;
    m_scanButton.title = state ? "Deep Scan >" : "Quick Scan >";
    m_scanButton.colour = TitleColour::Black;
    Q_EMIT stateChanged();
}

void DashBoardViewController::scanningStartAction()
{
    m_delegate.requestScan([this] {
        m_scanButton.deepShown = false;
        m_scanButton.deepEnabled = false;
        Q_EMIT stateChanged();
    });
    m_services.notifications.post(NotificationName::UpdateThreat);
}

void DashBoardViewController::scanStatusChange(bool running)
{
    if (!running) {
        showDeepBoxAndTitle();
        loadLastScans();
        return;
    }
    m_scanButton.deepEnabled = false;
    if (m_delegate.state().isDeepScan)
        m_scanButton.deepShown = false;
    m_scanButton.title.clear();
    m_scanButton.spinner = true;
    Q_EMIT stateChanged();
}

void DashBoardViewController::stopScan()
{
    ScanState& state = m_delegate.state();
    state.isScanStop.request();
    state.totalScanCount = 0;
    state.totalCount = 0;
    m_scanButton.colour = TitleColour::White;
    showDeepBoxAndTitle();
}

void DashBoardViewController::showDeepBoxAndTitle()
{
    m_scanButton.deepShown = true;
    m_scanButton.deepEnabled = true;
    m_scanButton.spinner = false;
    m_scanButton.title = m_delegate.state().isDeepScan ? "Deep Scan >" : "Quick Scan >";
    Q_EMIT stateChanged();
}

std::string DashBoardViewController::lastScanText() const
{
    const Date now = m_services.clock.now();
    return m_lastScans.date ? sinceText(*m_lastScans.date, now)
                            : relativeDateStringForDate(now, now); // "Not scan yet"
}

std::string DashBoardViewController::scanExplanation() const
{
    const bool deep = m_scanButton.deepChecked;
    const std::string duration =
        oneSpaced(deep ? m_lastScans.deepDuration : m_lastScans.quickDuration);
    std::string text = deep ? "Looks at every file you gave access to, and everywhere a quick scan "
                              "does."
                            : "Looks in every place that known spyware settles in.";
    if (!duration.empty())
        text += " Last time: " + duration + ".";
    return text;
}

/// Reading back many findings takes a while, so another thread does it.
void DashBoardViewController::loadLastScans()
{
    m_lastScansAreOld = m_isLoadingLastScans;
    if (m_isLoadingLastScans)
        return;
    m_isLoadingLastScans = true;
    m_loader.start(
        [this, madeHere = m_delegate.state().reportId] {
            FileSystem& disk = m_services.disk;
            const UserChoice users =
                m_facts.user.empty() ? UserChoice::everyone() : UserChoice(m_facts.user);
            const ScansOf whose{disk.identity(), settledHomes(disk, users).users, madeHere};
            DefaultMethods store(m_services.defaults, m_services.disk, m_services.clock,
                                 m_services.log);
            const auto reports = store.listReports();
            if (!reports)
                m_services.log.line(reports.error().message);
            const LastScans read = reports ? lastScansOf(*reports, whose) : LastScans();
            m_later.post([this, last = read] {
                m_isLoadingLastScans = false;
                m_lastScans = last;
                ScanState& state = m_delegate.state();
                if (last.date && (!state.lastScan || *state.lastScan < *last.date))
                    state.lastScan = last.date;
                Q_EMIT stateChanged();
                Q_EMIT lastScansRead();
                if (m_lastScansAreOld)
                    loadLastScans();
            });
        },
        [this](const char*) { m_later.post([this] { m_isLoadingLastScans = false; }); });
}

} // namespace pryvane
