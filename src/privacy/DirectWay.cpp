#include "privacy/DirectWay.h"

#include <algorithm>
#include <string_view>

namespace pryvane {

namespace {

/// The path without its last name; empty for what lies in the root.
std::string above(std::string_view path)
{
    return std::string(path.substr(0, path.rfind('/')));
}

} // namespace

FileKind DirectWay::kind(const FileURL& url)
{
    const std::string path = url.absolutePath();
    if (!leadsTo(above(path)))
        return FileKind::Missing;
    const std::string_view name = url.lastPathComponent();
    if (name == "." || name == "..")
        return FileKind::Missing;
    const FileKind kind = m_disk.kind(FileURL::fileURLWithPath(path));
    return url.mustBeFolder() && kind != FileKind::Folder ? FileKind::Missing : kind;
}

std::vector<FolderEntry> DirectWay::list(const FileURL& folder)
{
    return isFolder(folder) ? m_disk.list(folder).entries : std::vector<FolderEntry>();
}

/// Asked for one folder after the other from the root down, so that none is reached by a link.
bool DirectWay::leadsTo(const std::string& folder)
{
    std::string passed;
    for (std::size_t end = 0; end < folder.size();) {
        const std::size_t start = end + 1;
        end = std::min(folder.find('/', start), folder.size());
        passed = folder.substr(0, end);
        const std::string_view name = std::string_view(folder).substr(start, end - start);
        const auto [entry, isNew] = m_folders.try_emplace(passed, false);
        if (isNew)
            entry->second = !name.empty() && name != "." && name != ".." &&
                            m_disk.kind(FileURL::fileURLWithPath(passed)) == FileKind::Folder;
        if (!entry->second)
            return false;
    }
    return true;
}

} // namespace pryvane
