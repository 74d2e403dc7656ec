#pragma once

#include "core/StopFlag.h"
#include "findings/ScanCoverage.h"
#include "platform/FileSystem.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pryvane {

enum class ScanReach : std::uint8_t { Quick, Deep };

/// What the disk's source names as deleted and such a scan would flag for these users if it were
/// there: at most the first 1,000 of it. Any thread.
[[nodiscard]] std::vector<DeletedName> deletedNames(const FileSystem& disk,
                                                    const std::vector<std::string>& users,
                                                    ScanReach reach, const StopFlag& stop);

} // namespace pryvane
