#pragma once

#include "app/views/Screens.h"
#include "browser/ReportBrowserHost.h"
#include "browser/ReportViewController.h"
#include "hosts/linux/LinuxMachineInfo.h"
#include "hosts/posix/LoadedPrinter.h"
#include "platform/PlatformServices.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/ReportPrinting.h"

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
    LinuxMachineInfo m_machine;
    PDFGenerate m_printed; ///< what goes to the printer
    PDFGenerate m_shown;   ///< what is previewed and exported
    LoadedPrinter m_printer;
    ReportPrinting m_printing;
    ReportViewController m_controller;
};

} // namespace pryvane
