#pragma once

#include "app/DetailsViewController.h"
#include "platform/FileURL.h"

#include <QString>

#include <functional>
#include <string>
#include <string_view>

class QStackedWidget;
class QWidget;

namespace pryvane {

class DashBoardViewController;
class ScanViewController;
class SchedulerVC;
class SpywareScanReport;

/// A screen's widgets, and what it wants to be told. Empty functions are not called.
struct MadeScreen {
    QWidget* widgets = nullptr;
    std::function<void()> viewWillAppear = {};
    std::function<void()> focusFilter = {};
    std::function<void()> startScan = {};
};

/// Makes the widgets of each screen when it is first shown, and puts them on the window's stack.
class Screens final : public ScreenFactory {
public:
    struct Needs {
        DashBoardViewController& dashboard;
        SchedulerVC& scheduler;
        ScanViewController& scan;
        std::string user;
        std::function<std::string(std::string_view)> foldedName; ///< of the volume's disk
        std::function<void(const FileURL&)> reveal;
        std::function<void()> openRemoteDesktopInstructions;
        std::function<void()> viewReport; ///< of this run's last scan; without one, of all reports
        std::function<void(const SpywareScanReport&, std::function<void(const QString&)>)>
            keepRecord;
        std::function<MadeScreen()> makeTools;
        std::function<MadeScreen()> makeReports;
    };

    explicit Screens(Needs needs);

    /// Where the screens stand; its parent owns it.
    [[nodiscard]] QStackedWidget* stack() const { return m_stack; }

    [[nodiscard]] std::unique_ptr<Screen> makeScreen(Row row) override;

    /// Brings that screen's widgets to the front.
    void show(Row row);
    /// Puts the keyboard into the filter box of the screen in front.
    void focusFilter();

private:
    [[nodiscard]] MadeScreen made(Row row);
    [[nodiscard]] MadeScreen makeDashboard();
    [[nodiscard]] MadeScreen makeScan();

    Needs m_needs;
    QStackedWidget* m_stack;
    std::array<MadeScreen, kRowTitles.size()> m_made;
};

} // namespace pryvane
