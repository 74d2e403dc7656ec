#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <dirent.h>

namespace pryvane {

/// The kind that a folder's listing tells of an entry.
[[nodiscard]] constexpr FileKind kindOfType(std::uint8_t type)
{
    switch (type) {
    case DT_REG:
        return FileKind::RegularFile;
    case DT_DIR:
        return FileKind::Folder;
    case DT_UNKNOWN:
        return FileKind::Unknown;
    case DT_LNK:
        return FileKind::SymbolicLink;
    default:
        return FileKind::Other;
    }
}

} // namespace pryvane
