#pragma once

namespace pryvane {

class Alerts;
class Clock;
class ClosedScans;
class DistributedNotifications;
class DockIcon;
class FileSystem;
class FolderPicker;
class GrantTokens;
class Log;
class LoginItem;
class MainQueue;
class NotificationCenter;
class SettingsFile;
class StatusItem;
class TaskProgress;
class Timers;
class UserDefaults;
class UserNotifier;
class WebBrowser;
class WindowHost;
class Workspace;

/// Everything the program needs from its host, handed down from the composition root of each
/// executable. The services outlive whoever holds this.
struct PlatformServices {
    FileSystem& disk;
    UserDefaults& defaults;
    NotificationCenter& notifications;
    MainQueue& mainQueue;
    Clock& clock;
    Alerts& alerts;
    FolderPicker& folderPicker;
    Workspace& workspace;
    UserNotifier& userNotifier;
    Log& log;
};

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
    ClosedScans& closedScans;
    TaskProgress& taskProgress;
};

} // namespace pryvane
