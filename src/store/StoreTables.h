#pragma once

#include "store/SqliteHandles.h"

#include <cstdint>
#include <optional>
#include <string>

namespace pryvane {

/// How a file keeps its reports; the value is the version that the file states.
enum class ReportTables : std::uint8_t {
    None = 1,       ///< not at all, or in one preference
    KeyedByTwo = 2, ///< an earlier form, which is read, and brought up to date by the first writer
    Current = 3
};

/// How many pieces of a report a file can tell apart, and the last place in its list.
inline constexpr std::int64_t kPiecesAReport = 1 << 20, kLastPlace = std::int64_t{1} << 42;

/// Place and number of a piece in one, so that the pieces lie in the order in which they are read;
/// none where one of them is beyond what a file can hold.
[[nodiscard]] std::optional<std::int64_t> pieceKey(std::int64_t place, std::int64_t number);

/// The file's application id: "Py", and the version once more, so that a damaged version number
/// cannot pass for a later program's file.
[[nodiscard]] constexpr std::int64_t applicationId(std::int64_t version)
{
    return 0x50790000 + version;
}

/// The statements that made the tables of such a file, one a line and in the order of their names.
[[nodiscard]] std::string tablesOf(ReportTables reports);

/// Makes the tables that the file does not have yet, and states its version; none: it is empty.
/// SQLITE_OK, or why nothing was changed.
[[nodiscard]] int bringUpToDate(const SqliteConnection& connection,
                                std::optional<ReportTables> reports);

} // namespace pryvane
