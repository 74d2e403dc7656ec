#include "platform/posix/DataFolder.h"

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

/// The program's folder in the base directory that the variable names.
std::string folderBelow(const char* variable, const char* placeInHome)
{
    // An empty or relative value is to be ignored by the base directory rules.
    std::string base = fromEnvironment(variable);
    if (!base.starts_with('/'))
        base = homeFolder() + placeInHome;
    return base + "/pryvane";
}

} // namespace

std::string defaultDataFolder()
{
    if (std::string folder = fromEnvironment("PRYVANE_DATA_DIR"); !folder.empty())
        return folder;
    return folderBelow("XDG_DATA_HOME", "/.local/share");
}

std::string defaultCachesFolder()
{
    return folderBelow("XDG_CACHE_HOME", "/.cache");
}

} // namespace pryvane
