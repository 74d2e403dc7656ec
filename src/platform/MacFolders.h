#pragma once

#include <array>
#include <string_view>

namespace pryvane {

/// The folders that a Mac keeps in its root.
inline constexpr std::array<std::string_view, 4> kMacFolders = {"Library", "System", "Users",
                                                                "Applications"};

} // namespace pryvane
