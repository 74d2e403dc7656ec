#pragma once

#include "store/SqliteHandles.h"
#include "store/StoreTables.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pryvane {

/// The first number that the statement gives; SQLite's code, SQLITE_ROW where there is one.
int readInteger(const SqliteConnection& connection, std::string_view sql, std::int64_t& value);

/// The same of a text.
int readText(const SqliteConnection& connection, std::string_view sql, std::string& value);

/// Looks over the pages of a store with these tables. SQLite's code; SQLITE_ROW where the check
/// came to an end, with "ok" or what is wrong.
int lookOver(const SqliteConnection& connection, ReportTables reports, std::string& verdict);

} // namespace pryvane
