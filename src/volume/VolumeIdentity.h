#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace pryvane {

struct BirthTime {
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
};

/// What a host tells that may say which folder of which disk it is.
struct FolderMarks {
    /// The volume's own identifier, written on it when it was made; none where it has none.
    std::optional<std::array<std::uint8_t, 16>> volume;
    std::uint64_t fileSystem = 0; ///< the number the host gives the file system
    /// Whether the host takes that number from the disk. Else it is given out at each mount, so
    /// that two disks may have had the same, and it tells nothing.
    bool fileSystemLasts = false;
    std::uint64_t inode = 0;
    std::optional<BirthTime> made;
};

/// Which folder it is, in a text that stays the same when its disk is mounted again: the volume's
/// own identifier or number rather than the device's, and the time at which the folder was made, as
/// an inode is used again soon after its folder has gone.
struct FolderIdentity {
    std::string text;
    bool isComplete = false; ///< both the volume and the time are known
};

[[nodiscard]] FolderIdentity identityOf(const FolderMarks& marks);

/// The identity of that open folder; nothing, with errno set, where it cannot be read.
[[nodiscard]] std::optional<FolderIdentity> folderIdentity(int folder);

/// What this host tells of that open folder; nothing, with errno set, where it cannot be read.
/// CMake chooses the file that does it.
[[nodiscard]] std::optional<FolderMarks> folderMarks(int folder);

} // namespace pryvane
