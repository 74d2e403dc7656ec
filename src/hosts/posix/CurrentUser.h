#pragma once

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

} // namespace pryvane
