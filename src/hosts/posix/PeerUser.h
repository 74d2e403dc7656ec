#pragma once

#include <optional>
#include <sys/types.h>

namespace pryvane {

/// Who made the other end of a connected local socket; none where that cannot be told. CMake
/// chooses the file that does it.
[[nodiscard]] std::optional<uid_t> peerUser(int socket);

} // namespace pryvane
