#include "removal/disk/HostRemoval.h"

namespace pryvane {

bool isLocked(const struct stat&)
{
    return false;
}

} // namespace pryvane
