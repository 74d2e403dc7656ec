#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Comparing names as a Mac's disk does: letter case and Unicode normal form do not matter. A name
/// that is not UTF-8 is only its bytes.
namespace pryvane {

/// The form in which all spellings of one name are the same bytes.
[[nodiscard]] std::string foldedName(std::string_view name);

/// foldedName(a) == foldedName(b); without making either where both are ASCII.
[[nodiscard]] bool sameFoldedName(std::string_view a, std::string_view b);

/// A hash of foldedName(name). The key keeps a disk's author from choosing names that collide.
[[nodiscard]] std::uint64_t foldedHash(std::string_view name, std::uint64_t key);

/// A hash of the name as it stands, with such a key.
[[nodiscard]] std::uint64_t exactHash(std::string_view name, std::uint64_t key);

} // namespace pryvane
