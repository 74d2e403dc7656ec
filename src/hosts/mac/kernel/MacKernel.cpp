#include "core/HostKernel.h"

#include <climits>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <mach-o/dyld.h>

namespace pryvane {

Result<std::string> programFile()
{
    std::array<char, PATH_MAX> given{}, path{};
    std::uint32_t size = given.size();
    if (_NSGetExecutablePath(given.data(), &size) != 0 || !realpath(given.data(), path.data()))
        return Error{"where this program lies cannot be told"};
    return std::string(path.data());
}

std::string pathOfHandle(int fd)
{
    std::array<char, PATH_MAX> path{};
    return fcntl(fd, F_GETPATH, path.data()) == 0 ? path.data() : "";
}

std::vector<std::string> swapFiles()
{
    return {}; // they lie where the system lets no program remove anything
}

} // namespace pryvane
