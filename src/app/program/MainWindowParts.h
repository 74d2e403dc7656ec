#pragma once

#include "app/DashBoardViewController.h"
#include "app/DetailsViewController.h"
#include "app/SchedulerVC.h"
#include "app/TableViewController.h"
#include "app/program/ReportParts.h"
#include "app/program/Session.h"
#include "app/program/ToolsParts.h"
#include "app/views/Screens.h"
#include "reports/DefaultMethods.h"
#include "scan/ScanViewController.h"

namespace pryvane {

/// The controllers behind the main window; they live as long as it does.
struct Session::MainWindowParts {
    struct Needs {
        PlatformServices services;
        DesktopServices desktop;
        AppDelegate& delegate;
        ApplicationFacts facts;
        VolumeFileSystem& disk;
        Remover& remover;
        FileViewer& fileViewer;
        std::function<std::string(std::string_view)> foldedName; ///< of the volume's disk
        std::function<void(const FileURL&)> reveal;
    };

    explicit MainWindowParts(Needs what);

    /// Shows the first screen in the window made for these.
    void show(MainWindow& window);

    /// Whether something is being removed.
    [[nodiscard]] bool isBusy() const;

    void openRemoteDesktopInstructions();
    /// Shows the report of the last scan in the report browser.
    void viewReport();
    [[nodiscard]] MadeScreen makeTools();
    [[nodiscard]] MadeScreen makeReports();

    const Needs needs;
    DefaultMethods store;
    TableViewController table;
    DashBoardViewController dashboard;
    SchedulerVC scheduler;
    ScanViewController scan;
    std::unique_ptr<ToolsParts> tools;
    std::unique_ptr<ReportParts> reports;
    Screens screens;
    DetailsViewController details;
};

} // namespace pryvane
