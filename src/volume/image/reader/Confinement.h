#pragma once

#include <string>
#include <vector>

namespace pryvane {

/// From here on this process can read those files, the descriptors it holds and nothing else, has
/// no network, starts no program and takes bounded memory and time. Where the kernel has no
/// Landlock, any file can still be opened for reading. Empty, or what the kernel refused.
[[nodiscard]] std::string confineTo(const std::vector<std::string>& files);

} // namespace pryvane
