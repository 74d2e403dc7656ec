#pragma once

#include "support/TemporaryFolder.h"

#include <csignal>
#include <filesystem>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>

namespace pryvane::test {

/// A real process of that name that does nothing: a copy of the sleep program. Ends with this.
class RunningProgram {
public:
    explicit RunningProgram(const std::string& name)
    {
        std::string path = m_programs.hostPath(name), seconds = "60";
        std::filesystem::copy_file("/bin/sleep", path);
        char* const arguments[] = {path.data(), seconds.data(), nullptr};
        if (posix_spawn(&m_process, path.c_str(), nullptr, nullptr, arguments, nullptr) != 0)
            throw std::runtime_error("cannot run a copy of /bin/sleep");
        const std::string number = std::to_string(m_process);
        m_processes.link(number, "/proc/" + number);
    }
    ~RunningProgram() { quit(); }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    void quit()
    {
        if (m_process < 0)
            return;
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
        m_process = -1;
    }

    /// A folder like /proc that holds this process alone.
    [[nodiscard]] const std::string& processes() const { return m_processes.path(); }

private:
    TemporaryFolder m_programs, m_processes;
    pid_t m_process = -1;
};

} // namespace pryvane::test
