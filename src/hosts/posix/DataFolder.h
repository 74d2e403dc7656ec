#pragma once

#include <string>

namespace pryvane {

/// Where this user's store and journal live, as a host path: PRYVANE_DATA_DIR, or else the place
/// that the host's customs give. Not created by asking.
[[nodiscard]] std::string defaultDataFolder();

/// Where files are kept that can be made again; made when the first of them is.
[[nodiscard]] std::string defaultCachesFolder();

/// Where desktops look for the programs to start at login.
[[nodiscard]] std::string defaultAutostartFolder();

} // namespace pryvane
