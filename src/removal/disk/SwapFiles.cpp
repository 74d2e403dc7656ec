#include "core/HostKernel.h"
#include "removal/disk/HostRemoval.h"

#include <sys/stat.h>

namespace pryvane {

bool isSwappedTo(const FolderId& file)
{
    for (const std::string& path : swapFiles()) {
        struct stat data {};
        if (stat(path.c_str(), &data) == 0 && folderIdOf(data) == file)
            return true;
    }
    return false;
}

} // namespace pryvane
