#pragma once

#include "core/Result.h"

#include <string>
#include <string_view>

namespace pryvane {

/// The variable's value, as raw bytes; empty where it is not set.
[[nodiscard]] std::string environmentValue(const char* name);

/// This user's home, as HOME or else the list of users says.
[[nodiscard]] std::string homeFolder();

/// `offered` where that is a folder that nobody but this user can enter, else "run" in the data
/// folder, made where it is missing. `advice` ends the words of an error.
[[nodiscard]] Result<std::string> privateRuntimeFolder(const std::string& offered,
                                                       const std::string& dataFolder,
                                                       std::string_view advice);

} // namespace pryvane
