#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

class QIcon;

namespace pryvane {

class ClosedScans;
class DistributedNotifications;
class DockIcon;
class FileSystem;
class FileViewer;
class FolderPicker;
class GrantTokens;
class Host;
class Log;
class LoginItem;
class StatusItem;
class TaskProgress;
class UserNotifier;
class VolumeFileSystem;

/// What this system's desktop gives a program with a window. Each system has one of its own; what
/// it makes must end before it does. Main thread only.
class DesktopHost {
public:
    virtual ~DesktopHost() = default;

    [[nodiscard]] virtual UserNotifier& userNotifier() = 0;
    [[nodiscard]] virtual DistributedNotifications& messages() = 0;
    [[nodiscard]] virtual DockIcon& dockIcon() = 0;
    [[nodiscard]] virtual LoginItem& loginItem() = 0;
    [[nodiscard]] virtual ClosedScans& closedScans() = 0;
    [[nodiscard]] virtual TaskProgress& taskProgress() = 0;

    /// The volume must outlive it.
    [[nodiscard]] virtual std::unique_ptr<FileViewer> fileViewer(VolumeFileSystem& volume) = 0;

    /// Draws the named image of the image set in that size.
    using DrawIcon = std::function<QIcon(std::string_view image, int points)>;
    [[nodiscard]] virtual std::unique_ptr<StatusItem> statusItem(DrawIcon drawIcon) = 0;

    /// Picks among the folders of a volume. `volumeFolder` is its host folder, absolute and without
    /// links on the way; empty for "/".
    [[nodiscard]] virtual std::unique_ptr<FolderPicker> folderPicker(std::string volumeFolder) = 0;

    /// The volume must outlive them.
    [[nodiscard]] virtual std::unique_ptr<GrantTokens> grants(FileSystem& volume,
                                                              std::string volumeFolder) = 0;

    /// Tells whether the desktop is dark, where it says so, and whether it wants more contrast:
    /// soon, and each time that changes.
    using LookTold = std::function<void(std::optional<bool> dark, bool contrast)>;
    virtual void followLook(const LookTold& /*told*/) {}

    /// Whether programs have their menus in a bar at the top of the screen.
    [[nodiscard]] virtual bool hasMenuBar() const = 0;
};

/// This system's own. The host and the log must outlive it. CMake chooses the room that makes it.
[[nodiscard]] std::unique_ptr<DesktopHost> makeDesktopHost(Host& host,
                                                           const std::string& dataFolder, Log& log);

/// Reads which fonts there are, where Qt would do that when it first measures a text. Callable from
/// any thread: a start does it while Qt connects to the display. Each system has one of its own.
void readFonts();

} // namespace pryvane
