#pragma once

#include "removal/session/FourceQuitBrowserView.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pryvane {

class Alerts;

/// What stands before a removal of findings: the question to the user, and the panel for as long as
/// a browser runs that has findings among its files. Main thread only.
class RemovalConsent final : public FourceQuitBrowserDelegate {
public:
    /// What it asks of and tells the screen.
    struct Screen {
        std::string user;
        /// What is shown, and so asked about; the answer does not hold for anything else. None
        /// while nothing may be removed.
        std::function<std::shared_ptr<const void>()> subject;
        std::function<std::vector<std::string>()> paths; ///< whose browsers must be quit
        std::function<void()> changed;
        std::function<void()> carryOn; ///< the browsers were quit behind the panel
    };

    RemovalConsent(Alerts& alerts, Workspace& workspace, Screen screen);
    RemovalConsent(const RemovalConsent&) = delete;
    RemovalConsent& operator=(const RemovalConsent&) = delete;

    /// Asks for confirmation, then looks for browsers to be quit: true when removal may go on,
    /// false when the user declined or the panel is shown now.
    [[nodiscard]] bool forceQuitBrowsers();

    /// Looks again at the browsers: true when none must be quit, else the panel is refreshed.
    [[nodiscard]] bool tryAgain();
    bool retryActionForWebBrowser() override;

    /// Whether the user's answer was about what is shown now.
    [[nodiscard]] bool holds() const;
    /// Whether the question or the panel is on the screen.
    [[nodiscard]] bool isOpen() const { return m_isAsking || m_panel.isPresented(); }
    /// Always there; shown while it is presented.
    [[nodiscard]] FourceQuitBrowserView& panel() { return m_panel; }

private:
    [[nodiscard]] std::vector<BrowserEntry> blockingBrowsers();

    Alerts& m_alerts;
    Workspace& m_workspace;
    const Screen m_screen;
    FourceQuitBrowserView m_panel;
    Signal::Listening m_panelChanged;
    bool m_isAsking = false;
    std::shared_ptr<const void> m_subject; ///< what the user was asked about
};

} // namespace pryvane
