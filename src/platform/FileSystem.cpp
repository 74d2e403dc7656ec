#include "platform/FileSystem.h"

namespace pryvane {

std::vector<std::string> FileSystem::homes()
{
    std::vector<std::string> names;
    for (const FolderEntry& entry : list(FileURL::fileURLWithPath("/Users")).entries) {
        const bool isHome = entry.kind == FileKind::Folder && entry.name != "Shared" &&
                            !entry.name.starts_with('.');
        if (isHome)
            names.push_back(entry.name);
    }
    return names;
}

} // namespace pryvane
