#pragma once

#include "core/UniqueFd.h"

#include <string>

/// The login helper holds a lock in the user's runtime folder while it runs, so whether it does can
/// be told at once, with a bus or without.
namespace pryvane {

/// Held until the descriptor closes; none with errno set (EAGAIN: another helper holds it).
[[nodiscard]] UniqueFd takeLoginHelperLock(const std::string& runtimeFolder);

/// Whether a helper holds it now. Asking takes nothing.
[[nodiscard]] bool loginHelperLockIsHeld(const std::string& runtimeFolder);

} // namespace pryvane
