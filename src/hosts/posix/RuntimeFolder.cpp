#include "hosts/posix/RuntimeFolder.h"

#include "core/ErrorText.h"
#include "core/Escape.h"
#include "core/UniqueFd.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>

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
