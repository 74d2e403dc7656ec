#pragma once

#include "core/Result.h"
#include "store/SqliteHandles.h"
#include "store/StoreTables.h"

#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

class Log;

/// The preferences file, open and found sound.
struct OpenedStore {
    SqliteConnection connection; ///< none where a read-only opening found nothing to read
    std::string path;            ///< of the file
    ReportTables reports = ReportTables::None;
    std::optional<std::string> notice; ///< what the person must be told once
};

/// Opens the one preferences file of the folder for reading and writing. Makes the folder and the
/// file where they are missing. A damaged file, which was read and is wrong, is kept beside it
/// under a dated name (the newest three and the largest) and a fresh one started. A file that
/// cannot be read, opened or locked is an error and stays as it is.
[[nodiscard]] Result<OpenedStore> openStore(std::string_view dataFolder, Log& log);

/// What an opening for reading does about a save that a crash cut off.
enum class CutOffSave : std::uint8_t { Leave, Undo };

/// Opens it for reading only. Makes and moves nothing, whatever the file holds: a missing one reads
/// as empty, and so does one whose content cannot be read, with a notice that says so.
[[nodiscard]] Result<OpenedStore> openStoreReadOnly(std::string_view dataFolder, CutOffSave cutOff);

/// SQLite's code, but for damage that is none: it takes a read that failed in the system for that.
[[nodiscard]] int withoutFalseDamage(const SqliteConnection& connection, int code);

/// Has the next start look at the whole file, also where it is so large that a start leaves out the
/// findings of its reports: some of it was found damaged. What cannot be written is left.
void wantWholeLook(const SqliteConnection& connection);

/// Why SQLite refused, for a person: what was being done, with which file, and what helps.
[[nodiscard]] Error storeError(std::string_view doing, std::string_view path, int sqliteCode);

} // namespace pryvane
