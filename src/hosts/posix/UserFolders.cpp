#include "hosts/posix/UserFolders.h"

#include "core/Escape.h"
#include "core/Files.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

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

std::string environmentValue(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string homeFolder()
{
    if (std::string home = environmentValue("HOME"); !home.empty())
        return home;
    const passwd* entry = getpwuid(geteuid());
    return entry && entry->pw_dir ? entry->pw_dir : "";
}

Result<std::string> privateRuntimeFolder(const std::string& offered, const std::string& dataFolder,
                                         std::string_view advice)
{
    if (offered.starts_with('/') && privateFolder(offered) == 0)
        return offered;
    std::string own = dataFolder + "/run";
    int error = mkdir(own.c_str(), 0700) == 0 || errno == EEXIST ? 0 : errno;
    if (error == 0)
        error = privateFolder(own);
    if (error != 0)
        return Error{forScreen(own) + " cannot be used as a folder of your own (" +
                     (error == EPERM ? "others may enter it" : errorText(error)) + "); " +
                     std::string(advice)};
    return own;
}

} // namespace pryvane
