#include "volume/image/ImageReader.h"

#include "core/Sockets.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kBetweenLooks{100};

} // namespace

Result<ImageReader> ImageReader::started(const std::string& program)
{
    // Sockets rather than pipes, as writing to one whose reader is gone can be kept from killing.
    auto [ours, theirs] = socketPair();
    if (!ours)
        return Error{"the reader of images cannot be started (" + errorText(errno) + ")"};
    UniqueFd second(fcntl(ours.get(), F_DUPFD_CLOEXEC, 3));
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, theirs.get(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, theirs.get(), STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::string name = program;
    std::array<char*, 2> arguments{name.data(), nullptr};
    std::array<char*, 1> environment{nullptr};
    pid_t process = -1;
    const int error = posix_spawn(&process, program.c_str(), &actions, nullptr, arguments.data(),
                                  environment.data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        return Error{"the reader of images cannot be started (" + program + ": " +
                     errorText(error) + "); is Pryvane installed whole?"};
    return ImageReader(process, std::move(ours), std::move(second));
}

ImageReader::ImageReader(pid_t process, UniqueFd input, UniqueFd output)
    : m_process(process), m_input(std::move(input)), m_output(std::move(output))
{
}

ImageReader::ImageReader(ImageReader&& other) noexcept
    : m_process(std::exchange(other.m_process, -1)), m_input(std::move(other.m_input)),
      m_output(std::move(other.m_output))
{
}

ImageReader::~ImageReader()
{
    if (m_process < 0)
        return;
    kill(m_process, SIGKILL);
    while (waitpid(m_process, nullptr, 0) < 0 && errno == EINTR)
        continue;
}

Error ImageReader::ended()
{
    int status = 0;
    // What it says ends before it does; not by much, unless it is up to something.
    constexpr int kLooks = 50;
    pid_t gone = 0;
    for (int look = 0; m_process >= 0 && gone == 0 && look < kLooks; ++look) {
        if (look > 0)
            usleep(20'000);
        gone = waitpid(m_process, &status, WNOHANG);
    }
    if (m_process >= 0 && gone == m_process) {
        m_process = -1;
        if (WIFSIGNALED(status))
            return {"its reader was ended by signal " + std::to_string(WTERMSIG(status)) +
                    "; the image is damaged, or made to do harm"};
    }
    return {"its reader ended before it was done; the image is damaged, or made to do harm"};
}

Result<Done> ImageReader::send(frames::Kind kind, std::string_view body)
{
    frames::Writer frame;
    frame.number(static_cast<std::uint32_t>(body.size()));
    frame.number(static_cast<std::uint8_t>(kind));
    std::string bytes = frame.bytes();
    bytes.append(body);
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const ssize_t sent = sendQuietly(m_input.get(), rest);
        if (sent < 0 && errno == EINTR)
            continue;
        if (sent <= 0)
            return ended();
        rest.remove_prefix(static_cast<std::size_t>(sent));
    }
    return Done{};
}

Result<Done> ImageReader::fill(char* bytes, std::size_t size, std::chrono::milliseconds patience,
                               const StopFlag& stop)
{
    std::size_t at = 0;
    const auto start = std::chrono::steady_clock::now();
    while (at < size) {
        if (stop.requested())
            return Error{"interrupted"};
        if (std::chrono::steady_clock::now() - start > patience)
            return Error{"its reader says nothing any more; the image is damaged, or made to do "
                         "harm"};
        pollfd wait{m_output.get(), POLLIN, 0};
        if (poll(&wait, 1, static_cast<int>(kBetweenLooks.count())) <= 0)
            continue;
        const ssize_t got = read(m_output.get(), bytes + at, size - at);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return ended();
        at += static_cast<std::size_t>(got);
    }
    return Done{};
}

Result<ImageReader::Frame> ImageReader::receive(std::chrono::milliseconds patience,
                                                const StopFlag& stop)
{
    std::uint32_t length = 0;
    char head[sizeof length + 1];
    if (const auto filled = fill(head, sizeof head, patience, stop); !filled)
        return filled.error();
    std::memcpy(&length, head, sizeof length);
    if (length > frames::kLongest)
        return Error{"its reader says what cannot be understood"};
    Frame frame{static_cast<frames::Kind>(head[sizeof length]), std::string(length, '\0')};
    if (const auto filled = fill(frame.body.data(), length, patience, stop); !filled)
        return filled.error();
    return frame;
}

} // namespace pryvane
