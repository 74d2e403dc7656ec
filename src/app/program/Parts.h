#pragma once

#include "app/DashBoardViewController.h"
#include "app/DetailsViewController.h"
#include "app/ScanOutside.h"
#include "app/SchedulerVC.h"
#include "app/program/Session.h"
#include "app/views/Screens.h"
#include "browser/ReportBrowserHost.h"
#include "browser/ReportDocuments.h"
#include "browser/ReportViewController.h"
#include "hosts/posix/LoadedPrinter.h"
#include "inventory/FactsController.h"
#include "inventory/InventoryController.h"
#include "platform/PlatformServices.h"
#include "privacy/ToolsViewController.h"
#include "reports/DefaultMethods.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/ReportPrinting.h"
#include "scan/ScanViewController.h"

#include <functional>
#include <string>
#include <string_view>

namespace pryvane {

class AppDelegate;
class FileViewer;

/// What stands behind the report screen; made when that is first shown.
class ReportParts final : private ReportBrowserHost {
public:
    struct Needs {
        FileViewer& fileViewer;
        MachineInfo& machine;
        PDFFacts pdf;
        Remover& remover;
        std::string user;
        std::function<std::string(std::string_view)> foldedName; ///< of the volume's disk
        std::function<void()> openRemoteDesktopInstructions;
    };

    ReportParts(const PlatformServices& services, AppDelegate& delegate, Needs needs);

    [[nodiscard]] MadeScreen makeScreen();
    [[nodiscard]] bool isBusy() { return m_controller.removal().isRemoving(); }

private:
    void checkForHDAccess() override;
    void setPrintAction(std::function<void()> action) override;
    void openRemoteDesktopInstructions() override { m_needs.openRemoteDesktopInstructions(); }

    PlatformServices m_services;
    AppDelegate& m_delegate;
    const Needs m_needs;
    PDFGenerate m_printed; ///< what goes to the printer
    PDFGenerate m_shown;   ///< what is previewed and exported
    LoadedPrinter m_printer;
    ReportPrinting m_printing;
    ReportViewController m_controller;
};

/// What stands behind the tools screen; made when that is first shown.
class ToolsParts {
public:
    ToolsParts(const PlatformServices& services, const OpenedDisk& disk, Remover& remover,
               const std::vector<std::string>& users, std::function<void(const FileURL&)> reveal);

    [[nodiscard]] MadeScreen makeScreen();
    [[nodiscard]] bool isBusy() const
    {
        return m_tools.state() == ToolsViewController::State::Cleaning;
    }

private:
    std::function<void(const FileURL&)> m_reveal;
    const std::unique_ptr<SizeMeter> m_sizes;
    const std::unique_ptr<SizeMeter> m_inventorySizes; ///< both may measure at the same time
    ToolsViewController m_tools;
    InventoryController m_inventory;
    FactsController m_facts;
};

/// The controllers behind the main window; they live as long as it does.
struct Session::MainWindowParts {
    struct Needs {
        PlatformServices services;
        DesktopServices desktop;
        AppDelegate& delegate;
        ApplicationFacts facts;
        std::vector<std::string> users; ///< whose homes there are to look at
        const OpenedDisk& disk;
        std::optional<ScheduledDisk> scheduledDisk; ///< the same for timed scans
        Remover& remover;
        FileViewer& fileViewer;
        MachineInfo& machine;
        std::string cachesFolder;
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
    void viewReport() { viewReport(scan.report()); }
    void viewReport(const std::shared_ptr<SpywareScanReport>& report);
    [[nodiscard]] MadeScreen makeTools();
    [[nodiscard]] MadeScreen makeReports();

    const Needs needs;
    DefaultMethods store;
    TableViewController table;
    DashBoardViewController dashboard;
    SchedulerVC scheduler;
    ScanViewController scan;
    ScanOutside outside;
    std::unique_ptr<ToolsParts> tools;
    std::unique_ptr<ReportParts> reports;
    PDFGenerate pdf;           ///< for the scan screen alone
    ReportDocuments documents; ///< with it
    Screens screens;
    DetailsViewController details;
};

} // namespace pryvane
