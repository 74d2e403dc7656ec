#include "app/program/Parts.h"

#include "app/AppDelegate.h"
#include "app/views/MainWindow.h"
#include "browser/views/RecordKeeping.h"
#include "browser/views/ReportBrowserView.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "platform/Network.h"
#include "platform/UserDefaults.h"
#include "privacy/views/ToolsView.h"
#include "signatures/Catalogue.h"

#include <QStackedWidget>

namespace pryvane {

namespace {

PDFFacts pdfFacts(const std::string& cachesFolder)
{
    return {.shortVersion = PRYVANE_VERSION,
            .buildVersion = PRYVANE_BUILD,
            .cachesFolder = cachesFolder};
}

ScanOptions scanOptions(const ApplicationFacts& facts, const PlatformServices& services)
{
    ScanOptions options{facts.user.empty() ? UserChoice::everyone() : UserChoice(facts.user), {}};
    const std::string whole = services.defaults.get(preferences::kWholeDisk);
    if (facts.isGranted)
        options.grantedRoot = options.homeRoot();
    else if (facts.user.empty() && !whole.empty() && whole == services.disk.identity())
        options.grantedRoot = FileURL::fileURLWithPath("/");
    return options;
}

} // namespace

Session::MainWindowParts::MainWindowParts(Needs what)
    : needs(std::move(what)),
      store(needs.services.defaults, needs.services.disk, needs.services.clock, needs.services.log),
      table(needs.services.notifications),
      dashboard(needs.services, needs.desktop, needs.delegate, needs.facts),
      scheduler(needs.services, needs.desktop, needs.delegate, needs.scheduledDisk),
      scan(needs.services, needs.delegate.state(), needs.delegate, store, needs.remover,
           scanOptions(needs.facts, needs.services)),
      outside(
          needs.services, needs.desktop, needs.delegate, scan,
          {.findings = [this] { table.selectRow(rowIndex(Row::Scan)); },
           .report =
               [this](const std::shared_ptr<SpywareScanReport>& report) { viewReport(report); }}),
      pdf(pdfFacts(needs.cachesFolder), needs.services.disk, needs.machine),
      documents(needs.services.mainQueue, pdf),
      screens({.dashboard = dashboard,
               .scheduler = scheduler,
               .scan = scan,
               .user = needs.facts.user,
               .foldedName = needs.foldedName,
               .reveal = needs.reveal,
               .openRemoteDesktopInstructions = [this] { openRemoteDesktopInstructions(); },
               .viewReport = [this] { viewReport(); },
               .keepRecord =
                   [this](const SpywareScanReport& report,
                          const std::function<void(const QString&)>& told) {
                       keepRecord(screens.stack()->window(), documents, report, told);
                   },
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
    QObject::connect(&dashboard, &DashBoardViewController::lastScansRead, &dashboard,
                     [this] { scan.makeAccessibleUIChanges(); });
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

void Session::MainWindowParts::viewReport(const std::shared_ptr<SpywareScanReport>& report)
{
    table.selectRow(rowIndex(Row::Reports));
    if (report)
        needs.services.notifications.post(NotificationName::RefreshReport, std::any(report));
}

MadeScreen Session::MainWindowParts::makeTools()
{
    tools = std::make_unique<ToolsParts>(needs.services, needs.disk, needs.remover, needs.users,
                                         needs.reveal);
    return tools->makeScreen();
}

MadeScreen Session::MainWindowParts::makeReports()
{
    reports = std::make_unique<ReportParts>(
        needs.services, needs.delegate,
        ReportParts::Needs{needs.fileViewer, needs.machine, pdfFacts(needs.cachesFolder),
                           needs.remover, needs.facts.user, needs.foldedName,
                           [this] { openRemoteDesktopInstructions(); }});
    return reports->makeScreen();
}

ReportParts::ReportParts(const PlatformServices& services, AppDelegate& delegate, Needs needs)
    : m_services(services), m_delegate(delegate), m_needs(std::move(needs)),
      m_printed(m_needs.pdf, services.disk, m_needs.machine),
      m_shown(m_needs.pdf, services.disk, m_needs.machine),
      m_printing(m_printed, m_printer, services.log),
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

ToolsParts::ToolsParts(const PlatformServices& services, const OpenedDisk& disk, Remover& remover,
                       const std::vector<std::string>& users,
                       std::function<void(const FileURL&)> reveal)
    : m_reveal(std::move(reveal)), m_sizes(disk.sizeMeter()), m_inventorySizes(disk.sizeMeter()),
      m_tools({{disk.files(), *m_sizes},
               remover,
               services.mainQueue,
               services.alerts,
               services.workspace},
              UserChoice(users)),
      m_inventory({{disk.files(), *m_inventorySizes}, services.mainQueue}, UserChoice(users)),
      m_facts(disk.files(), services.mainQueue)
{
}

MadeScreen ToolsParts::makeScreen()
{
    auto* view = new ToolsView(m_tools, m_inventory, m_facts);
    QObject::connect(view, &ToolsView::revealWanted, view, m_reveal);
    return {view, [view] { view->viewWillAppear(); }, [view] { view->focusFilter(); }};
}

} // namespace pryvane
