#include "core/LoadedModule.h"

#include <climits>

#include <array>
#include <cstdlib>
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

} // namespace pryvane
