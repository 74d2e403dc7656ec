#pragma once

#include "core/StopFlag.h"
#include "platform/Removal.h"
#include "platform/posix/folders/FolderHandle.h"
#include "platform/posix/removal/ProtectedPlaces.h"

namespace pryvane {

/// Counts what a removal of the open folder's content would take away, and foresees what would be
/// in its way. Changes nothing, follows no link, crosses no mount, holds few folders open.
void countBelow(FolderHandle folder, const ProtectedPlaces& places, const StopFlag& stop,
                RemovalForecast& forecast);

} // namespace pryvane
