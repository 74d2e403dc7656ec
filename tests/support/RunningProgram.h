#pragma once

#include "support/TemporaryFolder.h"

#include <string>
#include <sys/types.h>

namespace pryvane::test {

/// A real process of that name that does nothing: a copy of the sleep program. Ends with this.
class RunningProgram {
public:
    explicit RunningProgram(const std::string& name);
    ~RunningProgram() { quit(); }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    void quit();

    /// A folder like /proc that holds this process alone.
    [[nodiscard]] const std::string& processes() const { return m_processes.path(); }

private:
    TemporaryFolder m_programs;
    TemporaryFolder m_processes;
    pid_t m_process = -1;
};

} // namespace pryvane::test
