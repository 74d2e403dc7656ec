#pragma once

#include "core/UniqueFd.h"
#include "removal/disk/HostRemoval.h"

#include <string>
#include <vector>

namespace pryvane {

class VolumeFileSystem;

/// The folders that are never removed, whatever a list says: known by what they are, not by what
/// they are called, so that no spelling, link or second mount gets around it.
class ProtectedPlaces {
public:
    /// `ownFolders` are host folders of the program's own; they, what lies in them and all above
    /// them is protected.
    ProtectedPlaces(const VolumeFileSystem& disk, const std::vector<std::string>& ownFolders);

    /// Whether it is the volume's root, a top-level folder, a home, a folder of our own, or above
    /// one of these.
    [[nodiscard]] bool contains(const FolderId& folder) const;

    /// Whether an entry of that name and kind is to stay in that folder.
    [[nodiscard]] bool keepsIn(const FolderId& folder, const std::string& name,
                               FileKind kind) const;

private:
    void addEntriesOf(const VolumeFileSystem& disk, const std::string& path, UniqueFd folder);
    void addWithAllAbove(UniqueFd folder);

    FolderId m_root;
    std::vector<FolderId> m_homesIn; ///< folders that hold homes
    std::vector<FolderId> m_own;
    std::vector<FolderId> m_places; ///< sorted
};

} // namespace pryvane
