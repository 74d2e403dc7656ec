#include "removal/disk/HostRemoval.h"
#include "volume/AllocatedSize.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

std::optional<EntryFacts> factsOf(int folder, const std::string& name)
{
    struct stat data {};
    struct stat above {};
    if ((name.empty() ? fstat(folder, &data)
                      : fstatat(folder, name.c_str(), &data, AT_SYMLINK_NOFOLLOW)) != 0 ||
        fstat(folder, &above) != 0)
        return std::nullopt;
    EntryFacts facts;
    facts.id = folderIdOf(data);
    facts.kind = kindOfMode(data.st_mode);
    if (facts.kind != FileKind::Folder)
        facts.bytes = FileSizes().bytes(data, folder);
    facts.owner = data.st_uid;
    facts.isSticky = facts.kind == FileKind::Folder && (data.st_mode & S_ISVTX) != 0;
    facts.isLocked = isLocked(data);
    facts.isMountRoot = data.st_dev != above.st_dev;
    return facts;
}

FolderHandle openBelow(int folder, const std::string& name)
{
    FolderHandle handle = FolderHandle::openIn(folder, name.c_str());
    struct stat above {};
    if (!handle || (fstat(folder, &above) == 0 && folderIdOf(above).device == handle.id().device))
        return handle;
    handle.close();
    errno = EXDEV;
    return handle;
}

} // namespace pryvane
