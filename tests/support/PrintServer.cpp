#include "support/PrintServer.h"

#include "support/UnixSocket.h"

#include <chrono>
#include <csignal>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {

namespace {

template <typename Condition>
bool within(std::chrono::seconds limit, Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

} // namespace

PrintServer::PrintServer(Queues queues)
{
    if (access("/usr/sbin/cupsd", X_OK) != 0 || access("/usr/lib/cups", X_OK) != 0) {
        m_trouble = "no cupsd on this machine";
        return;
    }
    m_process = fork();
    if (m_process == 0) {
        execl(PRYVANE_PRINT_SERVER, PRYVANE_PRINT_SERVER, m_folder.path().c_str(),
              queues == Queues::None ? "none" : "pile", nullptr);
        _exit(127);
    }
    const auto answers = [&] { return bool(connectedTo(socket())); };
    if (m_process < 0 || !within(std::chrono::seconds(10), answers))
        m_trouble = "cupsd does not start here: " + contentOf(m_folder.hostPath("logs/error"));
}

PrintServer::~PrintServer()
{
    if (m_process <= 0)
        return;
    kill(m_process, SIGCONT);
    kill(m_process, SIGTERM);
    waitpid(m_process, nullptr, 0);
}

std::optional<std::string> PrintServer::arrived() const
{
    if (!within(std::chrono::seconds(10), [&] { return m_folder.contains("arrived"); }))
        return std::nullopt;
    return contentOf(m_folder.hostPath("arrived"));
}

std::string PrintServer::told() const
{
    return contentOf(m_folder.hostPath("arrived.told"));
}

void PrintServer::freeze()
{
    kill(m_process, SIGSTOP);
}

} // namespace pryvane::test
