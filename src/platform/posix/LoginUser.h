#pragma once

#include <string>

namespace pryvane {

/// The short name of whoever runs this process, as raw bytes; empty when the host does not know.
[[nodiscard]] std::string loginUser();

} // namespace pryvane
