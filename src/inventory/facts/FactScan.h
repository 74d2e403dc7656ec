#pragma once

#include "core/StopFlag.h"
#include "inventory/facts/Facts.h"
#include "inventory/facts/Sources.h"
#include "platform/FileSystem.h"

#include <string>
#include <vector>

namespace pryvane {

/// Which lists of facts are wanted.
struct FactKinds {
    bool permissions = false;
    bool startUp = false;
    bool remoteAccess = false;

    [[nodiscard]] bool any() const { return permissions || startUp || remoteAccess; }
    [[nodiscard]] static FactKinds all() { return {true, true, true}; }
};

/// A home to be looked at: the account's name and where it lies on the volume.
struct FactHome {
    std::string user;
    std::string path;
};

/// The homes of a disk, that of root among them where there is one.
[[nodiscard]] std::vector<FactHome> factHomes(FileSystem& disk);

/// Reads what the disk says, source by source (`factSources()`), and looks whether each program is
/// there. Opens nothing beside the sources and writes nothing. What cannot be read or is not
/// understood is named in `sources`; the others are still read. Blocks; callable from any thread. A
/// stop makes for partial lists.
[[nodiscard]] Facts gatherFacts(FileSystem& disk, const std::vector<FactHome>& homes,
                                const FactKinds& kinds, const StopFlag& stop);

} // namespace pryvane
