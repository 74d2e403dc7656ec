#pragma once

#include "removal/disk/ConfinedWork.h"

namespace pryvane {

/// Gives up, for the calling thread and for good, every right to change anything that does not lie
/// below the open folders, and to make or write anything there. Where the kernel cannot do that,
/// nothing is given up.
[[nodiscard]] ConfinementState confineThisThread(std::span<const int> folders);

} // namespace pryvane
