#include "core/Sockets.h"

#include <fcntl.h>
#include <sys/socket.h>

namespace pryvane {

namespace {

// Not every system can say these with the call itself.
#ifdef SOCK_CLOEXEC
constexpr int kStream = SOCK_STREAM | SOCK_CLOEXEC;
#else
constexpr int kStream = SOCK_STREAM;
#endif
#ifdef MSG_NOSIGNAL
constexpr int kNoSignal = MSG_NOSIGNAL;
#else
constexpr int kNoSignal = 0;
#endif

} // namespace

std::array<UniqueFd, 2> socketPair()
{
    std::array<int, 2> ends{-1, -1};
    if (socketpair(AF_UNIX, kStream, 0, ends.data()) != 0)
        return {};
    for (const int end : ends)
        fcntl(end, F_SETFD, FD_CLOEXEC);
    return {UniqueFd(ends[0]), UniqueFd(ends[1])};
}

ssize_t sendQuietly(int socket, std::string_view bytes)
{
#ifdef SO_NOSIGPIPE
    const int on = 1;
    setsockopt(socket, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
    return send(socket, bytes.data(), bytes.size(), kNoSignal);
}

} // namespace pryvane
