#pragma once

#include "support/TemporaryFolder.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pryvane::test {

/// A session bus of its own, with no service to start and nobody else on it. While it lives the
/// environment names it, for this process and those it starts.
class PrivateBus {
public:
    /// None where the bus daemon is missing or does not start.
    [[nodiscard]] static std::unique_ptr<PrivateBus> start()
    {
        std::unique_ptr<PrivateBus> bus(new PrivateBus);
        bus->m_folder.file(
            "bus.conf",
            "<busconfig><type>session</type><listen>unix:path=" + bus->m_folder.hostPath("bus") +
                "</listen><policy context=\"default\"><allow send_destination=\"*\"/>"
                "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>");
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            return nullptr;
        // The daemon tells its address once it listens, and ends with this process however that
        // ends.
        const std::string config = "--config-file=" + bus->m_folder.hostPath("bus.conf");
        const std::string tell = "--print-address=" + std::to_string(ends[1]);
        bus->m_daemon = fork();
        if (bus->m_daemon == 0) {
            prctl(PR_SET_PDEATHSIG, SIGTERM);
            fcntl(ends[1], F_SETFD, 0);
            execlp("dbus-daemon", "dbus-daemon", config.c_str(), "--nofork", tell.c_str(), nullptr);
            _exit(127);
        }
        close(ends[1]);
        char told[256];
        const ssize_t length = read(ends[0], told, sizeof told);
        close(ends[0]);
        if (length <= 1)
            return nullptr;
        bus->m_address.assign(told, static_cast<std::size_t>(length) - 1);
        setenv("DBUS_SESSION_BUS_ADDRESS", bus->m_address.c_str(), 1);
        return bus;
    }
    ~PrivateBus()
    {
        if (m_daemon <= 0)
            return;
        unsetenv("DBUS_SESSION_BUS_ADDRESS");
        kill(m_daemon, SIGTERM);
        waitpid(m_daemon, nullptr, 0);
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    [[nodiscard]] const std::string& address() const { return m_address; }

private:
    PrivateBus() = default;

    TemporaryFolder m_folder;
    std::string m_address;
    pid_t m_daemon = -1;
};

} // namespace pryvane::test
