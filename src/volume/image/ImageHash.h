#pragma once

#include "core/Result.h"
#include "core/StopFlag.h"

#include <atomic>
#include <cstdint>
#include <string>

namespace pryvane {

/// The SHA-256 of an image's bytes, as 64 hexadecimal digits; of one in several files that of all
/// of them, one behind the other. Nothing is made of the bytes. `bytesRead` is for a display.
[[nodiscard]] Result<std::string> imageHash(const std::string& path, const StopFlag& stop,
                                            std::atomic<std::uint64_t>& bytesRead);

} // namespace pryvane
