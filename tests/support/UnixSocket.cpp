#include "support/UnixSocket.h"

#include <sys/socket.h>
#include <sys/un.h>

namespace pryvane::test {

namespace {

template <typename Call>
UniqueFd socketAt(const std::string& path, Call call)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    UniqueFd fd(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (call(fd.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        fd.reset();
    return fd;
}

} // namespace

UniqueFd listeningAt(const std::string& path)
{
    UniqueFd fd = socketAt(path, bind);
    if (fd && listen(fd.get(), 8) != 0)
        fd.reset();
    return fd;
}

UniqueFd connectedTo(const std::string& path)
{
    return socketAt(path, connect);
}

} // namespace pryvane::test
