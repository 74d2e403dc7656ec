#pragma once

#include "core/Files.h"

#include <string>

namespace pryvane::test {

/// A socket that listens at that path of the host, or none.
[[nodiscard]] UniqueFd listeningAt(const std::string& path);

/// A socket that is connected to whoever listens there, or none.
[[nodiscard]] UniqueFd connectedTo(const std::string& path);

} // namespace pryvane::test
