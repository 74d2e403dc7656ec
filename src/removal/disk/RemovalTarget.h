#pragma once

#include "core/Files.h"
#include "platform/Removal.h"
#include "removal/disk/RemovalErrors.h"
#include "removal/disk/TreeRemoval.h"

#include <optional>
#include <string>

namespace pryvane {

class ProtectedPlaces;
class VolumeFileSystem;

/// Where an item really is at this moment: a name in a folder that is held open. All that follows
/// is done relative to that handle, so nothing that is renamed or linked meanwhile can lead it
/// elsewhere.
struct RemovalTarget {
    UniqueFd parent;
    std::string name; ///< as the disk spells it
    std::string path; ///< the whole path, as the disk spells it; empty where links lead there
    EntryFacts leaf;
    bool isGone = false;    ///< nothing is there
    RemovalFailure failure; ///< why it could not be found

    [[nodiscard]] bool found() const { return !isGone && !failure; }
};

/// Finds the item below the volume. Walks name by name without following a link; only where a link
/// is on the way does the item's trust decide whether it may be followed. Reads the disk as it is
/// now, never what was remembered of it.
[[nodiscard]] RemovalTarget findTarget(const VolumeFileSystem& disk, const RemovalItem& item);

/// Why what stands at the target is not to be removed; none where it may be.
[[nodiscard]] RemovalFailure refusalOf(const RemovalItem& item, const RemovalTarget& target,
                                       const EntryFacts& standing, const ProtectedPlaces& places);

/// Whether what stands at the target is something else than was asked for: not the folder that a
/// trailing slash names. A link there is what is meant, and goes itself.
[[nodiscard]] bool isOtherThanAsked(const RemovalItem& item, const EntryFacts& standing);

/// Carries out the removal of one item at its target.
class TargetRemoval {
public:
    TargetRemoval(const RemovalItem& item, const RemovalTarget& target,
                  const ProtectedPlaces& places, const StopFlag& stop)
        : m_item(item), m_target(target), m_places(places), m_stop(stop), m_tree(places, stop)
    {
    }

    [[nodiscard]] RemovalResult run();

private:
    /// None when nothing is left to do or nothing more can be done; else what came in between.
    [[nodiscard]] std::optional<TreeRemoval::Meddling> act();
    [[nodiscard]] std::optional<TreeRemoval::Meddling> actOnFolder();
    void sync();

    const RemovalItem& m_item;
    const RemovalTarget& m_target;
    const ProtectedPlaces& m_places;
    const StopFlag& m_stop;
    TreeRemoval m_tree;
    FolderHandle m_emptied; ///< the folder whose content was removed
};

} // namespace pryvane
