#include "app/views/Screens.h"

#include "app/DashBoardViewController.h"
#include "app/views/DashboardView.h"
#include "scan/ScanViewController.h"
#include "scan/views/ScanView.h"
#include "ui/Pages.h"

namespace pryvane {

namespace {

class WidgetScreen final : public Screen {
public:
    explicit WidgetScreen(MadeScreen made) : m_made(std::move(made)) {}

    void viewWillAppear() override
    {
        if (m_made.viewWillAppear)
            m_made.viewWillAppear();
    }
    void SpywareScanStart() override
    {
        if (m_made.startScan)
            m_made.startScan();
    }

private:
    MadeScreen m_made;
};

} // namespace

Screens::Screens(Needs needs) : m_needs(std::move(needs)), m_stack(new ui::Pages) {}

std::unique_ptr<Screen> Screens::makeScreen(Row row)
{
    MadeScreen& screen = m_made[static_cast<std::size_t>(rowIndex(row))];
    screen = made(row);
    m_stack->addWidget(screen.widgets);
    return std::make_unique<WidgetScreen>(screen);
}

MadeScreen Screens::made(Row row)
{
    switch (row) {
    case Row::Dashboard:
        m_needs.dashboard.viewDidLoad();
        return makeDashboard();
    case Row::Scan:
        return makeScan();
    case Row::Tools:
        return m_needs.makeTools();
    case Row::Reports:
        break;
    }
    return m_needs.makeReports();
}

MadeScreen Screens::makeDashboard()
{
    auto* view = new DashboardView(m_needs.dashboard, m_needs.scheduler);
    QObject::connect(view, &DashboardView::reportWanted, view, m_needs.viewReport);
    return {view};
}

MadeScreen Screens::makeScan()
{
    auto* view = new ScanView(m_needs.scan, {m_needs.user, m_needs.foldedName, m_needs.keepRecord});
    QObject::connect(view, &ScanView::revealWanted, view, m_needs.reveal);
    QObject::connect(view, &ScanView::remoteDesktopHelpWanted, view,
                     m_needs.openRemoteDesktopInstructions);
    QObject::connect(view, &ScanView::reportWanted, view, m_needs.viewReport);
    ScanViewController& scan = m_needs.scan;
    return {view, [&scan] { scan.makeAccessibleUIChanges(); }, [view] { view->focusFilter(); },
            [&scan] { scan.SpywareScanStart(); }};
}

void Screens::show(Row row)
{
    if (QWidget* const widgets = m_made[static_cast<std::size_t>(rowIndex(row))].widgets)
        m_stack->setCurrentWidget(widgets);
}

void Screens::focusFilter()
{
    for (const MadeScreen& screen : m_made)
        if (screen.widgets && screen.widgets == m_stack->currentWidget() && screen.focusFilter)
            screen.focusFilter();
}

} // namespace pryvane
