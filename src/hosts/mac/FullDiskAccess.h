#pragma once

#include <cstdint>
#include <string>

namespace pryvane {

enum class FullDiskAccess : std::uint8_t { Given, Refused, NotKnown };

/// Whether the system lets this process read what it keeps from programs without Full Disk Access.
/// Asked with a file that every Mac has; asking shows no question to the user.
[[nodiscard]] FullDiskAccess fullDiskAccess();

/// What to do about it; empty where there is nothing to do.
[[nodiscard]] std::string fullDiskAccessAdvice(FullDiskAccess access);

} // namespace pryvane
