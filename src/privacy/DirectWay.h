#pragma once

#include "platform/FileSystem.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace pryvane {

/// Looks only where a path leads by itself. What lies behind a link may be anybody's, so it is not
/// what the path's owner keeps there. Remembers the folders it passed; for one thread.
class DirectWay {
public:
    /// The disk must outlive it.
    explicit DirectWay(FileSystem& disk) : m_disk(disk) {}

    /// What stands at the path's end, itself perhaps a link. Missing also where a link, "." or ".."
    /// is on the way, and where the path ends in a slash and no folder stands there. Unknown where
    /// a folder on the way cannot be searched.
    [[nodiscard]] FileKind kind(const FileURL& url);

    /// The entries of a folder. Missing where the path does not lead to one by itself, refused
    /// where that cannot be told.
    [[nodiscard]] FolderListing list(const FileURL& folder);

    [[nodiscard]] bool isFolder(const FileURL& url) { return kind(url) == FileKind::Folder; }

    void forget() { m_folders.clear(); }

private:
    [[nodiscard]] Presence leadsTo(const std::string& folder);

    FileSystem& m_disk;
    std::unordered_map<std::string, Presence> m_folders;
};

} // namespace pryvane
