#include "hosts/Host.h"
#include "hosts/VolumeWorkspace.h"
#include "hosts/mac/CloudFiles.h"
#include "hosts/mac/FullDiskAccess.h"
#include "hosts/mac/LibraryFolders.h"
#include "hosts/mac/MacMachineInfo.h"
#include "hosts/mac/RunningPrograms.h"
#include "hosts/posix/UserFolders.h"

namespace pryvane {

namespace {

class MacHost final : public Host {
public:
    MacHost()
    {
        // An older system has no such files.
        static_cast<void>(keepCloudFilesAway());
    }

    std::unique_ptr<Workspace> workspace(FileSystem& disk, std::vector<std::string> users,
                                         bool isOwnDisk) override
    {
        VolumeWorkspace::Running running;
        if (isOwnDisk)
            running = runningApplicationsOfHost;
        return std::make_unique<VolumeWorkspace>(disk, std::move(users), std::move(running));
    }

    std::unique_ptr<MachineInfo> machineInfo() override
    {
        return std::make_unique<MacMachineInfo>();
    }

    std::string dataFolder() override { return library::dataFolder(); }
    std::string cachesFolder() override { return library::cachesFolder(); }
    Result<std::string> runtimeFolder(const std::string& dataFolder) override
    {
        return privateRuntimeFolder(library::temporaryFolder(), dataFolder,
                                    "set PRYVANE_DATA_DIR to one that is");
    }

    std::string accessAdvice() override { return fullDiskAccessAdvice(fullDiskAccess()); }

    // The system itself decides who has the keyboard.
    std::string activationToken() override { return {}; }
    void useActivationToken(const std::string&) override {}
};

} // namespace

std::unique_ptr<Host> makeHost()
{
    return std::make_unique<MacHost>();
}

} // namespace pryvane
