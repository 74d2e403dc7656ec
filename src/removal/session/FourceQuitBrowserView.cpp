#include "removal/session/FourceQuitBrowserView.h"

#include "platform/Machine.h"

namespace pryvane {

void FourceQuitBrowserView::retryCleaningAction()
{
    if (!m_isPresented || !m_delegate)
        return;
    m_availbleApp = m_workspace.runningApplications();
    m_delegate->retryActionForWebBrowser();
}

void FourceQuitBrowserView::present(std::vector<BrowserEntry> entries)
{
    m_isPresented = true;
    reload(std::move(entries));
}

void FourceQuitBrowserView::reload(std::vector<BrowserEntry> entries)
{
    m_entries = std::move(entries);
    changed();
}

void FourceQuitBrowserView::dismiss()
{
    if (!std::exchange(m_isPresented, false))
        return;
    m_entries.clear();
    changed();
}

} // namespace pryvane
