#include "hosts/posix/InstanceRequest.h"

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

} // namespace pryvane
