#include "app/AppDelegate.h"

#include "app/Navigation.h"
#include "platform/DesktopWindows.h"
#include "platform/Messages.h"
#include "platform/Network.h"
#include "platform/UserDefaults.h"
#include "signatures/MakersApplications.h"

namespace pryvane {

namespace {

/// The Window menu's own entries; `pryvaneEanble` may follow them.
constexpr std::size_t kOwnEntries = 5;

std::vector<WindowMenuEntry> fullWindowMenu()
{
    using enum WindowCommand;
    return {
        {"Minimize", Minimise},   {"Zoom", Zoom}, {""}, {"Bring All to Front", BringToFront}, {""},
        {"Pryvane", BringToFront}};
}

} // namespace

AppDelegate::AppDelegate(const PlatformServices& services, const DesktopServices& desktop,
                         ApplicationFacts facts, QObject* parent)
    : QObject(parent), m_services(services), m_desktop(desktop), m_facts(std::move(facts)),
      m_windowMenu(fullWindowMenu()), m_later(services.mainQueue)
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationDidFinishLaunching()
{
    if (isUserDirAccessible())
        makeUIForApp();
    else
        makeUIForSelection();
    m_state.fullSystemScanPaths.clear();
    m_state.arrDefaultTorvellApp = makersApplicationKeys();
    m_state.arrSpywareList.clear();
    logFailure(m_services.log, m_services.defaults.set(preferences::kLayoutDiagnostics, true));
    if (!m_services.defaults.get(preferences::kSandboxingDone))
        checkDataFromURL();
    setPrintAction({});
    logFailure(m_services.log, m_services.defaults.set(preferences::kScan, false));
    m_removeMenuItem = m_services.notifications.observe(
        NotificationName::RemoveMenuItem, [this](const Notification&) { removeSpyareMenuitem(); });
}

void AppDelegate::applicationWillTerminate()
{
    logFailure(m_services.log, m_services.defaults.set(preferences::kScan, false));
}

void AppDelegate::terminateSelf()
{
    m_desktop.windows.terminate();
}

/// A failed request has no body and counts as any other that is not exactly "true".
void AppDelegate::checkDataFromURL()
{
    const SettingsFile::Reply store = [this](Result<std::string> body) {
        const bool isTrue = body && *body == "true";
        logFailure(m_services.log, m_services.defaults.set(preferences::kSandboxingDone, isTrue));
    };
    m_desktop.settingsFile.fetch(m_later.bound(store));
}

std::optional<ShellWindow> AppDelegate::firstWindow() const
{
    if (m_hasAccessWindow)
        return ShellWindow::Access;
    if (m_hasMainWindow)
        return ShellWindow::Main;
    return std::nullopt;
}

void AppDelegate::openMainWindow()
{
    if (m_hasAccessWindow) {
        m_hasAccessWindow = false;
        m_desktop.windows.close(ShellWindow::Access);
    }
    m_hasMainWindow = true;
    m_desktop.windows.open(ShellWindow::Main);
    m_desktop.windows.activate();
}

void AppDelegate::makeUIForSelection()
{
    m_hasAccessWindow = true;
    m_desktop.windows.open(ShellWindow::Access);
    m_desktop.windows.activate();
}

bool AppDelegate::applicationShouldHandleReopen()
{
    bringFirstWindowForward();
    appendFrontEntry();
    return true;
}

void AppDelegate::bringFirstWindowForward()
{
    if (const auto window = firstWindow())
        m_desktop.windows.bringForward(*window);
    m_desktop.windows.activate();
}

void AppDelegate::minimizeTo()
{
    if (const auto window = firstWindow())
        m_desktop.windows.setMinimised(*window, !m_desktop.windows.isMinimised(*window));
}

void AppDelegate::zoom()
{
    if (const auto window = firstWindow())
        m_desktop.windows.toggleZoomed(*window);
}

void AppDelegate::perform(WindowCommand command)
{
    switch (command) {
    case WindowCommand::Minimise:
        return minimizeTo();
    case WindowCommand::Zoom:
        return zoom();
    case WindowCommand::BringToFront:
        return bringAllAppToFront();
    case WindowCommand::None:
        break;
    }
}

void AppDelegate::pryvaneMakeFront()
{
    m_desktop.windows.bringForward(ShellWindow::Main);
}

void AppDelegate::bringAllAppToFront()
{
    pryvaneMakeFront();
    appendFrontEntry();
    if (m_windowMenu.size() > kOwnEntries)
        m_windowMenu.back().checked = true;
    Q_EMIT stateChanged();
}

void AppDelegate::getHelp()
{
    m_desktop.windows.open(ShellWindow::Help);
}

void AppDelegate::closeButtonClicked(int tag)
{
    if (tag != 0) {
        m_desktop.windows.orderOut(ShellWindow::Help);
        return;
    }
    const auto window = firstWindow();
    if (!window)
        return;
    if (!m_desktop.statusItem.available()) {
        m_desktop.windows.setMinimised(*window, true);
        return;
    }
    m_desktop.windows.orderOut(*window);
    m_services.notifications.post(NotificationName::RemoveMenuItem);
}

void AppDelegate::keepReachable()
{
    const auto window = firstWindow();
    if (window && !m_desktop.statusItem.available() && !m_desktop.windows.isVisible(*window))
        m_desktop.windows.bringForward(*window);
}

void AppDelegate::removeSpyareMenuitem()
{
    if (m_windowMenu.size() != kOwnEntries + 1)
        return;
    m_windowMenu.pop_back();
    Q_EMIT stateChanged();
}

void AppDelegate::appendFrontEntry()
{
    if (m_windowMenu.size() != kOwnEntries)
        return;
    m_windowMenu.push_back(fullWindowMenu().back());
    Q_EMIT stateChanged();
}

void AppDelegate::setPrintAction(std::function<void()> action)
{
    m_printAction = std::move(action);
    Q_EMIT stateChanged();
}

void AppDelegate::printReport()
{
    const auto action = m_printAction; // which may set another one
    if (action)
        action();
}

void AppDelegate::requestScan(const std::function<void()>& prepare)
{
    checkForHDAccess();
    m_state.isRoutine = false;
    if (prepare)
        prepare();
    m_services.notifications.post(NotificationName::MainTableChangedManually,
                                  std::int64_t{rowIndex(Row::Scan)});
    m_services.notifications.post(NotificationName::MainTableSelectionChange,
                                  SelectionChange{rowIndex(Row::Scan), true, true});
}

int AppDelegate::createAlertForInformativeText(std::string informativeText, std::string messageText)
{
    return m_services.alerts.runModal(
        {std::move(messageText), std::move(informativeText), {"Yes", "No"}});
}

void AppDelegate::createAlertForInformativeText(std::string informativeText,
                                                std::string messageText, RunModal)
{
    m_services.alerts.runModal({std::move(messageText), std::move(informativeText), {"OK"}});
}

} // namespace pryvane
