#include "app/DashBoardViewController.h"

#include "app/AppDelegate.h"
#include "platform/DesktopPrograms.h"
#include "platform/DesktopWindows.h"
#include "platform/Messages.h"
#include "platform/Network.h"
#include "platform/UserDefaults.h"

namespace pryvane {

namespace {

constexpr std::chrono::minutes kRealTimeInterval{30};
constexpr std::chrono::milliseconds kDockIconFollowUp{300};
constexpr std::chrono::seconds kUpdateCheck{2};
constexpr int kStatusImagePoints = 18;

} // namespace

DashBoardViewController::DashBoardViewController(const PlatformServices& services,
                                                 const DesktopServices& desktop,
                                                 AppDelegate& delegate, ApplicationFacts facts,
                                                 QObject* parent)
    : QObject(parent), m_services(services), m_desktop(desktop), m_delegate(delegate),
      m_facts(std::move(facts)), m_later(services.mainQueue)
{
}

DashBoardViewController::~DashBoardViewController() = default;

void DashBoardViewController::viewDidLoad()
{
    observe();
    makeAppChanges();
    m_delegate.state().isDeepScan = m_scanButton.deepChecked;
    m_delegate.setPrintAction({});
    loadLastScans();
}

void DashBoardViewController::makeAppChanges()
{
    m_isRealTimeProtectionON = m_services.defaults.get(preferences::kRealTimeScan);
    m_delegate.state().isRealTimeProtectionON = m_isRealTimeProtectionON;
    m_loginStart = m_services.defaults.get(preferences::kIsRunOnStart);
    m_showDockIcon = m_services.defaults.get(preferences::kIsDockIcon);
    if (m_desktop.loginItem.helperIsRunning())
        m_loginStart = true;
    if (m_loginStart)
        m_desktop.distributedNotifications.post(kTerminateHelper, m_facts.bundleIdentifier);
    createStatusItem();
    UIChange();
    seticonShow(m_showDockIcon);
    setStartAtLoginEnabled(m_loginStart);
    realTimeScanning(m_isRealTimeProtectionON);
}

/// The switch shows the preference, and what it shows is what counts from here on.
void DashBoardViewController::UIChange()
{
    m_isRealTimeProtectionON = m_services.defaults.get(preferences::kRealTimeScan);
    updateStatusMenu(m_isRealTimeProtectionON ? "Real-time Scan Enabled"
                                              : "Real-time Scan Disabled");
    Q_EMIT stateChanged();
}

void DashBoardViewController::createStatusItem()
{
    if (m_hasStatusItem)
        return;
    m_hasStatusItem = true;
    const std::function<void()> changed = [this] {
        applyDockIcon(m_showDockIcon);
        m_delegate.keepReachable();
    };
    m_desktop.statusItem.whenAvailabilityChanges(m_later.bound(changed));
    m_desktop.statusItem.create("spywareStatus", kStatusImagePoints);
}

void DashBoardViewController::updateStatusMenu(const std::string& realTimeTitle)
{
    m_realTimeTitle = realTimeTitle;
    if (!m_hasStatusItem)
        return;
    using Action = void (DashBoardViewController::*)();
    const auto entry = [this](std::string title, std::optional<bool> checked, Action action) {
        const std::function<void()> call = [this, action] { (this->*action)(); };
        return StatusMenuEntry{std::move(title), checked, m_later.bound(call)};
    };
    using Self = DashBoardViewController;
    m_desktop.statusItem.setMenu({
        entry(realTimeTitle, m_isRealTimeProtectionON, &Self::realTimeScanningOnOFMenuBarAction),
        entry("Quick Scan", {}, &Self::performQuickScanMenuBarAction),
        {},
        entry(m_isCheckingForUpdate ? "Checking for Update…" : "Check for Update", {},
              &Self::updateMenuBarAction),
        entry("Open Pryvane", {}, &Self::openAppMenuBarAction),
        entry("Visit Web Site", {}, &Self::openAppWebSiteMenuBarAction),
        {},
        entry("Quit Pryvane", {}, &Self::terminateApp),
    });
}

/// Without a status item the icon stays, whatever was asked for: the window must be within reach.
void DashBoardViewController::applyDockIcon(bool show)
{
    DockIcon& icon = m_desktop.dockIcon;
    if (show || !m_desktop.statusItem.available()) {
        if (icon.policy() != ActivationPolicy::Regular)
            icon.setPolicy(ActivationPolicy::Regular);
        return;
    }
    if (icon.policy() == ActivationPolicy::Accessory)
        return;
    icon.setPolicy(ActivationPolicy::Accessory);
    // So that the window does not go with the icon.
    m_later.postAfter(kDockIconFollowUp, [this] { m_delegate.bringFirstWindowForward(); });
}

void DashBoardViewController::seticonShow(bool show)
{
    applyDockIcon(show);
    m_showDockIcon = show;
    logFailure(m_services.log, m_services.defaults.set(preferences::kIsDockIcon, show));
    Q_EMIT stateChanged();
}

/// Both quirks are meant: one text for either way, and told twice where switching off fails.
void DashBoardViewController::setStartAtLoginEnabled(bool on)
{
    const auto outcome = m_desktop.loginItem.setEnabled(on);
    if (!outcome) {
        m_services.log.line(outcome.error().message);
        for (int times = on ? 1 : 2; times > 0; --times) {
            m_delegate.createAlertForInformativeText("Error in removing from start at login",
                                                     "Error", AppDelegate::RunModal::Yes);
        }
    }
    m_loginStart = on;
    logFailure(m_services.log, m_services.defaults.set(preferences::kIsRunOnStart, on));
    Q_EMIT stateChanged();
}

void DashBoardViewController::realTimeScanning(bool on)
{
    m_realTimeScanningTimer.reset();
    if (on)
        m_realTimeScanningTimer =
            m_desktop.timers.every(kRealTimeInterval, [this] { scanAdwareRealTime(); });
    Q_EMIT stateChanged();
}

void DashBoardViewController::scanAdwareRealTime()
{
    m_delegate.requestScan([this] { m_delegate.state().isRoutine = true; });
}

std::optional<Date> DashBoardViewController::nextRealTimeScan() const
{
    return m_realTimeScanningTimer ? m_realTimeScanningTimer->nextFireDate() : std::nullopt;
}

void DashBoardViewController::btnRealTimeScanClicked(bool state)
{
    logFailure(m_services.log, m_services.defaults.set(preferences::kRealTimeScan, state));
    makeAppChanges();
}

void DashBoardViewController::realTimeScanningOnOFMenuBarAction()
{
    m_isRealTimeProtectionON = !m_isRealTimeProtectionON;
    logFailure(m_services.log,
               m_services.defaults.set(preferences::kRealTimeScan, m_isRealTimeProtectionON));
    // The other way round than the lasting title, which follows at once.
    updateStatusMenu(std::string(m_isRealTimeProtectionON ? "Disabled" : "Enabled") +
                     " Real-time Scan");
    makeAppChanges();
}

void DashBoardViewController::performQuickScanMenuBarAction()
{
    m_delegate.requestScan();
    m_delegate.bringFirstWindowForward();
}

/// A short wait that looks like a check; asking again meanwhile changes nothing.
void DashBoardViewController::updateMenuBarAction()
{
    if (m_isCheckingForUpdate)
        return;
    m_isCheckingForUpdate = true;
    updateStatusMenu(m_realTimeTitle); // where it was asked for
    m_later.postAfter(kUpdateCheck, [this] {
        m_isCheckingForUpdate = false;
        updateStatusMenu(m_realTimeTitle);
        m_delegate.createAlertForInformativeText(
            "You are currently running Pryvane version " + m_facts.bundleVersion,
            "No Update is Available", AppDelegate::RunModal::Yes);
    });
}

void DashBoardViewController::openAppMenuBarAction()
{
    m_delegate.bringFirstWindowForward();
}

void DashBoardViewController::openAppWebSiteMenuBarAction()
{
    logFailure(m_services.log, m_desktop.webBrowser.open(m_facts.homePage));
}

void DashBoardViewController::terminateApp()
{
    m_delegate.terminateSelf();
}

} // namespace pryvane
