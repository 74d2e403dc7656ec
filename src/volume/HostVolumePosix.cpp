#include "volume/HostVolume.h"

namespace pryvane {

std::unique_ptr<ConfinedRoot> kernelConfinement(int, ImpliedLinks)
{
    return nullptr;
}

} // namespace pryvane
