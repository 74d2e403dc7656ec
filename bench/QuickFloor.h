#pragma once

#include <string>
#include <vector>

namespace pryvane::bench {

/// The bare cost of a quick scan's system calls: opens and reads the folders, then asks for each
/// location once, all below one root handle and with nothing done about the answers. Returns the
/// number of bytes and hits, so that nothing is optimised away.
[[nodiscard]] long quickScanFloor(const std::string& volume,
                                  const std::vector<std::string>& folders,
                                  const std::vector<std::string>& locations);

} // namespace pryvane::bench
