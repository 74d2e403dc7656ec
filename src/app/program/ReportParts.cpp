#include "app/program/ReportParts.h"

#include "app/AppDelegate.h"
#include "browser/views/ReportBrowserView.h"
#include "hosts/posix/DataFolder.h"

namespace pryvane {

namespace {

PDFFacts pdfFacts()
{
    return {.shortVersion = PRYVANE_VERSION,
            .buildVersion = PRYVANE_BUILD,
            .cachesFolder = defaultCachesFolder()};
}

} // namespace

ReportParts::ReportParts(const PlatformServices& services, AppDelegate& delegate, Needs needs)
    : m_services(services), m_delegate(delegate), m_needs(std::move(needs)),
      m_printed(pdfFacts(), services.disk, m_machine),
      m_shown(pdfFacts(), services.disk, m_machine), m_printing(m_printed, m_printer, services.log),
      m_controller(services, {*this, m_needs.fileViewer, m_printing, m_needs.remover, m_needs.user})
{
}

MadeScreen ReportParts::makeScreen()
{
    auto* view = new ReportBrowserView(
        m_controller, {m_services.mainQueue, m_shown, m_needs.user, m_needs.foldedName});
    QObject::connect(view, &ReportBrowserView::remoteDesktopHelpWanted, view,
                     m_needs.openRemoteDesktopInstructions);
    return {view, [this] { m_controller.viewWillAppear(); }, [view] { view->focusFilter(); }};
}

void ReportParts::checkForHDAccess()
{
    m_delegate.checkForHDAccess();
}

void ReportParts::setPrintAction(std::function<void()> action)
{
    m_delegate.setPrintAction(std::move(action));
}

} // namespace pryvane
