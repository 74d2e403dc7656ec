#pragma once

#include "core/Result.h"

#include <string>

/// Where free desktops keep what belongs to one user, as host paths.
namespace pryvane::xdg {

/// Of the store and the journal: PRYVANE_DATA_DIR, or a place in XDG_DATA_HOME.
[[nodiscard]] std::string dataFolder();

[[nodiscard]] std::string cachesFolder();

/// Where desktops look for the programs to start at login.
[[nodiscard]] std::string autostartFolder();

/// Where systemd looks for units of this user.
[[nodiscard]] std::string unitFolder();

/// XDG_RUNTIME_DIR where that is this user's alone, else "run" in the data folder, made where it is
/// missing.
[[nodiscard]] Result<std::string> runtimeFolder(const std::string& dataFolder);

} // namespace pryvane::xdg
