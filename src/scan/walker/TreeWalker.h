#pragma once

#include "core/StopFlag.h"
#include "core/tasks/WorkCrew.h"
#include "scan/walker/FoldersSeen.h"
#include "scan/walker/WalkTally.h"
#include "scan/walker/WalkTask.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

using WalkCrew = WorkCrew<WalkTask>;

/// What a walk counts and compares.
struct WalkRules {
    /// Hidden files, links and devices are entries too, as in a deep enumeration; otherwise folders
    /// and files whose name does not begin with a dot.
    bool allEntries = false;
    /// Compare regular files with these texts; without, the walk only counts.
    const PatternAutomaton* texts = nullptr;
    /// A folder without entries counts once more by itself.
    bool emptyFoldersCount = false;
    /// For the disk that the system runs from: other disks that are mounted on it are named and
    /// left out, and a folder that stands in several places is walked once.
    bool ownDiskOnly = false;

    [[nodiscard]] bool onlyCount() const { return texts == nullptr; }
};

/// One thread's part of a walk: depth first, with an own stack, holding few folders open. Gives
/// parts of its part away while other threads have none.
class TreeWalker {
public:
    struct Shared {
        const WalkRules& rules;
        const StopFlag& stop;
        WalkCrew& crew;
        GrowingCrew& walkers;
        WalkReport& report;
        WalkTally& tally;
        FoldersSeen& seen;
        std::size_t mostHandles; ///< of one thread
    };

    explicit TreeWalker(const Shared& shared) : m_shared(shared), m_rules(shared.rules) {}

    /// Walks tasks until none is left, or the walk is stopped.
    void run();

private:
    /// One folder between the task's own and the one the walk is at.
    struct Level {
        FolderHandle folder;
        std::size_t pathLength = 0; ///< of the folder's path with its slash
        PatternAutomaton::State state = 0;
        bool matched = false;
        bool unread = true;    ///< the folder holds entries that were not read yet
        bool hasAny = false;   ///< an entry that counts was read
        bool setAside = false; ///< closed for want of handles while there is work left in it
        EntryList entries;
        std::optional<WalkReport::Place> after; ///< what the rest belongs to, behind given parts
    };

    void walk(WalkTask task);
    void step();
    void enter(std::string_view name);
    [[nodiscard]] bool isLeftOut(const FolderHandle& folder, const FolderId& id);
    void leave();
    void read(Level& level, std::size_t mostBytes);
    [[nodiscard]] std::int64_t takeIn(Level& level);

    [[nodiscard]] FolderHandle openFolder(const char* name);
    void keepWithin(std::size_t handles);
    void setAside(Level& level);
    void close(Level& level);
    void returnTo(std::size_t index, FolderHandle child);
    [[nodiscard]] FolderHandle openedFromAbove(std::size_t index) const;

    void giveWork();
    [[nodiscard]] std::optional<WalkTask> splitOff();
    [[nodiscard]] WalkReport::Place placeAtEndOf(std::size_t index) const;

    [[nodiscard]] bool isMatch(const Level& level, std::string_view name) const;
    void addMatch(std::string_view name);
    void refuse(std::size_t pathLength, std::string reason);
    void refuse(std::size_t pathLength, int error);
    [[nodiscard]] Level& top() { return m_levels[m_depth - 1]; }

    const Shared m_shared;
    const WalkRules& m_rules;
    FolderBatch m_batch;
    DiskWaits m_waits;
    std::string m_path; ///< of the folder the walk is at, with its slash
    Ancestry m_ancestry;
    WalkReport::Place m_place;
    std::vector<Level> m_levels; ///< the first m_depth are in use; the others keep their memory
    std::size_t m_depth = 0;
    std::size_t m_above = 0;      ///< folders in m_ancestry above the task's own
    std::size_t m_open = 0;       ///< handles held
    std::size_t m_lowestOpen = 1; ///< no level from 1 up to here holds a handle
    std::size_t m_lowestWork = 0; ///< no level below this one has folders left
    std::size_t m_setAside = 0;   ///< levels
};

} // namespace pryvane
