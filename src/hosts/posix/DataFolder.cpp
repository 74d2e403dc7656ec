#include "hosts/posix/DataFolder.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace pryvane {

namespace {

std::string fromEnvironment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string homeFolder()
{
    if (std::string home = fromEnvironment("HOME"); !home.empty())
        return home;
    const passwd* entry = getpwuid(geteuid());
    return entry && entry->pw_dir ? entry->pw_dir : "";
}

/// The base directory that the variable names.
std::string baseFolder(const char* variable, const char* placeInHome)
{
    // An empty or relative value is to be ignored by the base directory rules.
    std::string base = fromEnvironment(variable);
    if (!base.starts_with('/'))
        base = homeFolder() + placeInHome;
    return base;
}

} // namespace

std::string defaultDataFolder()
{
    if (std::string folder = fromEnvironment("PRYVANE_DATA_DIR"); !folder.empty())
        return folder;
    return baseFolder("XDG_DATA_HOME", "/.local/share") + "/pryvane";
}

std::string defaultCachesFolder()
{
    return baseFolder("XDG_CACHE_HOME", "/.cache") + "/pryvane";
}

std::string defaultAutostartFolder()
{
    return baseFolder("XDG_CONFIG_HOME", "/.config") + "/autostart";
}

} // namespace pryvane
