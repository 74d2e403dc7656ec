#include "core/HostKernel.h"
#include "core/LoadedModule.h"
#include "hosts/Host.h"
#include "hosts/linux/XdgFolders.h"
#include "hosts/linux/XdgLoginItem.h"
#include "hosts/linux/desktop/TaskbarDockIcon.h"
#include "hosts/linux/desktop/TrayHosts.h"
#include "hosts/posix/FolderGrants.h"
#include "hosts/qt/DesktopHost.h"
#include "hosts/qt/bus/BusClosedScans.h"
#include "hosts/qt/bus/BusDistributedNotifications.h"
#include "hosts/qt/bus/BusFileViewer.h"
#include "hosts/qt/bus/BusLook.h"
#include "hosts/qt/bus/BusTaskProgress.h"
#include "hosts/qt/bus/BusUserNotifier.h"
#include "hosts/qt/widgets/WidgetFolderPicker.h"
#include "words/Shown.h"

#include <QDesktopServices>

#include <filesystem>
#include <fontconfig/fontconfig.h>

namespace pryvane {

namespace {

XdgLoginItem::Places loginPlaces(Host& host, const std::string& dataFolder)
{
    const auto helper = besideProgram("pryvane-login-helper"), own = programFile();
    const auto runtime = host.runtimeFolder(dataFolder);
    return {.autostartFolder = xdg::autostartFolder(),
            .helper = helper ? *helper : std::string(),
            .application = own ? *own : std::string(),
            .runtimeFolder = runtime ? *runtime : std::string()};
}

TimerUnits::Places timerPlaces(const std::string& dataFolder)
{
    const auto program = besideProgram("pryvane-cli");
    std::error_code failed;
    const auto data = std::filesystem::absolute(dataFolder, failed);
    return {.unitFolder = xdg::unitFolder(),
            .program = program ? *program : std::string(),
            .dataFolder = failed ? dataFolder : data.string()};
}

class LinuxDesktopHost final : public DesktopHost {
public:
    LinuxDesktopHost(Host& host, const std::string& dataFolder, Log& log)
        : m_log(log), m_loginItem(loginPlaces(host, dataFolder)),
          m_closedScans(m_bus, timerPlaces(dataFolder))
    {
        m_userNotifier.setUp([](const std::string& english) { return ui::shown(english); },
                             [&host](const std::string& token) { host.useActivationToken(token); });
    }

    UserNotifier& userNotifier() override { return m_userNotifier; }
    DistributedNotifications& messages() override { return m_messages; }
    DockIcon& dockIcon() override { return m_dockIcon; }
    LoginItem& loginItem() override { return m_loginItem; }
    ClosedScans& closedScans() override { return m_closedScans; }
    TaskProgress& taskProgress() override { return m_taskProgress; }

    std::unique_ptr<FileViewer> fileViewer(VolumeFileSystem& volume) override
    {
        return std::make_unique<BusFileViewer>(m_bus, volume, m_log, &QDesktopServices::openUrl);
    }
    std::unique_ptr<StatusItem> statusItem(DrawIcon drawIcon) override
    {
        return std::make_unique<TrayStatusItem>(std::make_unique<TrayHosts>(m_bus),
                                                std::move(drawIcon));
    }
    std::unique_ptr<FolderPicker> folderPicker(std::string volumeFolder) override
    {
        return std::make_unique<WidgetFolderPicker>(std::move(volumeFolder));
    }
    std::unique_ptr<GrantTokens> grants(FileSystem& volume, std::string) override
    {
        return std::make_unique<FolderGrants>(volume);
    }
    void followLook(const LookTold& told) override { m_look.follow(told); }
    bool hasMenuBar() const override { return false; }

private:
    Log& m_log;
    QDBusConnection m_bus = QDBusConnection::sessionBus();
    BusUserNotifier m_userNotifier{m_bus, m_log};
    BusDistributedNotifications m_messages{m_bus, m_log};
    BusLook m_look{m_bus};
    ShownWindows m_shownWindows;
    TaskbarDockIcon m_dockIcon{m_log};
    XdgLoginItem m_loginItem;
    BusClosedScans m_closedScans;
    BusTaskProgress m_taskProgress{m_bus};
};

} // namespace

std::unique_ptr<DesktopHost> makeDesktopHost(Host& host, const std::string& dataFolder, Log& log)
{
    return std::make_unique<LinuxDesktopHost>(host, dataFolder, log);
}

void readFonts()
{
    FcInit(); // where it fails, Qt's own attempt does, too
}

} // namespace pryvane
