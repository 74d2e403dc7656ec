#pragma once

#include <string>
#include <string_view>

namespace pryvane {

/// The SHA-256 of the bytes as 64 lower-case hexadecimal digits. Tells long texts apart; no secret
/// is kept with it.
[[nodiscard]] std::string sha256Hex(std::string_view bytes);

} // namespace pryvane
