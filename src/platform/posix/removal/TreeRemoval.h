#pragma once

#include "core/StopFlag.h"
#include "platform/Removal.h"
#include "platform/posix/folders/Ancestry.h"
#include "platform/posix/folders/FolderHandle.h"
#include "platform/posix/removal/ProtectedPlaces.h"
#include "platform/posix/removal/RemovalErrors.h"

#include <string>
#include <sys/stat.h>
#include <unordered_set>
#include <vector>

namespace pryvane {

/// Empties one folder from the bottom up, with an own stack and few folders open, following no
/// link and crossing no mount. What cannot be removed is left and counted; the rest goes.
class TreeRemoval {
public:
    TreeRemoval(const ProtectedPlaces& places, const StopFlag& stop)
        : m_places(places), m_stop(stop)
    {
    }

    /// Removes all that the open folder holds.
    void empty(FolderHandle folder);

    /// Removes one entry of an open folder that is not a folder itself; false where it is one.
    [[nodiscard]] bool removeFile(int folder, const std::string& name);

    /// The first thing that was in the way; none when all went.
    [[nodiscard]] const RemovalFailure& failure() const { return m_failure; }
    [[nodiscard]] std::uint64_t entriesRemoved() const { return m_entries; }
    [[nodiscard]] std::int64_t bytesRemoved() const { return m_bytes; }

private:
    /// A folder on the way down: read whole, so that its handle may be closed and opened again.
    struct Level {
        FolderHandle folder;
        std::string name; ///< in the level above
        FolderId id;
        std::vector<std::string> subfolders; ///< still to be removed, the last first
        int readings = 0;
        bool holdsRest = false; ///< something in it could not be removed
    };

    void enter(FolderHandle folder, std::string name);
    void read(Level& level);
    void descend(Level& level);
    void leave();
    [[nodiscard]] bool reopenAbove(const FolderHandle& child);
    void failed(RemovalFailure failure);

    const ProtectedPlaces& m_places;
    const StopFlag& m_stop;
    FolderBatch m_batch;
    std::vector<Level> m_levels;
    RemovalFailure m_failure;
    std::uint64_t m_entries = 0;
    std::int64_t m_bytes = 0;
};

} // namespace pryvane
