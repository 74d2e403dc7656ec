/// pryvane-login-helper: started by the desktop at login, starts Pryvane, and quits when Pryvane
/// says so, has ended, or says nothing for a while.
#include "core/Escape.h"
#include "core/LoadedModule.h"
#include "core/Result.h"
#include "hosts/linux/LoginHelper.h"
#include "hosts/linux/XdgFolders.h"
#include "hosts/linux/helper/TerminationWatch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using namespace pryvane;
using Moment = std::chrono::steady_clock::time_point;

struct Options {
    std::chrono::seconds limit{120};
    char** command = nullptr; ///< ends in a null; none: the program beside this one
};

void tell(const std::string& text)
{
    static_cast<void>(
        std::fprintf(stderr, "pryvane-login-helper: %s\n", forTerminal(text).c_str()));
}

std::optional<Options> parsed(char** arguments)
{
    Options options;
    ++arguments;
    if (*arguments && std::string_view(*arguments) == "--limit") {
        char* end = nullptr;
        const long seconds = arguments[1] ? std::strtol(arguments[1], &end, 10) : 0;
        if (!end || *end != '\0' || seconds < 1 || seconds > 3600)
            return std::nullopt;
        options.limit = std::chrono::seconds(seconds);
        arguments += 2;
    }
    if (*arguments && **arguments == '-')
        return std::nullopt;
    if (*arguments)
        options.command = arguments;
    return options;
}

/// In a session of its own, so that it outlives whatever ends this one.
Result<pid_t> startProgram(char** command)
{
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    pid_t child = -1;
    const int error = posix_spawn(&child, command[0], nullptr, &attributes, command, environ);
    posix_spawnattr_destroy(&attributes);
    if (error != 0)
        return Error{std::string(command[0]) + " cannot be started: " + errorText(error)};
    return child;
}

/// Until the program says that it needs no helper, or has ended, or the time is up.
void standBy(TerminationWatch& watch, pid_t child, Moment end)
{
    const UniqueFd childFd(static_cast<int>(syscall(SYS_pidfd_open, child, 0)));
    std::array<pollfd, 2> waiting{{{watch.descriptor(), POLLIN, 0}, {childFd.get(), POLLIN, 0}}};
    while (watch.read() == TerminationWatch::News::None) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return;
        const int ready = poll(waiting.data(), waiting.size(), static_cast<int>(left.count()));
        if (ready < 0 && errno != EINTR)
            return;
        if (ready > 0 && waiting[1].revents != 0)
            return;
    }
}

} // namespace

int main(int, char** arguments)
{
    const auto options = parsed(arguments);
    if (!options) {
        tell("usage: pryvane-login-helper [--limit SECONDS] [PROGRAM [ARGUMENT...]]");
        return 2;
    }
    UniqueFd lock;
    const auto folder = xdg::runtimeFolder(xdg::dataFolder());
    if (folder) {
        lock = takeLoginHelperLock(*folder);
        if (!lock && errno == EAGAIN) {
            tell("another one runs already");
            return 0;
        }
    }
    const Moment end = std::chrono::steady_clock::now() + options->limit;
    // Before the program starts, so that its word to quit is not missed.
    auto watch = TerminationWatch::start();
    auto beside = besideProgram("pryvane");
    if (!beside && !options->command) {
        tell(beside.error().message);
        return 1;
    }
    std::array<char*, 2> defaultCommand{beside ? beside->data() : nullptr, nullptr};
    const auto child = startProgram(options->command ? options->command : defaultCommand.data());
    if (!child) {
        tell(child.error().message);
        return 1;
    }
    if (watch)
        standBy(*watch, *child, end);
    else
        tell(watch.error().message + "; Pryvane has been started, and nothing is left to do");
    return 0;
}
