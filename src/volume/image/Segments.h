#pragma once

#include <string>
#include <vector>

namespace pryvane {

/// The files that an image consists of, by its first one: "x.E01", "x.E02", … ; "x.001", "x.002",
/// …; "x.aa", "x.ab", …; any other is one file. Told by names alone.
[[nodiscard]] std::vector<std::string> imageSegments(const std::string& first);

} // namespace pryvane
