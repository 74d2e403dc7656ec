#pragma once

#include "platform/posix/removal/ConfinedWork.h"

namespace pryvane {

/// Gives up, for the calling thread and for good, every right to change anything that does not lie
/// below the open folders. Where the kernel cannot do that, nothing is given up.
[[nodiscard]] KernelConfinement confineThisThread(std::span<const int> writableFolders);

} // namespace pryvane
