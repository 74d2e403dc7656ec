#pragma once

#include "core/Result.h"
#include "platform/posix/SqliteHandles.h"

#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

class Log;

/// The preferences file, open and found sound.
struct OpenedStore {
    SqliteConnection connection;       ///< none where a read-only opening found nothing to read
    std::string path;                  ///< of the file
    std::optional<std::string> notice; ///< what the person must be told once
};

/// Opens the one preferences file of the folder for reading and writing. Makes the folder and the
/// file where they are missing. A damaged file is kept beside it under a dated name (three of them
/// at most) and a fresh one started.
[[nodiscard]] Result<OpenedStore> openStore(std::string_view dataFolder, Log& log);

/// Opens it for reading only. Makes, moves and changes nothing: a missing or damaged file reads as
/// an empty one.
[[nodiscard]] Result<OpenedStore> openStoreReadOnly(std::string_view dataFolder, Log& log);

/// Why SQLite refused, for a person: what was being done, with which file, and what helps.
[[nodiscard]] Error storeError(std::string_view doing, std::string_view path, int sqliteCode);

} // namespace pryvane
