#include "cli/ChildScan.h"

#include "core/LoadedModule.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ; // NOLINT: the system's own name

namespace pryvane::cli {

namespace {

UniqueFd fileWithoutName()
{
    std::error_code error;
    std::string name = std::filesystem::temp_directory_path(error).string() + "/pryvane-XXXXXX";
    UniqueFd fd(error ? -1 : mkstemp(name.data()));
    if (!fd)
        return fd;
    unlink(name.c_str());
    return UniqueFd(fcntl(fd.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

} // namespace

Result<ChildScan> ChildScan::start(const std::vector<std::string>& arguments)
{
    auto program = besideProgram("pryvane-cli");
    if (!program)
        return program.error();
    ChildScan child;
    child.out = fileWithoutName();
    child.err = fileWithoutName();
    if (!child.out || !child.err)
        return Error{"no temporary file can be made (" + errorText(errno) +
                     "); name another folder with TMPDIR"};
    std::vector<std::string> words{*program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&files, child.out.get(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files, child.err.get(), STDERR_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    const int error = posix_spawn(&child.process, program->c_str(), &files, &attributes,
                                  pointers.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0)
        return Error{"a scan cannot be started (" + *program + ": " + errorText(error) + ")"};
    return child;
}

int ChildScan::wait(const std::function<void()>& ended) const
{
    siginfo_t info{};
    while (waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOWAIT) < 0 &&
           errno == EINTR)
        continue;
    ended();
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR)
        continue;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace pryvane::cli
