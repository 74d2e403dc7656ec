#include "core/HostKernel.h"
#include "volume/folders/FolderHandle.h"

#include <sys/mount.h>

namespace pryvane {

/// Device numbers do not tell: the folders of the data volume stand in the system's own as well.
bool isMountRoot(int folder)
{
    struct statfs fileSystem {};
    return fstatfs(folder, &fileSystem) == 0 && pathOfHandle(folder) == fileSystem.f_mntonname;
}

} // namespace pryvane
