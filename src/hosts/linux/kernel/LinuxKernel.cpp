#include "core/HostKernel.h"

#include <climits>

#include <array>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace pryvane {

namespace {

/// Where a link of the kernel leads. Some lead to no path at all: those begin with a note.
std::optional<std::string> kernelsPath(const std::string& link)
{
    std::array<char, PATH_MAX> path{};
    const ssize_t length = readlink(link.c_str(), path.data(), path.size());
    if (length <= 0 || path[0] != '/' || static_cast<std::size_t>(length) == path.size())
        return std::nullopt;
    return std::string(path.data(), static_cast<std::size_t>(length));
}

/// A path in which blanks and the like stand as "\040".
std::string unescaped(std::string_view field)
{
    std::string path;
    for (std::size_t at = 0; at < field.size(); ++at) {
        if (field[at] == '\\' && at + 3 < field.size()) {
            path += static_cast<char>(
                std::strtol(std::string(field.substr(at + 1, 3)).c_str(), nullptr, 8));
            at += 3;
        } else {
            path += field[at];
        }
    }
    return path;
}

} // namespace

Result<std::string> programFile()
{
    auto file = kernelsPath("/proc/self/exe");
    if (!file)
        return Error{"where this program lies cannot be told: /proc/self/exe does not say it; "
                     "is /proc mounted?"};
    // An update puts a new file in the place of the one that runs.
    if (constexpr std::string_view replaced = " (deleted)"; file->ends_with(replaced))
        file->resize(file->size() - replaced.size());
    return *file;
}

std::string pathOfHandle(int fd)
{
    return kernelsPath("/proc/self/fd/" + std::to_string(fd)).value_or("");
}

std::vector<std::string> swapFiles()
{
    std::ifstream swaps("/proc/swaps");
    std::string line;
    std::getline(swaps, line); // the heading
    std::vector<std::string> files;
    while (std::getline(swaps, line))
        files.push_back(unescaped(line.substr(0, line.find_first_of(" \t"))));
    return files;
}

std::string userLocale()
{
    return {};
}

} // namespace pryvane
