#pragma once

#include "core/Result.h"

#include <string>
#include <string_view>

namespace pryvane {

/// Writes a file that only its owner may read, so that `path` holds either what it held before or
/// all of `bytes`, also after a power cut. Refuses to replace anything but a regular file.
[[nodiscard]] Result<Done> writeWholeFile(const std::string& path, std::string_view bytes);

} // namespace pryvane
