#pragma once

#include "platform/FileSystem.h"

#include <optional>

namespace pryvane {

/// The kind that the first letter of a mode ("drwxr-xr-x") says.
[[nodiscard]] inline std::optional<FileKind> kindOfLetter(char letter)
{
    switch (letter) {
    case '-':
    case 'r':
    case 'f':
        return FileKind::RegularFile;
    case 'd':
        return FileKind::Folder;
    case 'l':
        return FileKind::SymbolicLink;
    case 'b':
    case 'c':
    case 'p':
    case 's':
    case 'h':
    case 'w':
    case 'v':
        return FileKind::Other;
    default:
        return std::nullopt;
    }
}

} // namespace pryvane
