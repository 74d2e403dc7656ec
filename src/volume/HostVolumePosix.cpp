#include "volume/HostVolume.h"

namespace pryvane {

std::unique_ptr<ConfinedRoot> kernelConfinement(int, ImpliedLinks)
{
    return nullptr;
}

bool leavesOutBlocks(int)
{
    return false;
}

std::optional<BirthTime> birthTime(int)
{
    return std::nullopt;
}

} // namespace pryvane
