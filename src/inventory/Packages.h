#pragma once

#include "platform/FileURL.h"

namespace pryvane {

/// Whether a folder of that name is shown by a Mac as one file, going by its extension, whose
/// letter case does not matter.
[[nodiscard]] bool isPackage(const FileURL& folder);

/// Whether a folder of that name counts as an application; only the lower-case extension does.
[[nodiscard]] inline bool isApplication(const FileURL& folder)
{
    return folder.pathExtension() == "app";
}

} // namespace pryvane
