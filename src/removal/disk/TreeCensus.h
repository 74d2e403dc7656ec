#pragma once

#include "core/StopFlag.h"
#include "platform/FileSystem.h"
#include "platform/Removal.h"

#include <cstdint>
#include <string>

namespace pryvane {

class ProtectedPlaces;

/// Adds what a removal would take away from inside the folder of that name, and foresees what would
/// be in its way. Changes nothing, follows no link, crosses no mount, holds few folders open.
void foreseeBelow(int parent, const std::string& name, const ProtectedPlaces& places,
                  const StopFlag& stop, RemovalForecast& forecast);

/// How many entries there are to be removed, itself included, counted only as far as is quick.
struct EntryCount {
    enum class State : std::uint8_t { Missing, There, Unknown };
    State state = State::Unknown;
    std::uint64_t entries = 0;
    bool whole = true; ///< false: there may be more
};

/// Counts what a removal of that scope would take away: at most some thousand entries, on no other
/// mounted file system. Links are not followed.
[[nodiscard]] EntryCount countEntries(FileSystem& disk, const FileURL& url, RemovalScope scope);

} // namespace pryvane
