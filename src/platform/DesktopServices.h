#pragma once

namespace pryvane {

class DistributedNotifications;
class DockIcon;
class GrantTokens;
class LoginItem;
class SettingsFile;
class StatusItem;
class Timers;
class WebBrowser;
class WindowHost;

/// What the application shell needs from the desktop, beside PlatformServices. The services outlive
/// whoever holds this.
struct DesktopServices {
    WindowHost& windows;
    DockIcon& dockIcon;
    StatusItem& statusItem;
    LoginItem& loginItem;
    DistributedNotifications& distributedNotifications;
    GrantTokens& grantTokens;
    SettingsFile& settingsFile;
    WebBrowser& webBrowser;
    Timers& timers;
};

} // namespace pryvane
