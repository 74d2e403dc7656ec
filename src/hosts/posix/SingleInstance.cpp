#include "hosts/posix/SingleInstance.h"

#include "core/Escape.h"
#include "core/Result.h"
#include "core/Sockets.h"
#include "hosts/posix/CurrentUser.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <thread>

namespace pryvane {

namespace {

constexpr std::string_view kHead{"pryvane-request-1\0", 18};
constexpr std::string_view kScan = "scan", kVolume = "volume=", kUser = "user=", kToken = "token=";

} // namespace

/// Fields end in a NUL, which neither a path nor a name can hold.
Result<std::string> encoded(const InstanceRequest& request)
{
    std::string message(kHead);
    bool sendable = true;
    const auto add = [&](std::string_view key, std::string_view value) {
        sendable = sendable && value.find('\0') == std::string_view::npos;
        message.append(key).append(value).push_back('\0');
    };
    if (request.volume)
        add(kVolume, *request.volume);
    if (request.user)
        add(kUser, *request.user);
    if (request.scan)
        add(kScan, {});
    if (!request.activationToken.empty())
        add(kToken, request.activationToken);
    if (!sendable || message.size() > kInstanceMessageLimit)
        return Error{"the arguments are too long to be handed to the Pryvane that runs already; "
                     "quit that one first"};
    return message;
}

std::optional<InstanceRequest> decodedRequest(std::string_view message)
{
    if (message.size() > kInstanceMessageLimit || !message.starts_with(kHead) ||
        message.back() != '\0')
        return std::nullopt;
    InstanceRequest request;
    for (auto rest = message.substr(kHead.size()); !rest.empty();) {
        const auto end = rest.find('\0');
        const std::string_view field = rest.substr(0, end);
        rest.remove_prefix(end + 1);
        if (field == kScan)
            request.scan = true;
        else if (field.starts_with(kVolume))
            request.volume = field.substr(kVolume.size());
        else if (field.starts_with(kUser))
            request.user = field.substr(kUser.size());
        else if (field.starts_with(kToken))
            request.activationToken = field.substr(kToken.size());
        else
            return std::nullopt;
    }
    // A relative folder would be looked for in another place than the sender's.
    if (request.volume && !request.volume->starts_with('/'))
        return std::nullopt;
    return request;
}

namespace {

using Moment = std::chrono::steady_clock::time_point;

Error notAnswering(const std::string& why)
{
    return Error{"Pryvane is running already, but " + why +
                 "; look for its window or its icon in the status bar, or quit it first"};
}

UniqueFd localSocket()
{
    UniqueFd fd(socket(AF_UNIX, SOCK_STREAM, 0));
    if (!fd)
        return fd;
    fcntl(fd.get(), F_SETFD, FD_CLOEXEC);
    fcntl(fd.get(), F_SETFL, O_NONBLOCK);
    return fd;
}

/// None where the path is longer than a socket's may be.
std::optional<sockaddr_un> addressOf(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return std::nullopt;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return address;
}

const sockaddr* generic(const sockaddr_un& address)
{
    return reinterpret_cast<const sockaddr*>(&address);
}

/// A first that has only just started may have its lock and no socket yet, so it is tried again.
UniqueFd connectedBefore(const std::string& path, Moment end)
{
    const auto address = addressOf(path);
    while (address && std::chrono::steady_clock::now() < end) {
        UniqueFd fd = localSocket();
        if (fd && connect(fd.get(), generic(*address), sizeof *address) == 0)
            return fd;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return {};
}

bool readableBefore(int fd, Moment end)
{
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    pollfd waiting{fd, POLLIN, 0};
    return left.count() > 0 && poll(&waiting, 1, static_cast<int>(left.count())) == 1;
}

bool answersBefore(int fd, Moment end)
{
    std::string answer;
    char buffer[16];
    while (answer.size() < kInstanceAnswer.size() && readableBefore(fd, end)) {
        const ssize_t count = recv(fd, buffer, sizeof buffer, 0);
        if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN))
            break;
        if (count > 0)
            answer.append(buffer, static_cast<std::size_t>(count));
    }
    return answer == kInstanceAnswer;
}

} // namespace

bool sendOnSocket(int socket, std::string_view bytes)
{
    return sendQuietly(socket, bytes) == static_cast<ssize_t>(bytes.size());
}

Result<SingleInstance> SingleInstance::claim(const std::string& dataFolder,
                                             const std::string& runtimeFolder)
{
    const std::string path = dataFolder + "/Pryvane.lock";
    UniqueFd lock(open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0600));
    struct stat data {};
    if (!lock || fstat(lock.get(), &data) != 0)
        return Error{forScreen(path) + " cannot be opened: " + errorText(errno) +
                     "; whether Pryvane runs already is not known"};
    const bool isFirst = flock(lock.get(), LOCK_EX | LOCK_NB) == 0;
    if (!isFirst && errno != EWOULDBLOCK)
        return Error{forScreen(path) + " cannot be locked: " + errorText(errno) +
                     "; whether Pryvane runs already is not known"};
    char name[64];
    static_cast<void>(std::snprintf(name, sizeof name, "/pryvane-%llx-%llx.sock",
                                    static_cast<unsigned long long>(data.st_dev),
                                    static_cast<unsigned long long>(data.st_ino)));
    return SingleInstance(std::move(lock), isFirst, runtimeFolder + name);
}

SingleInstance::~SingleInstance()
{
    if (m_lock && m_isFirst)
        unlink(m_socketPath.c_str());
}

Result<UniqueFd> SingleInstance::listen()
{
    const auto refused = [&](const std::string& why) {
        return Error{forScreen(m_socketPath) + " cannot be listened on: " + why +
                     "; a second start will not reach this one"};
    };
    const auto address = addressOf(m_socketPath);
    if (!address)
        return refused("its path is too long");
    UniqueFd fd = localSocket();
    unlink(m_socketPath.c_str()); // left by one that was killed: the lock says that it is gone
    if (!fd || bind(fd.get(), generic(*address), sizeof *address) != 0 ||
        chmod(m_socketPath.c_str(), 0600) != 0 || ::listen(fd.get(), 16) != 0)
        return refused(errorText(errno));
    return fd;
}

Result<Done> SingleInstance::handOver(const InstanceRequest& request,
                                      std::chrono::milliseconds patience) const
{
    const auto end = std::chrono::steady_clock::now() + patience;
    const auto message = encoded(request);
    if (!message)
        return message.error();
    const UniqueFd fd = connectedBefore(m_socketPath, end);
    if (!fd)
        return notAnswering("it cannot be reached");
    if (peerUser(fd.get()) != geteuid())
        return notAnswering("another user listens in its place");
    if (!sendOnSocket(fd.get(), *message) || shutdown(fd.get(), SHUT_WR) != 0 ||
        !answersBefore(fd.get(), end))
        return notAnswering("it does not answer");
    return Done{};
}

} // namespace pryvane
