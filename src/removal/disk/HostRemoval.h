#pragma once

#include "platform/FileSystem.h"
#include "volume/folders/FolderHandle.h"

#include <cstdint>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>

/// What a removal needs of its host in ways of their own; CMake chooses the file that does it.
namespace pryvane {

/// So many folders of one tree are held open at most.
inline constexpr std::size_t kMostHandles = 32;

/// One entry as a removal sees it, looked at without following it.
struct EntryFacts {
    FolderId id;
    FileKind kind = FileKind::Missing;
    std::int64_t bytes = 0; ///< allocated; 0 for a folder
    uid_t owner = 0;
    bool isSticky = false;    ///< a folder in which only owners may remove
    bool isLocked = false;    ///< carries the immutable, the append-only or a like mark
    bool isMountRoot = false; ///< something is mounted there, as far as the host tells
};

/// Whether what was found there says itself that it is not to be changed or removed, as far as that
/// host's stat() tells.
[[nodiscard]] bool isLocked(const struct stat& data);

/// Looks at the entry of that name, or at the open folder itself where the name is empty. Nothing,
/// with errno set, where that fails.
[[nodiscard]] std::optional<EntryFacts> factsOf(int folder, const std::string& name);

/// Opens the folder of that name for reading, never through a link and never on another mounted
/// file system, also where that is the same device mounted again. Not open, with errno set (EXDEV
/// for a mount), on failure.
[[nodiscard]] FolderHandle openBelow(int folder, const std::string& name);

/// Whether the system swaps to that file, which the kernel then does not let go.
[[nodiscard]] bool isSwappedTo(const FolderId& file);

} // namespace pryvane
