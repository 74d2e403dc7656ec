#pragma once

#include "platform/Removal.h"

#include <string>

namespace pryvane {

struct RemovalFailure {
    RemovalObstacle obstacle = RemovalObstacle::None;
    std::string detail;

    explicit operator bool() const { return obstacle != RemovalObstacle::None; }
};

/// Why removing that name from the open folder failed with that errno.
[[nodiscard]] RemovalFailure failureOf(int error, int folder, const std::string& name);

/// Why removing that name from the open folder would fail, as far as can be told beforehand.
[[nodiscard]] RemovalFailure foreseenFailure(int folder, const std::string& name);

} // namespace pryvane
