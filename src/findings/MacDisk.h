#pragma once

#include "core/Result.h"
#include "platform/FileSystem.h"

#include <string_view>

namespace pryvane {

/// An error in words where the disk holds no Mac; it names the folder to look at instead where one
/// of its folders does. `hostFolder` is where the disk is mounted, raw bytes; may be empty.
[[nodiscard]] Result<Done> mustHoldMac(FileSystem& disk, std::string_view hostFolder = {});

/// Whether that location of a Mac lies on its system volume, of which a data volume has nothing.
[[nodiscard]] bool isOnSystemVolume(std::string_view path);

} // namespace pryvane
