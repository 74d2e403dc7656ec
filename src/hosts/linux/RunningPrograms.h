#pragma once

#include <string>
#include <vector>

namespace pryvane {

/// The display names of the known applications that run on this host ("Google Chrome"), each once,
/// in the order of the table. A process is known by the name of its program or, where another
/// user's program may not be seen, by its own. `processes` is the folder of all processes.
[[nodiscard]] std::vector<std::string>
runningApplicationsOfHost(const std::string& processes = "/proc");

} // namespace pryvane
