#include "hosts/linux/XdgFolders.h"

#include "hosts/posix/UserFolders.h"

namespace pryvane::xdg {

namespace {

/// The base directory that the variable names.
std::string baseFolder(const char* variable, const char* placeInHome)
{
    // An empty or relative value is to be ignored by the base directory rules.
    std::string base = environmentValue(variable);
    if (!base.starts_with('/'))
        base = homeFolder() + placeInHome;
    return base;
}

} // namespace

std::string dataFolder()
{
    if (std::string folder = environmentValue("PRYVANE_DATA_DIR"); !folder.empty())
        return folder;
    return baseFolder("XDG_DATA_HOME", "/.local/share") + "/pryvane";
}

std::string cachesFolder()
{
    return baseFolder("XDG_CACHE_HOME", "/.cache") + "/pryvane";
}

std::string autostartFolder()
{
    return baseFolder("XDG_CONFIG_HOME", "/.config") + "/autostart";
}

std::string unitFolder()
{
    return baseFolder("XDG_CONFIG_HOME", "/.config") + "/systemd/user";
}

Result<std::string> runtimeFolder(const std::string& dataFolder)
{
    return privateRuntimeFolder(environmentValue("XDG_RUNTIME_DIR"), dataFolder,
                                "set XDG_RUNTIME_DIR to one");
}

} // namespace pryvane::xdg
