#pragma once

#include "support/TemporaryFolder.h"

#include <optional>
#include <string>
#include <sys/types.h>

namespace pryvane::test {

/// A print server of its own: a child process with all its files in a temporary folder. Its queue
/// "pile", the default one, puts what arrives into a file; its queue "shut" takes no jobs.
class PrintServer {
public:
    enum class Queues : std::uint8_t { PileAndShut, None };

    explicit PrintServer(Queues queues = Queues::PileAndShut);
    ~PrintServer();
    PrintServer(const PrintServer&) = delete;
    PrintServer& operator=(const PrintServer&) = delete;

    /// Why it does not run on this machine; empty when it does.
    [[nodiscard]] const std::string& trouble() const { return m_trouble; }
    [[nodiscard]] std::string socket() const { return m_folder.hostPath("cups.sock"); }

    /// The bytes that "pile" got, within ten seconds.
    [[nodiscard]] std::optional<std::string> arrived() const;

    /// What the server told the queue of the job: number, user, title, copies, options.
    [[nodiscard]] std::string told() const;

    /// Stops the process where it stands: it goes on listening and answers nothing.
    void freeze();

private:
    TemporaryFolder m_folder;
    std::string m_trouble;
    pid_t m_process = -1;
};

} // namespace pryvane::test
