#pragma once

#include "core/Signal.h"
#include "removal/session/BrowsersToQuit.h"

#include <string>
#include <vector>

namespace pryvane {

class Workspace;

/// Who carries on once the browsers have been quit.
class FourceQuitBrowserDelegate {
public:
    virtual ~FourceQuitBrowserDelegate() = default;

    /// Looks again which browsers must be quit, and goes on with the removal if none; whether so.
    virtual bool retryActionForWebBrowser() = 0;
};

/// The panel that asks to quit browsers, without its widgets: a sheet is to be shown while
/// isPresented(). Main thread only.
class FourceQuitBrowserView final {
public:
    explicit FourceQuitBrowserView(Workspace& workspace) : m_workspace(workspace) {}

    /// Who is asked on a retry; outlives this.
    void setDelegate(FourceQuitBrowserDelegate* delegate) { m_delegate = delegate; }

    /// The retry button: reads the running applications again and asks the delegate.
    void retryCleaningAction();
    /// The close button: the sheet goes, and the removal is not carried out.
    void closeWindowAction() { dismiss(); }

    void present(std::vector<BrowserEntry> entries);
    void reload(std::vector<BrowserEntry> entries);
    void dismiss();

    [[nodiscard]] bool isPresented() const { return m_isPresented; }
    /// The content of the list of browsers.
    [[nodiscard]] const std::vector<BrowserEntry>& browserListController() const
    {
        return m_entries;
    }
    /// Display names of the applications that ran at the last retry.
    [[nodiscard]] const std::vector<std::string>& availbleApp() const { return m_availbleApp; }

    /// The list or whether the sheet is to be shown has changed.
    Signal changed;

private:
    Workspace& m_workspace;
    FourceQuitBrowserDelegate* m_delegate = nullptr;
    std::vector<BrowserEntry> m_entries;
    std::vector<std::string> m_availbleApp;
    bool m_isPresented = false;
};

} // namespace pryvane
