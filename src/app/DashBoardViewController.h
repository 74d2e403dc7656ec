#pragma once

#include "app/AppDelegate.h"
#include "app/LastScans.h"
#include "core/NotificationCenter.h"
#include "core/tasks/BoundQueue.h"
#include "core/tasks/Worker.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/PlatformServices.h"

#include <QObject>

#include <memory>
#include <string>
#include <vector>

namespace pryvane {

class AppDelegate;
struct StatusMenuEntry;

enum class TitleColour : std::uint8_t { Black, White };

/// The scan button and the deep check box beside it.
struct ScanButton {
    std::string title = "Quick Scan >"; ///< empty while the spinner shows
    TitleColour colour = TitleColour::Black;
    bool spinner = false;
    bool deepChecked = false;
    bool deepShown = true;
    bool deepEnabled = true;
};

/// The dashboard without its widgets: the switches, the status item and its menu, the real-time
/// timer, the scan button. Made once and kept, since the timer and the menu live as long as it.
/// Main thread only.
class DashBoardViewController final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DashBoardViewController)

public:
    DashBoardViewController(const PlatformServices& services, const DesktopServices& desktop,
                            AppDelegate& delegate, ApplicationFacts facts,
                            QObject* parent = nullptr);
    ~DashBoardViewController() override;

    void viewDidLoad();

    /// Reads the preferences and applies them.
    void makeAppChanges();
    void UIChange();

    // The switches
    void seticonShow(bool show);
    void dockIconAction(bool state) { seticonShow(state); }
    void setStartAtLoginEnabled(bool on);
    void runStartUpAction(bool state) { setStartAtLoginEnabled(state); }
    void realTimeScanning(bool on);
    void scanAdwareRealTime();
    void btnRealTimeScanClicked(bool state);

    // The scan button
    void btnDeepScanClicked(bool state);
    void scanningStartAction();

    // The status menu
    void realTimeScanningOnOFMenuBarAction();
    void performQuickScanMenuBarAction();
    void updateMenuBarAction();
    void openAppMenuBarAction();
    void openAppWebSiteMenuBarAction();
    void terminateApp();

    // State
    [[nodiscard]] static const char* AppName() { return "Pryvane"; }
    [[nodiscard]] bool showDockIcon() const { return m_showDockIcon; }
    [[nodiscard]] bool loginStart() const { return m_loginStart; }
    [[nodiscard]] bool isRealTimeProtectionON() const { return m_isRealTimeProtectionON; }
    [[nodiscard]] const ScanButton& scanButton() const { return m_scanButton; }
    /// When the next real-time scan comes; none while the switch is off.
    [[nodiscard]] std::optional<Date> nextRealTimeScan() const;
    /// How long ago the last scan of this disk and user was: "just now", "2 hours ago"; "Not scan
    /// yet" without one.
    [[nodiscard]] std::string lastScanText() const;
    /// Read from the stored reports in the background; empty until that is done.
    [[nodiscard]] const LastScans& lastScans() const { return m_lastScans; }
    /// False for a disk without an identity: no stored report is known to be about it.
    [[nodiscard]] bool diskCanBeTold() const { return !m_services.disk.identity().empty(); }
    /// What a scan of the chosen kind does, and how long the last one took, in one line.
    [[nodiscard]] std::string scanExplanation() const;

Q_SIGNALS:
    void stateChanged();
    /// What the store knows of this disk's last scan has been read.
    void lastScansRead();

private:
    void observe();
    void scanStatusChange(bool running);
    void stopScan();
    void showDeepBoxAndTitle();
    void createStatusItem();
    void updateStatusMenu(const std::string& realTimeTitle);
    void applyDockIcon(bool show);
    void loadLastScans();

    PlatformServices m_services;
    DesktopServices m_desktop;
    AppDelegate& m_delegate;
    const ApplicationFacts m_facts;
    bool m_showDockIcon = true;
    bool m_loginStart = false;
    bool m_isRealTimeProtectionON = false;
    bool m_hasStatusItem = false;
    bool m_isCheckingForUpdate = false;
    std::string m_realTimeTitle; ///< of the status menu
    bool m_isLoadingLastScans = false;
    bool m_lastScansAreOld = false; ///< a scan ended while they were being loaded
    ScanButton m_scanButton;
    LastScans m_lastScans;
    std::unique_ptr<Timers::Timer> m_realTimeScanningTimer;
    std::vector<NotificationCenter::Observation> m_observations;
    BoundQueue m_later;
    Worker m_loader; // last: it ends before anything it uses
};

} // namespace pryvane
