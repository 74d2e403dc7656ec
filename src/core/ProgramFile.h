#pragma once

#include "core/Result.h"

#include <string>

namespace pryvane {

/// Absolute path of the file that this process runs, without links in it, whatever folder and name
/// it was started by. What belongs to the program is found from here. Callable from any thread.
[[nodiscard]] Result<std::string> programFile();

/// The path of `name`, which may begin with "../", counted from the program's folder.
[[nodiscard]] Result<std::string> besideProgram(const std::string& name);

} // namespace pryvane
