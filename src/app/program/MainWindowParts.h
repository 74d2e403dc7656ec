#pragma once

#include "app/DashBoardViewController.h"
#include "app/DetailsViewController.h"
#include "app/SchedulerVC.h"
#include "app/TableViewController.h"
#include "app/program/Session.h"
#include "app/views/Screens.h"
#include "engine/ScanViewController.h"
#include "reports/DefaultMethods.h"

namespace pryvane {

/// The controllers behind the main window; they live as long as it does.
struct Session::MainWindowParts {
    struct Deeds {
        std::function<std::string(std::string_view)> foldedName;
        std::function<void(const FileURL&)> reveal;
    };

    MainWindowParts(const PlatformServices& services, const DesktopServices& desktop,
                    AppDelegate& delegate, const ApplicationFacts& facts, Remover& remover,
                    Deeds deeds);

    /// Shows the first screen in the window made for these.
    void show(MainWindow& window);

    /// Whether something is being removed.
    [[nodiscard]] bool isBusy() const;

    DefaultMethods store;
    TableViewController table;
    DashBoardViewController dashboard;
    SchedulerVC scheduler;
    ScanViewController scan;
    Screens screens;
    DetailsViewController details;
};

} // namespace pryvane
