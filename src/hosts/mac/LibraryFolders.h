#pragma once

#include <string>

/// Where a Mac keeps what belongs to one user, as host paths.
namespace pryvane::library {

/// Of the store and the journal: PRYVANE_DATA_DIR, or else Pryvane in Application Support.
[[nodiscard]] std::string dataFolder();

[[nodiscard]] std::string cachesFolder();

/// This user's own folder for temporary files, which nobody else can enter; empty where the system
/// tells none.
[[nodiscard]] std::string temporaryFolder();

} // namespace pryvane::library
