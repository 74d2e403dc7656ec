#include "hosts/linux/RunningPrograms.h"

#include "core/Files.h"
#include "platform/Browsers.h"

#include <climits>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>

namespace pryvane {

namespace {

/// The beginning of a small file; empty where it cannot be read.
std::string beginningOf(int folder, const char* name)
{
    const UniqueFd fd(openat(folder, name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    std::string content(512, '\0');
    ssize_t got = -1;
    do {
        got = fd ? read(fd.get(), content.data(), content.size()) : 0;
    } while (got < 0 && errno == EINTR);
    content.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return content;
}

/// Name and kind of a process. The name stands in parentheses and may itself hold anything.
struct Process {
    std::string name;
    bool hasProgram = false; ///< neither a zombie nor a thread of the kernel
};

Process processOf(const std::string& stat)
{
    constexpr unsigned long kKernelThread = 0x00200000;
    const auto open = stat.find('(');
    const auto close = stat.rfind(')');
    if (open == stat.npos || close == stat.npos || close < open || close + 2 >= stat.size())
        return {};
    Process process{stat.substr(open + 1, close - open - 1), false};
    const char state = stat[close + 2];
    // Behind the state: parent, group, session, terminal, its group; then the flags.
    std::string_view rest = std::string_view(stat).substr(close + 2);
    for (int field = 0; field < 6; ++field) {
        const auto blank = rest.find(' ');
        if (blank == rest.npos)
            return {};
        rest.remove_prefix(blank + 1);
    }
    const unsigned long flags = std::strtoul(std::string(rest).c_str(), nullptr, 10);
    process.hasProgram = state != 'Z' && state != 'X' && (flags & kKernelThread) == 0;
    return process;
}

/// The name of the program's file; empty where it may not be seen.
std::string programOf(int folder)
{
    std::string path(PATH_MAX, '\0');
    const ssize_t length = readlinkat(folder, "exe", path.data(), path.size());
    if (length <= 0)
        return {};
    path.resize(static_cast<std::size_t>(length));
    constexpr std::string_view kDeleted = " (deleted)"; // an update has replaced it
    if (path.ends_with(kDeleted))
        path.resize(path.size() - kDeleted.size());
    return path.substr(path.rfind('/') + 1);
}

/// The place in the table; -1 for what is not in it. What a process was called with is not asked:
/// that is read from its memory, which a hostile one can make to hang.
int applicationOf(int folder)
{
    const Process process = processOf(beginningOf(folder, "stat"));
    if (!process.hasProgram)
        return -1;
    const std::string program = programOf(folder);
    const std::string& name = program.empty() ? process.name : program;
    int place = 0;
    for (const Browser& browser : kBrowsers) {
        if (!name.empty() && std::ranges::find(browser.programs, name) != browser.programs.end())
            return place;
        ++place;
    }
    return -1;
}

} // namespace

std::vector<std::string> runningApplicationsOfHost(const std::string& processes)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(processes.c_str()), closedir);
    std::array<bool, kBrowsers.size()> runs{};
    while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
        if (entry->d_name[0] < '1' || entry->d_name[0] > '9')
            continue;
        const UniqueFd process(
            openat(dirfd(folder.get()), entry->d_name, O_PATH | O_DIRECTORY | O_CLOEXEC));
        const int application = process ? applicationOf(process.get()) : -1;
        if (application >= 0)
            runs[static_cast<std::size_t>(application)] = true;
    }
    return applicationNames(runs);
}

} // namespace pryvane
