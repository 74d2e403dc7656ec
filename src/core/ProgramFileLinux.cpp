#include "core/LoadedModule.h"

#include <climits>

#include <array>
#include <string_view>
#include <unistd.h>

namespace pryvane {

Result<std::string> programFile()
{
    std::array<char, PATH_MAX> path{};
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    std::string file(path.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    // A program outside the root of its file system is told with a note in front of its path.
    if (!file.starts_with('/'))
        return Error{"where this program lies cannot be told: /proc/self/exe does not say it; "
                     "is /proc mounted?"};
    // An update puts a new file in the place of the one that runs.
    if (constexpr std::string_view replaced = " (deleted)"; file.ends_with(replaced))
        file.resize(file.size() - replaced.size());
    return file;
}

} // namespace pryvane
