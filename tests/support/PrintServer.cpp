#include "support/PrintServer.h"

#include <chrono>
#include <csignal>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {

namespace {

constexpr const char* kProgram = "/usr/sbin/cupsd";
constexpr const char* kParts = "/usr/lib/cups";

/// What stands for a printing machine. It is run with job, user, title, copies, options and file.
constexpr const char* kBackend = R"(#!/bin/sh
[ $# = 0 ] && exit 0
out=${DEVICE_URI#pile:}
printf '%s\n' "$@" >"$out.told"
cat "$6" >"$out.part" && mv "$out.part" "$out"
)";

bool answers(const std::string& socketPath)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socketPath.copy(address.sun_path, sizeof address.sun_path - 1);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool connected =
        connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(fd);
    return connected;
}

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
    if (access(kProgram, X_OK) != 0 || access(kParts, X_OK) != 0) {
        m_trouble = "no cupsd on this machine";
        return;
    }
    writeSettings(queues);
    const std::string settings = m_folder.hostPath("cupsd.conf");
    const std::string files = m_folder.hostPath("cups-files.conf");
    m_process = fork();
    if (m_process == 0) {
        execl(kProgram, kProgram, "-f", "-c", settings.c_str(), "-s", files.c_str(), nullptr);
        _exit(127);
    }
    if (m_process < 0 || !within(std::chrono::seconds(10), [&] { return answers(socket()); }))
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

void PrintServer::writeSettings(Queues queues) const
{
    for (const char* folder : {"root", "spool", "cache", "state", "logs", "bin/backend"})
        m_folder.folder(folder);
    // Run by root, the server drops its rights before it touches these.
    chmod(m_folder.path().c_str(), 0755);
    m_folder.file("cupsd.conf", "LogLevel warn\nListen " + socket() +
                                    "\nBrowsing No\nWebInterface No\n"
                                    "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                    "<Policy default>\n<Limit All>\nOrder deny,allow\n</Limit>\n"
                                    "</Policy>\n");
    std::string files = "ServerRoot " + m_folder.hostPath("root") + "\nRequestRoot " +
                        m_folder.hostPath("spool") + "\nCacheDir " + m_folder.hostPath("cache") +
                        "\nStateDir " + m_folder.hostPath("state") + "\nServerBin " +
                        m_folder.hostPath("bin");
    for (const char* log : {"error", "access", "page"})
        files += std::string("\n") + static_cast<char>(*log - 'a' + 'A') + (log + 1) + "Log " +
                 m_folder.hostPath("logs/") + log;
    m_folder.file("cups-files.conf", files + "\n");
    for (const char* part : {"daemon", "filter"})
        m_folder.link(std::string("bin/") + part, std::string(kParts) + "/" + part);
    m_folder.file("bin/backend/pile", kBackend);
    chmod(m_folder.hostPath("bin/backend/pile").c_str(), 0700); // so that root's runs as root
    const std::string device = "DeviceURI pile:" + m_folder.hostPath("arrived") + "\nState Idle\n";
    if (queues == Queues::PileAndShut)
        m_folder.file("root/printers.conf",
                      "<DefaultPrinter pile>\n" + device + "Accepting Yes\n</DefaultPrinter>\n" +
                          "<Printer shut>\n" + device + "Accepting No\n</Printer>\n");
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
