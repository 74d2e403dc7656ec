#include "hosts/posix/CurrentUser.h"

#include "core/Escape.h"
#include "core/Files.h"
#include "core/Result.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

std::string loginUser()
{
    const passwd* entry = getpwuid(geteuid());
    return entry && entry->pw_name ? entry->pw_name : "";
}

bool isShortName(std::string_view user)
{
    return !user.empty() && user != "." && user != ".." &&
           user.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::string notAShortName(std::string_view user)
{
    return "\"" + std::string(user) +
           "\" is not a user's short name; give the name of a folder in /Users, such as --user "
           "alice";
}

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

namespace {

/// 0 when the folder is this user's alone, else the errno that says why not.
int privateFolder(const std::string& folder)
{
    const UniqueFd fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    struct stat data {};
    if (!fd || fstat(fd.get(), &data) != 0)
        return errno;
    return data.st_uid == geteuid() && (data.st_mode & 077) == 0 ? 0 : EPERM;
}

} // namespace

Result<std::string> runtimeFolder(const std::string& dataFolder)
{
    if (const char* given = std::getenv("XDG_RUNTIME_DIR");
        given && given[0] == '/' && privateFolder(given) == 0)
        return std::string(given);
    std::string own = dataFolder + "/run";
    int error = mkdir(own.c_str(), 0700) == 0 || errno == EEXIST ? 0 : errno;
    if (error == 0)
        error = privateFolder(own);
    if (error != 0)
        return Error{forScreen(own) + " cannot be used as a folder of your own (" +
                     (error == EPERM ? "others may enter it" : errorText(error)) +
                     "); set XDG_RUNTIME_DIR to one"};
    return own;
}

} // namespace pryvane
