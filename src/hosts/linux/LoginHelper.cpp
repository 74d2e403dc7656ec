#include "hosts/linux/LoginHelper.h"

#include <fcntl.h>

namespace pryvane {

namespace {

std::string lockPath(const std::string& runtimeFolder)
{
    return runtimeFolder + "/pryvane-login-helper.lock";
}

struct flock wholeFile()
{
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return lock;
}

} // namespace

UniqueFd takeLoginHelperLock(const std::string& runtimeFolder)
{
    UniqueFd file(open(lockPath(runtimeFolder).c_str(),
                       O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0600));
    struct flock lock = wholeFile();
    if (file && fcntl(file.get(), F_OFD_SETLK, &lock) != 0)
        file.reset();
    return file;
}

bool loginHelperLockIsHeld(const std::string& runtimeFolder)
{
    const UniqueFd file(
        open(lockPath(runtimeFolder).c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
    struct flock lock = wholeFile();
    return file && fcntl(file.get(), F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

} // namespace pryvane
