#pragma once

#include "core/Files.h"

#include <string>
#include <sys/socket.h>
#include <sys/un.h>

namespace pryvane::test {

/// A socket that was bound or connected to that path of the host, or none.
template <typename Call>
[[nodiscard]] UniqueFd socketAt(const std::string& path, Call call)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    UniqueFd fd(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (call(fd.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        fd.reset();
    return fd;
}

/// A socket that listens there, or none.
[[nodiscard]] inline UniqueFd listeningAt(const std::string& path)
{
    UniqueFd fd = socketAt(path, bind);
    if (fd && listen(fd.get(), 8) != 0)
        fd.reset();
    return fd;
}

/// A socket that is connected to whoever listens there, or none.
[[nodiscard]] inline UniqueFd connectedTo(const std::string& path)
{
    return socketAt(path, connect);
}

} // namespace pryvane::test
