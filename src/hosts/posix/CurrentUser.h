#pragma once

#include "core/Result.h"

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace pryvane {

/// The short name of whoever runs this process, as raw bytes; empty when the host does not know.
[[nodiscard]] std::string loginUser();

/// A short name is one path component; anything else would point a scan somewhere else.
[[nodiscard]] bool isShortName(std::string_view user);

/// What to tell whoever gave such a name.
[[nodiscard]] std::string notAShortName(std::string_view user);

/// Who made the other end of a connected local socket; none where that cannot be told. CMake
/// chooses the file that does it.
[[nodiscard]] std::optional<uid_t> peerUser(int socket);

/// Where this user's store and journal live, as a host path: PRYVANE_DATA_DIR, or else the place
/// that the host's customs give. Not created by asking.
[[nodiscard]] std::string defaultDataFolder();

/// Where files are kept that can be made again; made when the first of them is.
[[nodiscard]] std::string defaultCachesFolder();

/// Where desktops look for the programs to start at login.
[[nodiscard]] std::string defaultAutostartFolder();

/// A folder that nobody but this user can enter, for sockets and locks: XDG_RUNTIME_DIR where it is
/// one, else "run" in the data folder, made where it is missing. As a host path.
[[nodiscard]] Result<std::string> runtimeFolder(const std::string& dataFolder);

} // namespace pryvane
