#pragma once

#include "platform/FileSystem.h"
#include "platform/FileURL.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// How much of what stands at a location is to go.
enum class RemovalScope : std::uint8_t {
    Item,       ///< the file, the link itself, or the folder with all it holds
    ContentsOf, ///< what a folder holds; the folder itself stays
};

/// Whether links on the way to an item may be followed.
enum class LinkTrust : std::uint8_t {
    AsSeen, ///< a link may be on the way where it leads to the folder in which the item was seen
    SystemsOwn, ///< only the system's own links: etc, tmp and var into private
};

/// One location to remove.
struct RemovalItem {
    FileURL url;
    /// Where a scan of this run found it; none for private data and for a stored report's records.
    std::optional<Sighting> seen;
    RemovalScope scope = RemovalScope::Item;
    FileKind kind = FileKind::Unknown; ///< what it was when it was found
    /// What it is removed as, such as a privacy item's name; kept in the journal. May be empty.
    std::string purpose = {};
    /// Its absolute path as the disk spelled it when it was found: what is spelled otherwise is
    /// another item, and stays. Empty: any spelling that the disk takes for the same will do.
    std::string spelling = {};

    [[nodiscard]] LinkTrust linkTrust() const
    {
        return seen ? LinkTrust::AsSeen : LinkTrust::SystemsOwn;
    }
};

/// Why an item cannot be, or was not, removed whole.
enum class RemovalObstacle : std::uint8_t {
    None,
    ProtectedPlace, ///< the root, a home, a top-level folder, the program's own store, "", ".",
                    ///< ".."
    LinkOnTheWay,   ///< a link on the way leads elsewhere than when the item was found
    KindChanged,    ///< running as root, what was a file is a folder now
    MountPoint,     ///< it is one, or one lies inside
    ReadOnlyVolume,
    NotPermitted, ///< the folder that holds it, sticky or not, may not be changed by this user
    Locked,       ///< carries the immutable or append-only mark
    Busy,
    KeepsRefilling, ///< something fills the folder as fast as it is emptied
    KeepsChanging,  ///< something exchanges its name, or names in it, as fast as they are looked at
    Unreadable,     ///< its folder cannot be read or searched
    OtherVolume,    ///< the report that lists it is of another volume
    UnknownVolume,  ///< whether that report is of this volume cannot be told
    RemoteDesktop,  ///< it is switched off, not removed
    Confined,       ///< the kernel stopped a removal outside the volume
    Stopped,        ///< the user stopped before it was whole
    DeviceError,
    GivenUp, ///< for want of memory or the like
};

/// The obstacle in a sentence for a person: what is in the way and what to do about it. `detail` is
/// the system's own word for it, or empty. Empty for None.
[[nodiscard]] std::string obstacleText(RemovalObstacle obstacle, std::string_view detail = {});

/// What removing an item would take away, as far as it can be told beforehand.
struct RemovalForecast {
    FileKind kind = FileKind::Missing; ///< Missing: already gone
    std::uint64_t entries = 0;         ///< files, links and folders, the item itself included
    std::int64_t bytes = 0;            ///< allocated: 512-byte blocks × 512
    RemovalObstacle obstacle = RemovalObstacle::None;
    std::string detail;       ///< the system's word for the obstacle, where it has one
    std::string place;        ///< where it really is, where that is another path than asked for
    bool countedWhole = true; ///< false: the count stopped early or met something unreadable
};

/// The location as a plan names it, in raw bytes: the path asked for and, where that is another,
/// the place to which it leads.
[[nodiscard]] std::string plannedLocation(const FileURL& url, const RemovalForecast& forecast);

enum class RemovalOutcome : std::uint8_t { Removed, AlreadyGone, Failed };

/// What became of a report's findings in one removal.
struct RemovalTally {
    std::size_t removed = 0; ///< or gone already
    std::size_t failed = 0;
    std::size_t left = 0; ///< there still, and not to be removed
    friend bool operator==(const RemovalTally&, const RemovalTally&) = default;
};

/// What became of one item. `Removed` is only said once it would survive a power cut.
struct RemovalResult {
    RemovalOutcome outcome = RemovalOutcome::Failed;
    RemovalObstacle obstacle = RemovalObstacle::None;
    std::string detail;
    std::uint64_t entriesRemoved = 0; ///< counts too what a failed removal took away
    std::int64_t bytesRemoved = 0;
    std::string remark; ///< what else a person should know of it, in words; mostly empty

    [[nodiscard]] std::string reason() const { return obstacleText(obstacle, detail); }
    /// The reason, where it failed, and the remark.
    [[nodiscard]] std::string note() const;
    /// Says why, unless it is known what became of the item.
    void giveUp(const char* why)
    {
        if (outcome != RemovalOutcome::Failed || obstacle != RemovalObstacle::None)
            return;
        detail = why;
        obstacle = RemovalObstacle::GivenUp;
    }
};

} // namespace pryvane
