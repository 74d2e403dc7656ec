#pragma once

#include "core/Result.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// What a second start asks of the program that runs already, beside coming to the front.
struct InstanceRequest {
    std::optional<std::string> volume; ///< host folder, absolute, raw bytes
    std::optional<std::string> user;   ///< short name on that volume, raw bytes
    bool scan = false;
    std::string activationToken; ///< the desktop's permission to take the keyboard; may be empty

    friend bool operator==(const InstanceRequest&, const InstanceRequest&) = default;
};

/// As much as one program sends another.
inline constexpr std::size_t kInstanceMessageLimit = 4096;

/// The request as a message. The error says that it is too long or cannot be sent.
[[nodiscard]] Result<std::string> encoded(const InstanceRequest& request);

/// The request of a message; none for anything but exactly what encoded() makes.
[[nodiscard]] std::optional<InstanceRequest> decodedRequest(std::string_view message);

} // namespace pryvane
