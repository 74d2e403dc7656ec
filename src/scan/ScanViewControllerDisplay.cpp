// What the scan screen shows: the half of the controller that follows notifications and progress.
#include "core/Escape.h"
#include "platform/Clock.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
#include "scan/DiskAccess.h"
#include "scan/ScanViewController.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kSecondHalfOfStep{50};

} // namespace

/// Handlers run on the posting thread, so each goes over to the main thread.
void ScanViewController::observe()
{
    const auto on = [this](NotificationName name, auto handler) {
        m_observations.push_back(m_services.notifications.observe(name, handler));
    };
    on(NotificationName::UpdateThreat, [this](const Notification&) {
        if (m_services.mainQueue.isMainThread())
            updateThreatBox();
        else
            m_later.post([this] { updateThreatBox(); });
    });
    on(NotificationName::ScanningProgress,
       [this](const Notification&) { m_later.post([this] { ScanningProgressUIChange(); }); });
    on(NotificationName::ScanningProgressURL, [this](const Notification& note) {
        if (const auto* location = std::get_if<std::string_view>(&note.object)) {
            m_later.post([this, text = std::string(*location)] { ScanningProgressURL(text); });
        }
    });
}

void ScanViewController::ScanningProgressChange(const std::string& label, int step)
{
    if (m_request.isDeep() || !isAtWork())
        return;
    showProgress(step);
    m_display.activityIndicator = false;
    m_display.location = forScreen(label);
    m_services.notifications.post(NotificationName::ScanningStatusChange, std::any(this));
    stateChanged();
    m_later.postAfter(kSecondHalfOfStep, [this, step] {
        if (!isAtWork())
            return;
        showProgress(step + 1);
        stateChanged();
    });
}

/// One more percent of a deep walk, whatever the number in the notification.
void ScanViewController::ScanningProgressUIChange()
{
    if (!isAtWork())
        return;
    m_display.entries = m_state.totalCount;
    m_services.notifications.post(NotificationName::ScanningStatusChange, std::any(this));
    showProgress(std::min(static_cast<int>(m_display.progressBar) + 1, 100));
    stateChanged();
}

void ScanViewController::ScanningProgressURL(const std::string& location)
{
    if (!isAtWork())
        return;
    if (m_state.totalScanCount >= 1) {
        m_display.indeterminate = false;
    } else if (!m_fileCountCompleted) {
        m_display.progressText = "0%";
        m_display.indeterminate = true;
    }
    m_display.location = forScreen(location);
    m_services.notifications.post(NotificationName::ScanningStatusChange, std::any(this));
    stateChanged();
}

void ScanViewController::showProgress(int percent)
{
    m_display.progressText = std::to_string(percent) + "%";
    m_display.progressBar = percent;
}

void ScanViewController::ignoreARD(bool ignore)
{
    logFailure(m_services.log, m_services.defaults.set(preferences::kARD, !ignore));
    m_ignoresRemoteDesktop = ignore;
    stateChanged();
}

void ScanViewController::updateThreatBox()
{
    m_display.findings = m_state.arrSpywareList.records().size();
}

void ScanViewController::makeAccessibleUIChanges()
{
    UserDefaults& defaults = m_services.defaults;
    if (!defaults.contains(preferences::kCheckSubDir))
        logFailure(m_services.log, defaults.set(preferences::kCheckSubDir, "y"));
    m_ignoresRemoteDesktop =
        defaults.contains(preferences::kARD) && !defaults.get(preferences::kARD);
    StatusFacts facts;
    facts.homeWritable = m_access.isWritable(m_options.homeRoot());
    facts.scanRunning = isAtWork();
    if (m_ended) {
        const std::size_t findings = m_lists.threatFound ? 1 : 0;
        facts.verdict = verdictOf(findings, m_coverage);
        facts.detail = verdictLine(findings, m_coverage, m_subject);
    }
    facts.lastScan = m_state.lastScan; // the preference tells of other disks, too
    facts.launch = m_launchDate;
    facts.now = m_services.clock.now();
    m_statusPanel = makeStatusPanel(facts);
    if (!m_statusPanel.logLine.empty())
        m_services.log.line(m_statusPanel.logLine);
}

} // namespace pryvane
