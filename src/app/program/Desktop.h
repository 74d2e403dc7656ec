#pragma once

#include "app/program/StandardErrorLog.h"
#include "core/Result.h"
#include "hosts/posix/SystemClock.h"
#include "hosts/qt/NetworkSettingsFile.h"
#include "hosts/qt/QtMainQueue.h"
#include "hosts/qt/QtTimers.h"
#include "hosts/qt/bus/BusDistributedNotifications.h"
#include "hosts/qt/bus/BusUserNotifier.h"
#include "hosts/qt/widgets/DesktopWebBrowser.h"
#include "hosts/qt/widgets/ShownWindows.h"
#include "hosts/qt/widgets/TaskbarDockIcon.h"
#include "hosts/qt/widgets/WidgetAlerts.h"

#include <memory>
#include <string>

namespace pryvane {

class LoginItem;
class UserDefaults;

/// What the program has once, whichever volume its window looks at. Main thread only.
class Desktop {
public:
    /// Opens the store of that folder. The error says what to do.
    [[nodiscard]] static Result<std::unique_ptr<Desktop>> open(const std::string& dataFolder);
    ~Desktop();

    [[nodiscard]] const std::string& dataFolder() const { return m_dataFolder; }
    [[nodiscard]] UserDefaults& defaults() { return *m_defaults; }
    [[nodiscard]] LoginItem& loginItem() { return *m_loginItem; }
    /// What the user must be told once; empty: nothing.
    [[nodiscard]] const std::string& notice() const { return m_notice; }

    StandardErrorLog log;
    SystemClock clock;
    QtMainQueue mainQueue;
    QtTimers timers{clock};
    QDBusConnection bus;
    BusUserNotifier userNotifier{bus, log};
    BusDistributedNotifications distributedNotifications{bus, log};
    ShownWindows shownWindows;
    WidgetAlerts alerts;
    DesktopWebBrowser webBrowser;
    TaskbarDockIcon dockIcon{log};
    NetworkSettingsFile settingsFile{NetworkSettingsFile::builtInAddress()};

private:
    explicit Desktop(std::string dataFolder);

    std::string m_dataFolder;
    std::string m_notice;
    std::unique_ptr<UserDefaults> m_defaults;
    std::unique_ptr<LoginItem> m_loginItem;
};

} // namespace pryvane
