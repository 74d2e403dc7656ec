#include "removal/session/RemovalConsent.h"

#include "platform/Machine.h"
#include "platform/Messages.h"

namespace pryvane {

RemovalConsent::RemovalConsent(Alerts& alerts, Workspace& workspace, Screen screen)
    : m_alerts(alerts), m_workspace(workspace), m_screen(std::move(screen)), m_panel(workspace)
{
    m_panel.setDelegate(this);
    m_panelChanged = m_panel.changed.listen([this] { m_screen.changed(); });
}

bool RemovalConsent::forceQuitBrowsers()
{
    m_subject = m_screen.subject();
    m_isAsking = true;
    const int answer = m_alerts.runModal(
        {"Alert", "Are you sure you want to delete selected threats?", {"Yes", "No"}});
    m_isAsking = false;
    // While the question stood, something else may have come in the place of what it was about.
    if (answer != kAlertFirstButton || !holds())
        return false;
    auto entries = blockingBrowsers();
    if (entries.empty())
        return true;
    m_panel.present(std::move(entries));
    return false;
}

bool RemovalConsent::holds() const
{
    return m_subject && m_subject == m_screen.subject();
}

std::vector<BrowserEntry> RemovalConsent::blockingBrowsers()
{
    const auto running = m_workspace.runningApplications();
    return running.empty() ? std::vector<BrowserEntry>()
                           : browsersToQuit(m_screen.paths(), running, m_screen.user);
}

bool RemovalConsent::tryAgain()
{
    auto entries = blockingBrowsers();
    if (entries.empty())
        return true;
    m_panel.reload(std::move(entries));
    return false;
}

bool RemovalConsent::retryActionForWebBrowser()
{
    // Behind the panel, too, something may have come of which nobody was asked.
    const bool held = holds();
    if (held && !tryAgain())
        return false;
    m_panel.dismiss();
    if (held)
        m_screen.carryOn();
    return held;
}

} // namespace pryvane
