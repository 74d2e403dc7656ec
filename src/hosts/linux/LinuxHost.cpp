#include "hosts/Host.h"
#include "hosts/VolumeWorkspace.h"
#include "hosts/linux/LinuxMachineInfo.h"
#include "hosts/linux/RunningPrograms.h"
#include "hosts/linux/XdgFolders.h"
#include "hosts/posix/UserFolders.h"

#include <cstdlib>

namespace pryvane {

namespace {

constexpr const char* kActivationToken = "XDG_ACTIVATION_TOKEN";

class LinuxHost final : public Host {
public:
    std::unique_ptr<Workspace> workspace(FileSystem& disk, std::vector<std::string> users,
                                         bool isOwnDisk) override
    {
        VolumeWorkspace::Running running;
        if (isOwnDisk)
            running = [] { return runningApplicationsOfHost(); };
        return std::make_unique<VolumeWorkspace>(disk, std::move(users), std::move(running));
    }

    std::unique_ptr<MachineInfo> machineInfo() override
    {
        return std::make_unique<LinuxMachineInfo>();
    }

    std::string dataFolder() override { return xdg::dataFolder(); }
    std::string cachesFolder() override { return xdg::cachesFolder(); }
    Result<std::string> runtimeFolder(const std::string& dataFolder) override
    {
        return xdg::runtimeFolder(dataFolder);
    }

    std::string accessAdvice() override { return {}; }

    std::string activationToken() override { return environmentValue(kActivationToken); }
    void useActivationToken(const std::string& token) override
    {
        setenv(kActivationToken, token.c_str(), 1);
    }
};

} // namespace

std::unique_ptr<Host> makeHost()
{
    return std::make_unique<LinuxHost>();
}

} // namespace pryvane
