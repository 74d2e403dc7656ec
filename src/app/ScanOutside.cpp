#include "app/ScanOutside.h"

#include "app/AppDelegate.h"
#include "findings/Verdict.h"
#include "platform/DesktopWindows.h"
#include "platform/Messages.h"
#include "scan/ScanViewController.h"

#include <utility>

namespace pryvane {

ScanOutside::ScanOutside(const PlatformServices& services, const DesktopServices& desktop,
                         AppDelegate& delegate, ScanViewController& scan, Shows shows)
    : m_services(services), m_desktop(desktop), m_delegate(delegate), m_scan(scan),
      m_shows(std::move(shows)), m_later(services.mainQueue),
      m_changed(scan.stateChanged.listen([this] { showProgress(); })),
      m_ended(scan.scanEnded.listen([this] { tellEnd(); }))
{
}

ScanOutside::~ScanOutside()
{
    if (m_showsProgress)
        m_desktop.taskProgress.hide();
}

/// While entries are counted nobody knows the share.
void ScanOutside::showProgress()
{
    const ScanDisplay& display = m_scan.display();
    const bool isKnown =
        m_scan.isScanning() && !display.indeterminate && !display.activityIndicator;
    if (isKnown)
        m_desktop.taskProgress.show(display.progressBar / 100.0);
    else if (m_showsProgress)
        m_desktop.taskProgress.hide();
    m_showsProgress = isKnown;
}

/// A scan that comes by itself every half hour is told only where it found something.
void ScanOutside::tellEnd()
{
    const std::size_t findings = m_scan.results().records().size();
    const bool isGivenUp = !m_scan.givenUp().empty();
    const Verdict verdict = verdictOf(findings, m_scan.coverage());
    const bool isRoutine = std::exchange(m_delegate.state().isRoutine, false);
    if (m_desktop.windows.isActive(ShellWindow::Main) ||
        (isRoutine && !isGivenUp && verdict == Verdict::Clean)) {
        m_services.userNotifier.withdraw();
        return;
    }
    const auto report = m_scan.reportForShowing();
    const std::function<void()> wanted = [this, report, isKept = report == m_scan.report()] {
        show(report, isKept);
    };
    m_services.userNotifier.conclude(
        isGivenUp ? "The Scan Was Given Up" : wordsFor(verdict).headline,
        isGivenUp ? m_scan.givenUp() : verdictLine(findings, m_scan.coverage(), m_scan.subject()),
        m_later.bound(wanted));
}

void ScanOutside::show(const std::shared_ptr<SpywareScanReport>& report, bool isKept)
{
    m_delegate.applicationShouldHandleReopen();
    const bool isLast = !m_scan.isScanning() && m_scan.report() == report;
    if (isKept && !isLast)
        m_shows.report(report);
    else
        m_shows.findings();
}

} // namespace pryvane
