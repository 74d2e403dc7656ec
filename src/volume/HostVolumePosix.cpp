#include "volume/HostVolume.h"

namespace pryvane {

std::unique_ptr<ConfinedRoot> kernelConfinement(int)
{
    return nullptr;
}

std::optional<BirthTime> birthTime(int)
{
    return std::nullopt;
}

} // namespace pryvane
