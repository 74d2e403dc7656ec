#pragma once

#include "platform/Removal.h"
#include "platform/posix/UniqueFd.h"

#include <string>
#include <sys/stat.h>

namespace pryvane {

class VolumeFileSystem;

/// Where an item really is at this moment: a name in a folder that is held open. All that follows
/// is done relative to that handle, so nothing that is renamed or linked meanwhile can lead it
/// elsewhere.
struct RemovalTarget {
    UniqueFd parent;
    std::string name; ///< as the disk spells it
    struct stat leaf {};
    bool isGone = false; ///< nothing is there
    RemovalObstacle obstacle = RemovalObstacle::None;
    std::string detail;

    [[nodiscard]] bool isFolder() const { return S_ISDIR(leaf.st_mode); }
};

/// Finds the item below the volume. Walks name by name without following a link; only where a link
/// is on the way does the item's trust decide whether it may be followed. Reads the disk as it is
/// now, never what was remembered of it.
[[nodiscard]] RemovalTarget findTarget(const VolumeFileSystem& disk, const RemovalItem& item);

} // namespace pryvane
