#pragma once

#include "core/Result.h"

#include <string>
#include <vector>

/// What only the running system can tell. Each system's folder of hosts/ has its own
/// answers, and CMake links those of the system that is built for. Callable from any thread.
namespace pryvane {

/// Absolute path of the file that this process runs, without links in it, whatever folder and name
/// it was started by.
[[nodiscard]] Result<std::string> programFile();

/// The path of an open file or folder, without a link on the way; empty where it cannot be told.
[[nodiscard]] std::string pathOfHandle(int fd);

/// The files that the system swaps to, which it does not let go.
[[nodiscard]] std::vector<std::string> swapFiles();

/// The name of the user's locale for dates, as newlocale() takes it; empty where the environment
/// names it.
[[nodiscard]] std::string userLocale();

} // namespace pryvane
