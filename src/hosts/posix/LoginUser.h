#pragma once

#include <string>
#include <string_view>

namespace pryvane {

/// The short name of whoever runs this process, as raw bytes; empty when the host does not know.
[[nodiscard]] std::string loginUser();

/// A short name is one path component; anything else would point a scan somewhere else.
[[nodiscard]] bool isShortName(std::string_view user);

/// What to tell whoever gave such a name.
[[nodiscard]] std::string notAShortName(std::string_view user);

} // namespace pryvane
