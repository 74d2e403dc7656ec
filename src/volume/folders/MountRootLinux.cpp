#include "volume/folders/FolderHandle.h"

namespace pryvane {

bool isMountRoot(int folder)
{
    struct statx data {};
    return statx(folder, "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, STATX_TYPE, &data) == 0 &&
           (data.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

} // namespace pryvane
