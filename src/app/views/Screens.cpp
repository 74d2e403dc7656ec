#include "app/views/Screens.h"

#include "app/DashBoardViewController.h"
#include "app/views/DashboardView.h"
#include "app/views/PlaceholderView.h"
#include "engine/ScanViewController.h"
#include "engine/views/ScanView.h"

#include <QStackedWidget>

namespace pryvane {

namespace {

class PlainScreen final : public Screen {};

class ScanScreen final : public Screen {
public:
    explicit ScanScreen(ScanViewController& controller) : m_controller(controller) {}

    void viewWillAppear() override { m_controller.makeAccessibleUIChanges(); }
    void SpywareScanStart() override { m_controller.SpywareScanStart(); }

private:
    ScanViewController& m_controller;
};

} // namespace

Screens::Screens(Controllers controllers)
    : m_controllers(std::move(controllers)), m_stack(new QStackedWidget)
{
}

std::unique_ptr<Screen> Screens::makeScreen(Row row)
{
    QWidget* const widgets = makeWidgets(row);
    m_widgets[static_cast<std::size_t>(rowIndex(row))] = widgets;
    m_stack->addWidget(widgets);
    if (row == Row::Scan)
        return std::make_unique<ScanScreen>(m_controllers.scan);
    return std::make_unique<PlainScreen>();
}

QWidget* Screens::makeWidgets(Row row)
{
    switch (row) {
    case Row::Dashboard:
        m_controllers.dashboard.viewDidLoad();
        return new DashboardView(m_controllers.dashboard, m_controllers.scheduler);
    case Row::Scan:
        m_scanView =
            new ScanView(m_controllers.scan, {m_controllers.user, m_controllers.foldedName});
        QObject::connect(m_scanView, &ScanView::revealWanted, m_scanView, m_controllers.reveal);
        QObject::connect(m_scanView, &ScanView::remoteDesktopHelpWanted, m_scanView,
                         m_controllers.openRemoteDesktopInstructions);
        return m_scanView;
    case Row::Tools:
        return new PlaceholderView(
            QStringLiteral("tools"),
            QObject::tr("Privacy tools are not part of this version of the window yet. The "
                        "command \"pryvane-cli privacy\" has them."));
    case Row::Reports:
        break;
    }
    return new PlaceholderView(
        QStringLiteral("reports"),
        QObject::tr("The report browser is not part of this version of the window yet. The "
                    "command \"pryvane-cli report\" lists, exports and compares reports."));
}

void Screens::show(Row row)
{
    if (QWidget* const widgets = m_widgets[static_cast<std::size_t>(rowIndex(row))])
        m_stack->setCurrentWidget(widgets);
}

void Screens::focusFilter()
{
    if (m_scanView && m_stack->currentWidget() == m_scanView)
        m_scanView->focusFilter();
}

} // namespace pryvane
