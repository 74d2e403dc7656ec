#pragma once

#include "core/Files.h"

#include <string>

/// How messages between the user's programs travel on the session bus: as a signal with the name
/// and the object of the message, two texts.
namespace pryvane::bus {

inline constexpr char kMessagePath[] = "/com/torvell/Pryvane";
inline constexpr char kMessageInterface[] = "com.torvell.Pryvane.DistributedNotifications";
inline constexpr char kMessageMember[] = "Posted";

} // namespace pryvane::bus

/// The login helper holds a lock in the user's runtime folder while it runs, so whether it does can
/// be told at once, with a bus or without.
namespace pryvane {

/// Held until the descriptor closes; none with errno set (EAGAIN: another helper holds it).
[[nodiscard]] UniqueFd takeLoginHelperLock(const std::string& runtimeFolder);

/// Whether a helper holds it now. Asking takes nothing.
[[nodiscard]] bool loginHelperLockIsHeld(const std::string& runtimeFolder);

} // namespace pryvane
