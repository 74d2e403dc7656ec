#pragma once

#include "platform/posix/folders/FolderHandle.h"

#include <string>

/// What a removal needs of its host in ways of their own; CMake chooses the file that does it.
namespace pryvane {

/// Opens the folder of that name for reading, never through a link and never on another mounted
/// file system, also where that is the same device mounted again. Not open, with errno set (EXDEV
/// for a mount), on failure.
[[nodiscard]] FolderHandle openBelow(int folder, const std::string& name);

/// Whether something else is mounted there.
[[nodiscard]] bool isMountPoint(int folder, const std::string& name);

/// Whether the entry, or the folder that holds it, carries a mark that forbids removing it.
[[nodiscard]] bool isLocked(int folder, const std::string& name);

} // namespace pryvane
