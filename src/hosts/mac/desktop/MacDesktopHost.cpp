#include "hosts/mac/ActivationDockIcon.h"
#include "hosts/mac/BookmarkGrants.h"
#include "hosts/mac/NativeFileViewer.h"
#include "hosts/mac/NativeFolderPicker.h"
#include "hosts/mac/NativeMessages.h"
#include "hosts/mac/NativeNotifier.h"
#include "hosts/mac/ServiceLoginItem.h"
#include "hosts/qt/DesktopHost.h"
#include "hosts/qt/widgets/TrayStatusItem.h"
#include "platform/ClosedScans.h"

#include <QIcon>

namespace pryvane {

namespace {

/// The identifier in the helper bundle's Info.plist.
constexpr const char* kHelper = "com.torvell.Pryvane.Helper";

class MacDesktopHost final : public DesktopHost {
public:
    UserNotifier& userNotifier() override { return m_userNotifier; }
    DistributedNotifications& messages() override { return m_messages; }
    DockIcon& dockIcon() override { return m_dockIcon; }
    LoginItem& loginItem() override { return m_loginItem; }
    // launchd could do it; until it does, the window does not offer it.
    ClosedScans& closedScans() override { return m_closedScans; }
    TaskProgress& taskProgress() override { return m_taskProgress; }

    std::unique_ptr<FileViewer> fileViewer(VolumeFileSystem& volume) override
    {
        return std::make_unique<NativeFileViewer>(volume);
    }
    std::unique_ptr<StatusItem> statusItem(DrawIcon drawIcon) override
    {
        return std::make_unique<TrayStatusItem>(std::make_unique<AlwaysAPlace>(),
                                                std::move(drawIcon));
    }
    std::unique_ptr<FolderPicker> folderPicker(std::string volumeFolder) override
    {
        return std::make_unique<NativeFolderPicker>(std::move(volumeFolder));
    }
    std::unique_ptr<GrantTokens> grants(FileSystem& volume, std::string volumeFolder) override
    {
        return std::make_unique<BookmarkGrants>(volume, std::move(volumeFolder));
    }
    bool hasMenuBar() const override { return true; }

private:
    NativeNotifier m_userNotifier;
    NativeMessages m_messages;
    ActivationDockIcon m_dockIcon;
    ServiceLoginItem m_loginItem{kHelper};
    NoClosedScans m_closedScans;
    NoTaskProgress m_taskProgress;
};

} // namespace

std::unique_ptr<DesktopHost> makeDesktopHost(Host&, const std::string&, Log&)
{
    return std::make_unique<MacDesktopHost>();
}

/// The system's font service has them ready.
void readFonts() {}

} // namespace pryvane
