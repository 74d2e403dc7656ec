// Grants the window the home of alice on a volume, as the welcome does.
//   grant_access VOLUME DATA-FOLDER
#include "hosts/posix/FolderGrants.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
#include "store/SqliteUserDefaults.h"
#include "volume/VolumeFileSystem.h"

int main(int argc, char** argv)
{
    using namespace pryvane;
    if (argc != 3)
        return 2;
    SilentLog log;
    auto disk = VolumeFileSystem::open(argv[1]);
    auto store = SqliteUserDefaults::open(argv[2], log);
    if (!disk || !store)
        return 1;
    FolderGrants grants(**disk);
    const auto token = grants.make(FileURL::fileURLWithPath("/Users/alice"));
    return token && store->defaults->setObject(preferences::kSaveDirectory, *token) &&
                   store->defaults->set(preferences::kSandboxingDone, false)
               ? 0
               : 1;
}
