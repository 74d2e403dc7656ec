#include "hosts/mac/CloudFiles.h"

#include <sys/resource.h>

namespace pryvane {

bool keepCloudFilesAway()
{
    return setiopolicy_np(IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES, IOPOL_SCOPE_PROCESS,
                          IOPOL_MATERIALIZE_DATALESS_FILES_OFF) == 0;
}

} // namespace pryvane
