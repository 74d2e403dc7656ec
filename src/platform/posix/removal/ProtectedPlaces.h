#pragma once

#include "platform/posix/folders/FolderHandle.h"

#include <string>
#include <vector>

namespace pryvane {

class VolumeFileSystem;

/// The folders that are never removed, whatever a list says: known by what they are, not by what
/// they are called, so that no spelling, link or second mount gets around it.
class ProtectedPlaces {
public:
    /// `ownFolders` are host folders of the program's own; they and all above them are protected.
    ProtectedPlaces(const VolumeFileSystem& disk, const std::vector<std::string>& ownFolders);

    [[nodiscard]] bool contains(const FolderId& folder) const;
    [[nodiscard]] bool isRoot(const FolderId& folder) const;

private:
    void add(const FolderHandle& folder);
    void addChildren(const FolderHandle& folder);
    void addWithAllAbove(FolderHandle folder);

    FolderId m_root;
    std::vector<FolderId> m_places; ///< sorted
};

} // namespace pryvane
