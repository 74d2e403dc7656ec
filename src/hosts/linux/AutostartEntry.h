#pragma once

#include "core/Result.h"

#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// A command as the Exec value of a desktop entry: each argument quoted, field codes and escapes
/// taken out of force. The error names an argument that no desktop entry can hold.
[[nodiscard]] Result<std::string> execValue(const std::vector<std::string>& command);

/// The text of the entry that runs the command at login.
[[nodiscard]] Result<std::string> autostartEntry(std::string_view name,
                                                 const std::vector<std::string>& command);

} // namespace pryvane
