#include "store/StoreTables.h"

namespace pryvane {

namespace {

/// No table has an index of its own, so that no index can disagree with its table.
constexpr std::string_view kPreferences = "CREATE TABLE preference(key TEXT PRIMARY KEY NOT NULL, "
                                          "type TEXT NOT NULL, value NOT NULL) WITHOUT ROWID";
/// AUTOINCREMENT: no place is given twice.
constexpr std::string_view kReports = "CREATE TABLE report(place INTEGER PRIMARY KEY "
                                      "AUTOINCREMENT, id TEXT NOT NULL, facts BLOB NOT NULL)";
/// By number alone: a table with a key of two columns is an index, and SQLite moves the greater
/// part of such a row to a page that nothing else shares.
constexpr std::string_view kValues =
    "CREATE TABLE report_value(piece INTEGER PRIMARY KEY, value BLOB NOT NULL)";
constexpr std::string_view kPieces =
    "CREATE TABLE report_piece(report INTEGER NOT NULL, number INTEGER NOT NULL, "
    "value BLOB NOT NULL, PRIMARY KEY(report, number)) WITHOUT ROWID";
constexpr std::string_view kSequence = "CREATE TABLE sqlite_sequence(name,seq)"; // SQLite's own

} // namespace

std::optional<std::int64_t> pieceKey(std::int64_t place, std::int64_t number)
{
    if (place < 1 || place > kLastPlace || number < 0 || number >= kPiecesAReport)
        return std::nullopt;
    return place * kPiecesAReport + number;
}

std::string tablesOf(ReportTables reports)
{
    std::string tables(kPreferences);
    if (reports != ReportTables::None) {
        for (const auto table :
             {kReports, reports == ReportTables::KeyedByTwo ? kPieces : kValues, kSequence})
            tables.append("\n").append(table);
    }
    return tables;
}

int bringUpToDate(const SqliteConnection& connection, std::optional<ReportTables> reports)
{
    constexpr auto kVersion = static_cast<std::int64_t>(ReportTables::Current);
    std::string sql;
    if (!reports)
        sql.append(kPreferences).append(";");
    if (reports != ReportTables::KeyedByTwo)
        sql.append(kReports).append(";");
    sql.append(kValues).append(";");
    if (reports == ReportTables::KeyedByTwo)
        sql += "INSERT INTO report_value SELECT report<<20|number, value FROM report_piece "
               "WHERE report BETWEEN 1 AND 1<<42 AND number BETWEEN 0 AND (1<<20)-1 "
               "ORDER BY report, number; DROP TABLE report_piece;";
    sql += "PRAGMA user_version=" + std::to_string(kVersion) +
           ";PRAGMA application_id=" + std::to_string(applicationId(kVersion));

    SqliteTransaction transaction(connection);
    int code = transaction.code();
    if (code == SQLITE_OK)
        code = connection.execute(sql.c_str());
    return code == SQLITE_OK ? transaction.commit() : code;
}

} // namespace pryvane
