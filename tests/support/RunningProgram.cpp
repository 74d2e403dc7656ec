#include "support/RunningProgram.h"

#include <csignal>
#include <filesystem>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>

namespace pryvane::test {

RunningProgram::RunningProgram(const std::string& name)
{
    std::string path = m_programs.hostPath(name);
    std::filesystem::copy_file("/bin/sleep", path);
    std::string seconds = "60";
    char* const arguments[] = {path.data(), seconds.data(), nullptr};
    if (posix_spawn(&m_process, path.c_str(), nullptr, nullptr, arguments, nullptr) != 0)
        throw std::runtime_error("cannot run a copy of /bin/sleep");
    const std::string number = std::to_string(m_process);
    m_processes.link(number, "/proc/" + number);
}

void RunningProgram::quit()
{
    if (m_process < 0)
        return;
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    m_process = -1;
}

} // namespace pryvane::test
