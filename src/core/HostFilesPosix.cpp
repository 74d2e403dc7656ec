#include "core/HostFiles.h"

#include <unistd.h>

namespace pryvane {

int syncToDevice(int fd)
{
    return fsync(fd);
}

int syncContentToDevice(int fd)
{
    return fdatasync(fd);
}

std::string_view hostsOwnErrorText(int)
{
    return {};
}

} // namespace pryvane
