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

} // namespace

std::string defaultDataFolder()
{
    if (std::string folder = fromEnvironment("PRYVANE_DATA_DIR"); !folder.empty())
        return folder;
    // An empty or relative value is to be ignored by the base directory rules.
    if (std::string base = fromEnvironment("XDG_DATA_HOME"); base.starts_with('/'))
        return base + "/pryvane";
    return homeFolder() + "/.local/share/pryvane";
}

} // namespace pryvane
