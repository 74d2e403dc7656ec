#include "volume/folders/FolderHandle.h"

namespace pryvane {

/// A mount of the same device cannot be seen so.
bool isMountRoot(int folder)
{
    struct stat data {
    }, above{};
    return fstat(folder, &data) == 0 && fstatat(folder, "..", &above, 0) == 0 &&
           data.st_dev != above.st_dev;
}

} // namespace pryvane
