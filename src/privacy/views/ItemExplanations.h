#pragma once

#include "privacy/ToolGroup.h"

#include <QString>

namespace pryvane {

/// What an item holds and what clearing it means, in a sentence or two.
[[nodiscard]] QString explanationOf(const ToolItem& item);

} // namespace pryvane
