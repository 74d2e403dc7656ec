#pragma once

#include "core/Result.h"

#include <string>

namespace pryvane {

/// A folder that nobody but this user can enter, for sockets and locks: XDG_RUNTIME_DIR where it is
/// one, else "run" in the data folder, made where it is missing. As a host path.
[[nodiscard]] Result<std::string> runtimeFolder(const std::string& dataFolder);

} // namespace pryvane
