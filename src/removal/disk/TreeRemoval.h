#pragma once

#include "core/StopFlag.h"
#include "removal/disk/NameList.h"
#include "removal/disk/ProtectedPlaces.h"
#include "removal/disk/RemovalErrors.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Removes what lies in folders from the bottom up, with an own stack and few folders open,
/// following no link and crossing no mount. What cannot be removed is left, the rest goes.
class TreeRemoval {
public:
    TreeRemoval(const ProtectedPlaces& places, const StopFlag& stop)
        : m_places(places), m_stop(stop)
    {
    }

    /// Removes all that the open folder holds. Whether it held anything when it was read: it may
    /// have been filled again, and another call tells.
    bool empty(FolderHandle folder);

    /// Removes what has that name in an open folder, unless it is a folder: then false.
    [[nodiscard]] bool removeFile(int folder, const std::string& name);

    /// Removes a folder that is empty: 0, also where it was gone, or else the errno.
    [[nodiscard]] int removeFolder(int folder, const std::string& name);

    /// What somebody else did meanwhile.
    enum class Meddling : std::uint8_t { Filled, Exchanged };

    /// Whether it may be tried once more. When that was often enough, since whoever does it may go
    /// on without end, it has failed, and the failure tells what was seen most.
    [[nodiscard]] bool mayRetry(Meddling seen, std::string_view detail = {});

    /// Notes why that name in an open folder could not be removed.
    void failed(int error, int folder, const std::string& name);
    void failed(RemovalFailure failure);

    /// The first thing that was in the way; none when all went.
    [[nodiscard]] const RemovalFailure& failure() const { return m_failure; }
    [[nodiscard]] std::uint64_t entriesRemoved() const { return m_entries; }
    [[nodiscard]] std::int64_t bytesRemoved() const { return m_bytes; }

private:
    static constexpr int kMostRetries = 1000;

    /// A folder on the way down: read when entered, so that its handle may be closed and opened
    /// again.
    struct Level {
        FolderHandle folder;
        std::string name; ///< in the level above
        FolderId id;
        NameList subfolders;    ///< still to be removed
        bool holdsRest = false; ///< something in it could not be removed
        bool readWhole = false;
        bool refilled = false; ///< it, or one above it, was read whole before
    };

    bool enter(FolderHandle folder, std::string name);
    bool read(Level& level);
    [[nodiscard]] std::size_t readNames(Level& level);
    void descend(Level& level);
    [[nodiscard]] bool hoist(const std::string& name);
    void leave();
    [[nodiscard]] bool reopen(const FolderHandle& child);
    void retry(Level& level, const std::string& name, Meddling seen);

    const ProtectedPlaces& m_places;
    const StopFlag& m_stop;
    FolderBatch m_batch;
    NameList m_files;
    std::vector<Level> m_levels;
    std::uint64_t m_hoisted = 0;
    int m_retries = 0;
    int m_exchanges = 0;      ///< of the retries
    std::size_t m_refill = 0; ///< entries found in folders that had been read whole
    FolderId m_lastEmptied;   ///< the last folder that was read whole
    RemovalFailure m_failure;
    std::uint64_t m_entries = 0;
    std::int64_t m_bytes = 0;
};

} // namespace pryvane
