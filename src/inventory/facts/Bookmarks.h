#pragma once

#include <string>
#include <string_view>

namespace pryvane {

/// The path that a bookmark, or an alias, of a Mac leads to; empty where it is not understood. Pure
/// functions over foreign bytes.
[[nodiscard]] std::string pathOfBookmark(std::string_view bookmark);
[[nodiscard]] std::string pathOfAlias(std::string_view alias);

} // namespace pryvane
