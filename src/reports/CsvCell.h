#pragma once

#include <string>
#include <string_view>

namespace pryvane {

/// A cell of foreign text (RFC 4180): harmless to look at, and no formula to any spreadsheet: one
/// that begins like a formula gets an apostrophe in front.
[[nodiscard]] std::string csvCell(std::string_view bytes);

} // namespace pryvane
