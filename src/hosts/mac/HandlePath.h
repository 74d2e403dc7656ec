#pragma once

#include <string>

namespace pryvane {

/// The host path of an open folder, as the kernel tells it, without a link on the way; empty where
/// it cannot be told.
[[nodiscard]] std::string pathOfHandle(int folder);

} // namespace pryvane
