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
    if (const Presence way = leadsTo(above(path)); way != Presence::Present)
        return way == Presence::Unknown ? FileKind::Unknown : FileKind::Missing;
    const std::string_view name = url.lastPathComponent();
    if (name == "." || name == "..")
        return FileKind::Missing;
    const FileKind kind = m_disk.kind(FileURL::fileURLWithPath(path));
    if (url.mustBeFolder() && kind != FileKind::Folder && kind != FileKind::Unknown)
        return FileKind::Missing;
    return kind;
}

FolderListing DirectWay::list(const FileURL& folder)
{
    const FileKind there = kind(folder);
    if (there == FileKind::Folder)
        return m_disk.list(folder);
    FolderListing nothing;
    if (there == FileKind::Unknown) {
        nothing.status = ListStatus::Refused;
        nothing.reason = "a folder on the way cannot be searched";
    }
    return nothing;
}

/// Asked for one folder after the other from the root down, so that none is reached by a link.
Presence DirectWay::leadsTo(const std::string& folder)
{
    std::string passed;
    for (std::size_t end = 0; end < folder.size();) {
        const std::size_t start = end + 1;
        end = std::min(folder.find('/', start), folder.size());
        passed = folder.substr(0, end);
        const std::string_view name = std::string_view(folder).substr(start, end - start);
        const auto [entry, isNew] = m_folders.try_emplace(passed, Presence::Absent);
        if (isNew && !name.empty() && name != "." && name != "..") {
            const FileKind kind = m_disk.kind(FileURL::fileURLWithPath(passed));
            entry->second = kind == FileKind::Folder    ? Presence::Present
                            : kind == FileKind::Unknown ? Presence::Unknown
                                                        : Presence::Absent;
        }
        if (entry->second != Presence::Present)
            return entry->second;
    }
    return Presence::Present;
}

} // namespace pryvane
