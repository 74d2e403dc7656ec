#include "store/StoreLook.h"

namespace pryvane {

namespace {

/// Larger files are looked over but for the findings of their reports, which are looked at when
/// they are read: all pages of a cold disk would take seconds, at each command.
constexpr std::int64_t kLookedOverWhole = std::int64_t{64} << 20; // bytes

/// A preference that asks the next start for a look at the whole file, whatever its size.
constexpr const char* kWholeLookWanted = "SELECT count(*) FROM preference WHERE key='WholeLook'";

} // namespace

int readInteger(const SqliteConnection& connection, std::string_view sql, std::int64_t& value)
{
    SqliteStatement statement(connection, sql);
    const int code = statement.step();
    if (code == SQLITE_ROW)
        value = statement.integerColumn(0);
    return code;
}

int readText(const SqliteConnection& connection, std::string_view sql, std::string& value)
{
    SqliteStatement statement(connection, sql);
    const int code = statement.step();
    return code == SQLITE_ROW && !statement.bytesColumn(0, value) ? SQLITE_NOMEM : code;
}

int lookOver(const SqliteConnection& connection, ReportTables reports, std::string& verdict)
{
    std::int64_t pages = 0, pageSize = 0, wanted = 0;
    int code = readInteger(connection, "PRAGMA page_count", pages);
    if (code == SQLITE_ROW)
        code = readInteger(connection, "PRAGMA page_size", pageSize);
    if (code != SQLITE_ROW)
        return code;
    if (reports == ReportTables::Current && pages > kLookedOverWhole / pageSize) {
        for (const char* check : {"PRAGMA quick_check(preference)", "PRAGMA quick_check(report)"}) {
            code = readText(connection, check, verdict);
            if (code != SQLITE_ROW || verdict != "ok")
                return code;
        }
        code = readInteger(connection, kWholeLookWanted, wanted);
        if (code != SQLITE_ROW || wanted == 0)
            return code;
    }
    code = readText(connection, "PRAGMA quick_check(1)", verdict);
    if (wanted > 0 && code == SQLITE_ROW && verdict == "ok")
        static_cast<void>(connection.execute("DELETE FROM preference WHERE key='WholeLook'"));
    return code;
}

} // namespace pryvane
