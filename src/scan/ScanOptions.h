#pragma once

#include "platform/FileURL.h"

#include <optional>
#include <string>

namespace pryvane {

/// Whose scan it is, and what was settled before it starts.
struct ScanOptions {
    std::string user; ///< login short name, as raw bytes
    std::optional<FileURL>
        grantedRoot; ///< a root that needs no question: the call itself grants it

    std::optional<std::string> checkSubDir = {}; ///< "y" or "n" in place of the preference

    [[nodiscard]] std::string homePath() const { return "/Users/" + user; }
    [[nodiscard]] FileURL homeRoot() const { return FileURL::fileURLWithPath(homePath() + "/"); }
};

} // namespace pryvane
