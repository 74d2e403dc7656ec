#pragma once

#include "core/StopFlag.h"
#include "platform/Removal.h"

#include <string>

namespace pryvane {

class ProtectedPlaces;

/// Adds what a removal would take away from inside the folder of that name, and foresees what would
/// be in its way. Changes nothing, follows no link, crosses no mount, holds few folders open.
void countBelow(int parent, const std::string& name, const ProtectedPlaces& places,
                const StopFlag& stop, RemovalForecast& forecast);

} // namespace pryvane
