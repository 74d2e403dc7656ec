#pragma once

namespace pryvane {

class Alerts;
class Clock;
class FileSystem;
class FolderPicker;
class Log;
class MainQueue;
class NotificationCenter;
class UserDefaults;
class UserNotifier;
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

} // namespace pryvane
