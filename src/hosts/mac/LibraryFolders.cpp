#include "hosts/mac/LibraryFolders.h"

#include "hosts/posix/UserFolders.h"

#include <climits>

#include <array>
#include <unistd.h>

namespace pryvane::library {

std::string dataFolder()
{
    if (std::string folder = environmentValue("PRYVANE_DATA_DIR"); !folder.empty())
        return folder;
    return homeFolder() + "/Library/Application Support/Pryvane";
}

std::string cachesFolder()
{
    return homeFolder() + "/Library/Caches/com.torvell.Pryvane";
}

std::string temporaryFolder()
{
    std::array<char, PATH_MAX> path{};
    const std::size_t length = confstr(_CS_DARWIN_USER_TEMP_DIR, path.data(), path.size());
    if (length == 0 || length > path.size())
        return {};
    std::string folder(path.data());
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

} // namespace pryvane::library
