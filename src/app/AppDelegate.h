#pragma once

#include "core/NotificationCenter.h"
#include "core/tasks/BoundQueue.h"
#include "findings/ScanState.h"
#include "platform/PlatformServices.h"
#include "scan/DiskAccess.h"

#include <QObject>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {

/// What the program knows of itself and of whom it serves; settled once at start.
struct ApplicationFacts {
    std::string user;             ///< as Users.h names it; empty: everyone
    std::string bundleIdentifier; ///< CFBundleIdentifier
    std::string bundleVersion;    ///< CFBundleVersion
    std::string homePage;         ///< address of the maker's web site
    bool isGranted = false; ///< the disk is a file that was chosen, which is a grant by itself
};

enum class ShellWindow : std::uint8_t;

/// What an entry of the Window menu does to the program's first window.
enum class WindowCommand : std::uint8_t { None, Minimise, Zoom, BringToFront };

/// One entry of the Window menu; an empty title is a separator.
struct WindowMenuEntry {
    std::string title;
    WindowCommand command = WindowCommand::None;
    bool checked = false;
};

/// The program as a whole: its start, its windows, the shared scan state, access to the disk, and
/// the one way to ask for a scan. Main thread only.
class AppDelegate final : public QObject, public DiskAccess {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppDelegate)

public:
    enum class RunModal : std::uint8_t { No, Yes };

    AppDelegate(const PlatformServices& services, const DesktopServices& desktop,
                ApplicationFacts facts, QObject* parent = nullptr);
    ~AppDelegate() override;

    // Start and end
    void applicationDidFinishLaunching();
    /// To be called once, when the main loop has ended.
    void applicationWillTerminate();
    [[nodiscard]] static constexpr bool applicationShouldTerminateAfterLastWindowClosed()
    {
        return false;
    }
    bool applicationShouldHandleReopen();
    void terminateSelf();

    // Windows
    void makeUIForApp() { openMainWindow(); }
    void openMainWindow();
    void makeUIForSelection();
    void minimizeTo();
    /// Makes the first window as large as the screen, or as it was before.
    void zoom();
    void perform(WindowCommand command);
    void pryvaneMakeFront();
    void bringAllAppToFront();
    void getHelp();
    /// Shows the program's first window in front, when there is one, and makes the program active.
    void bringFirstWindowForward();
    /// A title bar's close button: tag 0 hides the first window, any other the help window. Where
    /// no status item could bring the window back it is minimised instead.
    void closeButtonClicked(int tag);
    /// Brings a hidden window back when the status item has gone. Call when that may have changed.
    void keepReachable();
    [[nodiscard]] const std::vector<WindowMenuEntry>& windowMenu() const { return m_windowMenu; }

    // Printing
    /// What the print command does while the present screen is shown; empty: it is disabled.
    void setPrintAction(std::function<void()> action);
    [[nodiscard]] bool canPrint() const { return static_cast<bool>(m_printAction); }
    void printReport();

    // Scans
    /// Every scan that is not started on the scan screen itself goes through here: asks for disk
    /// access, runs `prepare`, then posts the request. Shows no window.
    void requestScan(const std::function<void()>& prepare = {});
    [[nodiscard]] ScanState& state() { return m_state; }
    [[nodiscard]] const ScanState& state() const { return m_state; }

    // Access to the disk
    void checkForHDAccess();
    [[nodiscard]] bool isUserDirAccessible();
    [[nodiscard]] bool isHDAccessible() override;
    bool isUserAccessible() override;
    [[nodiscard]] bool makeBookMarkURLAccessible(std::string_view key);
    void confirmAccessAction() override;
    [[nodiscard]] static bool panelShouldEnableURL(const FileURL& url);
    [[nodiscard]] bool isWritable(const FileURL& folder) override;
    [[nodiscard]] Result<Bytes> makeBookmark(const FileURL& folder) override;
    [[nodiscard]] FileURL homeFolder() const;

    // Alerts
    /// Asks with "Yes" and "No"; kAlertFirstButton stands for "Yes".
    int createAlertForInformativeText(std::string informativeText, std::string messageText);
    /// Tells something.
    void createAlertForInformativeText(std::string informativeText, std::string messageText,
                                       RunModal runModal);

Q_SIGNALS:
    /// The Window menu, the print command or the access has changed.
    void stateChanged();

private:
    void checkDataFromURL();
    void removeSpyareMenuitem();
    void appendFrontEntry();
    [[nodiscard]] std::optional<ShellWindow> firstWindow() const;
    [[nodiscard]] bool grantReopens(const FileURL& folder, std::string_view key);

    PlatformServices m_services;
    DesktopServices m_desktop;
    const ApplicationFacts m_facts;
    ScanState m_state;
    bool m_hasMainWindow = false;
    bool m_hasAccessWindow = false;
    std::vector<WindowMenuEntry> m_windowMenu;
    std::function<void()> m_printAction;
    NotificationCenter::Observation m_removeMenuItem;
    BoundQueue m_later;
};

} // namespace pryvane
