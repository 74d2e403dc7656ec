#pragma once

#include "core/Result.h"
#include "inventory/facts/Facts.h"

#include <string>

namespace pryvane {

/// The rows of a permissions database of any known system: which service each program asked for,
/// and what was decided. Takes the whole file, which is read in memory: no journal or lock is made,
/// and nothing in it is run. An error says that the layout is not understood or what is broken.
/// Bounded in rows, text and time whatever the bytes say. Pure; callable from any thread.
[[nodiscard]] Result<ReadFacts<Permission>> readPermissions(std::string bytes);

} // namespace pryvane
