#pragma once

#include "app/DetailsViewController.h"
#include "platform/FileURL.h"

#include <functional>
#include <string>

class QStackedWidget;

namespace pryvane {

class DashBoardViewController;
class ScanView;
class ScanViewController;
class SchedulerVC;

/// Makes the widgets of each screen when it is first shown, and puts them on the window's stack.
class Screens final : public ScreenFactory {
public:
    struct Controllers {
        DashBoardViewController& dashboard;
        SchedulerVC& scheduler;
        ScanViewController& scan;
        std::string user;
        std::function<std::string(std::string_view)> foldedName; ///< of the volume's disk
        std::function<void(const FileURL&)> reveal;
        std::function<void()> openRemoteDesktopInstructions;
    };

    explicit Screens(Controllers controllers);

    /// Where the screens stand; its parent owns it.
    [[nodiscard]] QStackedWidget* stack() const { return m_stack; }

    [[nodiscard]] std::unique_ptr<Screen> makeScreen(Row row) override;

    /// Brings that screen's widgets to the front.
    void show(Row row);
    void focusFilter();

private:
    [[nodiscard]] QWidget* makeWidgets(Row row);

    Controllers m_controllers;
    QStackedWidget* m_stack;
    ScanView* m_scanView = nullptr;
    std::array<QWidget*, kRowTitles.size()> m_widgets{};
};

} // namespace pryvane
