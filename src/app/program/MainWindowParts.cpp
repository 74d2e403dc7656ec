#include "app/program/MainWindowParts.h"

#include "app/views/MainWindow.h"
#include "platform/Log.h"
#include "platform/WebBrowser.h"
#include "signatures/Catalogue.h"

namespace pryvane {

Session::MainWindowParts::MainWindowParts(Needs what)
    : needs(std::move(what)),
      store(needs.services.defaults, needs.services.disk, needs.services.clock, needs.services.log),
      table(needs.services.notifications),
      dashboard(needs.services, needs.desktop, needs.delegate, needs.facts),
      scheduler(needs.services, needs.desktop, needs.delegate),
      scan(needs.services, needs.delegate.state(), needs.delegate, store, needs.remover,
           ScanOptions{needs.facts.user, {}}),
      screens({.dashboard = dashboard,
               .scheduler = scheduler,
               .scan = scan,
               .user = needs.facts.user,
               .foldedName = needs.foldedName,
               .reveal = needs.reveal,
               .openRemoteDesktopInstructions = [this] { openRemoteDesktopInstructions(); },
               .viewReport = [this] { viewReport(); },
               .makeTools = [this] { return makeTools(); },
               .makeReports = [this] { return makeReports(); }}),
      details(needs.services, needs.delegate, screens)
{
}

void Session::MainWindowParts::show(MainWindow& window)
{
    QObject::connect(&details, &DetailsViewController::stateChanged, &window,
                     [this] { screens.show(details.currentRow()); });
    QObject::connect(&window, &MainWindow::filterWanted, &window,
                     [this] { screens.focusFilter(); });
    details.viewDidLoad();
    scheduler.viewDidLoad();
}

bool Session::MainWindowParts::isBusy() const
{
    return scan.removal().isRemoving() || (tools && tools->isBusy()) ||
           (reports && reports->isBusy());
}

void Session::MainWindowParts::openRemoteDesktopInstructions()
{
    logFailure(needs.services.log,
               needs.desktop.webBrowser.open(std::string(catalogue::kRemoteDesktopArticle)));
}

void Session::MainWindowParts::viewReport()
{
    if (!scan.report())
        return;
    table.selectRow(rowIndex(Row::Reports));
    needs.services.notifications.post(NotificationName::RefreshReport, std::any(scan.report()));
}

MadeScreen Session::MainWindowParts::makeTools()
{
    tools = std::make_unique<ToolsParts>(needs.services, needs.disk, needs.remover,
                                         needs.facts.user, needs.reveal);
    return tools->makeScreen();
}

MadeScreen Session::MainWindowParts::makeReports()
{
    reports = std::make_unique<ReportParts>(
        needs.services, needs.delegate,
        ReportParts::Needs{needs.fileViewer, needs.remover, needs.facts.user, needs.foldedName,
                           [this] { openRemoteDesktopInstructions(); }});
    return reports->makeScreen();
}

} // namespace pryvane
