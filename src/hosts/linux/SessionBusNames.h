#pragma once

/// How messages between the user's programs travel on the session bus: as a signal with the name
/// and the object of the message, two texts.
namespace pryvane::bus {

inline constexpr char kMessagePath[] = "/com/torvell/Pryvane";
inline constexpr char kMessageInterface[] = "com.torvell.Pryvane.DistributedNotifications";
inline constexpr char kMessageMember[] = "Posted";

} // namespace pryvane::bus
