#include "removal/disk/ConfinedWork.h"

namespace pryvane {

KernelConfinement kernelConfinementOfRemoval()
{
    return KernelConfinement::NotAvailable;
}

std::string_view kernelConfinementText(TriedOn)
{
    return "not confined: this system has no Landlock";
}

ConfinementState confineThisThread(std::span<const int>)
{
    return {};
}

} // namespace pryvane
