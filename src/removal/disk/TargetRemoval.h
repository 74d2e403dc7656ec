#pragma once

#include "removal/disk/RemovalTarget.h"
#include "removal/disk/TreeRemoval.h"

#include <optional>

namespace pryvane {

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
