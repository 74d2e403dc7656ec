#include "core/HostFiles.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace pryvane {

/// A plain fsync stops at the disk's own cache; not every file system has the full one.
int syncToDevice(int fd)
{
    return fcntl(fd, F_FULLFSYNC) == 0 ? 0 : fsync(fd);
}

int syncContentToDevice(int fd)
{
    return syncToDevice(fd);
}

std::string_view hostsOwnErrorText(int error)
{
    switch (error) {
    case EDEADLK: // what the kernel says where fetching it was switched off
        return "in the cloud, not on this disk";
    case EPERM:
        return "not permitted; give Full Disk Access to Pryvane, or to the terminal it is started "
               "from, in the system's privacy settings";
    default:
        return {};
    }
}

} // namespace pryvane
