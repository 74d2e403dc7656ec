#pragma once

#include <sys/stat.h>

namespace pryvane {

/// Whether the open folder is the root of the running system itself.
[[nodiscard]] inline bool isHostRoot(int folder)
{
    struct stat volume {};
    struct stat host {};
    return fstat(folder, &volume) == 0 && stat("/", &host) == 0 && volume.st_dev == host.st_dev &&
           volume.st_ino == host.st_ino;
}

} // namespace pryvane
