#include "app/program/MainWindowParts.h"

#include "app/views/MainWindow.h"
#include "platform/Log.h"
#include "platform/WebBrowser.h"
#include "signatures/Catalogue.h"

namespace pryvane {

Session::MainWindowParts::MainWindowParts(const PlatformServices& services,
                                          const DesktopServices& desktop, AppDelegate& delegate,
                                          const ApplicationFacts& facts, Remover& remover,
                                          Deeds deeds)
    : store(services.defaults, services.disk, services.clock, services.log),
      table(services.notifications), dashboard(services, desktop, delegate, facts),
      scheduler(services, desktop, delegate),
      scan(services, delegate.state(), delegate, store, remover, ScanOptions{facts.user, {}}),
      screens({dashboard, scheduler, scan, facts.user, std::move(deeds.foldedName),
               std::move(deeds.reveal),
               [&browser = desktop.webBrowser, &log = services.log] {
                   logFailure(log, browser.open(std::string(catalogue::kRemoteDesktopArticle)));
               }}),
      details(services, delegate, screens)
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
    return scan.removal().isRemoving();
}

} // namespace pryvane
