#pragma once

#include <string>
#include <vector>

namespace pryvane {

/// The display names of the known applications that run on this host ("Google Chrome"), each once,
/// in the order of their table, told by the files of their programs.
[[nodiscard]] std::vector<std::string> runningApplicationsOfHost();

} // namespace pryvane
