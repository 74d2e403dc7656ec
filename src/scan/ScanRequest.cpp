#include "scan/ScanRequest.h"

#include "platform/Users.h"

#include <algorithm>

namespace pryvane {

std::vector<FileURL> ScanRequest::roots() const
{
    if (!root)
        return {};
    if (root->identity() != "Users")
        return {*root};
    std::vector<std::string> paths;
    paths.reserve(users.size());
    for (const std::string& user : users)
        paths.push_back(homePath(user) + "/");
    std::ranges::sort(paths);
    std::vector<FileURL> roots;
    for (const std::string& path : paths) {
        if (roots.empty() || !path.starts_with(roots.back().relativePath()))
            roots.push_back(FileURL::fileURLWithPath(path));
    }
    return roots;
}

} // namespace pryvane
