#include "core/HostKernel.h"

#include <climits>

#include <CoreFoundation/CoreFoundation.h>
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

/// Programs that the Finder starts have no locale in their environment.
std::string userLocale()
{
    for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
        if (const char* value = std::getenv(variable); value && *value)
            return {};
    }
    const CFLocaleRef locale = CFLocaleCopyCurrent();
    std::array<char, 128> name{};
    const bool told = CFStringGetCString(CFLocaleGetIdentifier(locale), name.data(), name.size(),
                                         kCFStringEncodingUTF8) != 0;
    CFRelease(locale);
    const std::string identifier(told ? name.data() : "");
    const std::string region = identifier.substr(0, identifier.find('@')); // without a calendar
    return region.empty() ? std::string() : region + ".UTF-8";
}

} // namespace pryvane
