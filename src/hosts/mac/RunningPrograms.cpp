#include "hosts/mac/RunningPrograms.h"

#include "platform/Browsers.h"

#include <algorithm>
#include <array>
#include <libproc.h>
#include <string_view>

namespace pryvane {

namespace {

std::vector<pid_t> processes()
{
    std::vector<pid_t> ids;
    // More may start between asking how many there are and asking which.
    for (int tries = 0; tries < 8; ++tries) {
        const int expected = proc_listallpids(nullptr, 0);
        if (expected <= 0)
            return {};
        ids.resize(static_cast<std::size_t>(expected) + 64);
        const int got =
            proc_listallpids(ids.data(), static_cast<int>(ids.size() * sizeof ids.front()));
        if (got < 0)
            return {};
        if (static_cast<std::size_t>(got) < ids.size()) {
            ids.resize(static_cast<std::size_t>(got));
            return ids;
        }
    }
    return ids;
}

/// The name of a process's program; empty where it cannot be told.
std::string programOf(pid_t process)
{
    std::array<char, PROC_PIDPATHINFO_MAXSIZE> path{};
    const int length = proc_pidpath(process, path.data(), static_cast<std::uint32_t>(path.size()));
    if (length <= 0)
        return {};
    const std::string_view whole(path.data(), static_cast<std::size_t>(length));
    return std::string(whole.substr(whole.rfind('/') + 1));
}

} // namespace

std::vector<std::string> runningApplicationsOfHost()
{
    std::array<bool, kBrowsers.size()> runs{};
    for (const pid_t process : processes()) {
        const std::string program = programOf(process);
        for (std::size_t i = 0; i < kBrowsers.size() && !program.empty(); ++i) {
            if (program == kBrowsers[i].applicationName ||
                std::ranges::find(kBrowsers[i].programs, program) != kBrowsers[i].programs.end())
                runs[i] = true;
        }
    }
    return applicationNames(runs);
}

} // namespace pryvane
