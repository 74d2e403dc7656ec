#include "app/program/MainWindowParts.h"

#include "app/views/MainWindow.h"

namespace pryvane {

Session::MainWindowParts::MainWindowParts(const PlatformServices& services,
                                          const DesktopServices& desktop, AppDelegate& delegate,
                                          const ApplicationFacts& facts, Remover& remover,
                                          std::function<void(const FileURL&)> reveal)
    : store(services.defaults, services.disk, services.clock, services.log),
      table(services.notifications), dashboard(services, desktop, delegate, facts),
      scheduler(services, desktop, delegate),
      scan(services, delegate.state(), delegate, store, remover, ScanOptions{facts.user, {}}),
      screens({dashboard, scheduler, scan, facts.user, [this] { scan.scanningStartAction(); },
               std::move(reveal)}),
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
