#include "volume/image/reader/Channel.h"

#include <cerrno>
#include <cstdlib>
#include <unistd.h>

namespace pryvane {

namespace {

void put(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t wrote = write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (wrote < 0 && errno == EINTR)
            continue;
        if (wrote <= 0)
            _exit(EXIT_FAILURE);
        bytes.remove_prefix(static_cast<std::size_t>(wrote));
    }
}

} // namespace

bool Channel::fill(char* bytes, std::size_t size)
{
    std::size_t at = 0;
    while (at < size) {
        const ssize_t got = read(STDIN_FILENO, bytes + at, size - at);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        at += static_cast<std::size_t>(got);
    }
    return true;
}

std::optional<Channel::Frame> Channel::receive()
{
    std::uint32_t length = 0;
    Frame frame;
    char head[sizeof length + 1];
    if (!fill(head, sizeof head))
        return std::nullopt;
    std::memcpy(&length, head, sizeof length);
    frame.kind = static_cast<frames::Kind>(head[sizeof length]);
    if (length > frames::kLongest)
        _exit(EXIT_FAILURE);
    frame.body.resize(length);
    if (!fill(frame.body.data(), length))
        return std::nullopt;
    return frame;
}

void Channel::send(frames::Kind kind, std::string_view body)
{
    frames::Writer head;
    head.number(static_cast<std::uint32_t>(body.size()));
    head.number(static_cast<std::uint8_t>(kind));
    put(head.bytes());
    put(body);
}

} // namespace pryvane
