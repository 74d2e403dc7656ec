#pragma once

#include <string>

namespace pryvane {

/// What an errno value means, in words that can stand inside a sentence: "permission denied".
[[nodiscard]] std::string errorText(int error);

/// Whether that error says that nothing is there, as opposed to "could not be told". Too many links
/// in a row are a dangling link; a name that is too long for the system cannot exist.
[[nodiscard]] bool meansAbsent(int error);

} // namespace pryvane
