#pragma once

#include "core/StopFlag.h"
#include "findings/ScanCoverage.h"
#include "inventory/facts/Facts.h"
#include "inventory/facts/Sources.h"
#include "platform/FileSystem.h"
#include "platform/Users.h"

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

/// A home to be looked at: whose, and where it lies on the volume.
struct FactHome {
    std::string user; ///< as Users.h names them
    std::string path;
};

struct FactHomes {
    std::vector<FactHome> homes;
    std::vector<Refusal> refused; ///< what would tell of more homes, and could not be read
};

/// The homes of those users, wherever they lie; everyone's are root's, too, where there is one.
[[nodiscard]] FactHomes factHomes(FileSystem& disk, const UserChoice& whose);

/// Reads what the disk says, source by source (`factSources()`), and looks whether each program is
/// there. Opens nothing beside the sources and writes nothing. What cannot be read or is not
/// understood is named in `sources`; the others are still read. Blocks; callable from any thread. A
/// stop makes for partial lists.
[[nodiscard]] Facts gatherFacts(FileSystem& disk, const FactHomes& homes, const FactKinds& kinds,
                                const StopFlag& stop);

} // namespace pryvane
