#include "store/SqliteReportStore.h"

#include "store/SqliteStoreFile.h"

namespace pryvane {

/// A statement that is kept prepared between its uses, and is at rest outside them.
class SqliteReportStore::Statement {
public:
    Statement(std::optional<SqliteStatement>& kept, const SqliteConnection& connection,
              std::string_view sql)
        : m_kept(kept)
    {
        if (!m_kept || m_kept->isUnusable())
            m_kept.emplace(connection, sql);
    }
    ~Statement() { m_kept->again(); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    SqliteStatement* operator->() { return &*m_kept; }

private:
    std::optional<SqliteStatement>& m_kept;
};

const SqliteConnection& SqliteReportStore::connection() const
{
    return m_store.connection;
}

Result<std::vector<StoredReport>> SqliteReportStore::list()
{
    const RecursiveMutexLock lock(m_mutex);
    std::vector<StoredReport> reports;
    if (m_store.reports == ReportTables::None)
        return reports;
    SqliteStatement rows(connection(), "SELECT place, id, facts FROM report ORDER BY place DESC");
    int code = rows.step();
    for (; code == SQLITE_ROW; code = rows.step()) {
        StoredReport& report = reports.emplace_back();
        report.place = rows.integerColumn(0);
        if (!rows.bytesColumn(1, report.id) || !rows.bytesColumn(2, report.facts)) {
            code = SQLITE_NOMEM;
            break;
        }
    }
    if (code != SQLITE_DONE)
        return failure("read the list of reports", code);
    return reports;
}

/// One statement, and so one look at the file, for all of them.
Result<std::vector<StoredPiece>> SqliteReportStore::pieces(std::int64_t place, std::int64_t number,
                                                           std::size_t bytes)
{
    const RecursiveMutexLock lock(m_mutex);
    std::vector<StoredPiece> pieces;
    const auto first = pieceKey(place, number);
    if (m_store.reports == ReportTables::None || !first)
        return pieces;
    Statement rows(m_readPieces, connection(),
                   m_store.reports == ReportTables::KeyedByTwo
                       ? "SELECT report<<20|number, value FROM report_piece "
                         "WHERE (report, number)>=(?1>>20, ?1&1048575) ORDER BY report, number"
                       : "SELECT piece, value FROM report_value WHERE piece>=? ORDER BY piece");
    int code = rows->integer(*first).step();
    for (std::size_t size = 0; code == SQLITE_ROW; code = rows->step()) {
        StoredPiece& piece = pieces.emplace_back();
        piece.place = rows->integerColumn(0) / kPiecesAReport;
        piece.number = rows->integerColumn(0) % kPiecesAReport;
        if (!rows->bytesColumn(1, piece.value))
            return failure("read a report", SQLITE_NOMEM);
        size += piece.value.size();
        if (size >= bytes)
            return pieces;
    }
    if (code != SQLITE_DONE)
        return failure("read a report", code);
    return pieces;
}

Result<Done> SqliteReportStore::put(const NewReport& report)
{
    return change([&]() REQUIRES(m_mutex) -> Outcome {
        std::optional<std::int64_t> older;
        int code = newest(report.id, older);
        if (code == SQLITE_OK && older)
            code = erase(*older);
        return code == SQLITE_OK ? insert(report) : Outcome{code, {}};
    });
}

Result<bool> SqliteReportStore::remove(std::string_view id)
{
    std::optional<std::int64_t> place;
    const auto removed = change([&]() REQUIRES(m_mutex) -> Outcome {
        int code = newest(id, place);
        if (code == SQLITE_OK && place)
            code = erase(*place);
        return {code, {}};
    });
    if (!removed)
        return removed.error();
    return place.has_value();
}

Result<Done> SqliteReportStore::replaceAll(std::size_t count,
                                           const std::function<NewReport(std::size_t)>& at)
{
    return change([&]() REQUIRES(m_mutex) -> Outcome {
        Outcome outcome{connection().execute("DELETE FROM report_value; DELETE FROM report"), {}};
        for (std::size_t i = count; i-- > 0 && outcome.code == SQLITE_OK && !outcome.error;)
            outcome = insert(at(i));
        return outcome;
    });
}

/// All of the work or, where any of it fails or throws, nothing of it.
Result<Done> SqliteReportStore::change(const Work& work)
{
    const RecursiveMutexLock lock(m_mutex);
    if (m_readOnly)
        return Error{"The reports were opened for reading only; nothing was saved."};
    const auto outcome = [&]() REQUIRES(m_mutex) {
        SqliteTransaction transaction(connection());
        Outcome done{transaction.code(), {}};
        if (done.code == SQLITE_OK)
            done = work();
        if (done.code == SQLITE_OK && !done.error)
            done.code = transaction.commit();
        return done;
    }();
    if (outcome.error)
        return *outcome.error;
    if (outcome.code == SQLITE_OK)
        return Done{};
    return failure("save the reports", outcome.code);
}

Error SqliteReportStore::failure(std::string_view doing, int code)
{
    const int told = withoutFalseDamage(connection(), code);
    if ((told & 0xff) == SQLITE_CORRUPT && !m_readOnly)
        wantWholeLook(connection());
    return storeError(doing, m_store.path, told);
}

SqliteReportStore::Outcome SqliteReportStore::insert(const NewReport& report)
{
    Statement row(m_insertReport, connection(), "INSERT INTO report(id, facts) VALUES(?, ?)");
    if (const int code = row->text(report.id).blob(report.facts).step(); code != SQLITE_DONE)
        return {code, {}};
    const std::int64_t place = sqlite3_last_insert_rowid(connection().handle());
    Outcome outcome{SQLITE_OK, {}};
    std::int64_t number = 0;
    const auto written =
        report.write([&](std::string_view piece) REQUIRES(m_mutex) -> Result<Done> {
            Statement part(m_insertPiece, connection(),
                           "INSERT INTO report_value(piece, value) VALUES(?, ?)");
            const auto key = pieceKey(place, number++);
            const int code = key ? part->integer(*key).blob(piece).step() : SQLITE_TOOBIG;
            if (code == SQLITE_DONE)
                return Done{};
            outcome.code = code;
            return Error{};
        });
    if (!written && outcome.code == SQLITE_OK)
        outcome.error = written.error();
    return outcome;
}

int SqliteReportStore::newest(std::string_view id, std::optional<std::int64_t>& place)
{
    SqliteStatement row(connection(), "SELECT place FROM report WHERE id=? ORDER BY place DESC");
    const int code = row.text(id).step();
    if (code == SQLITE_ROW)
        place = row.integerColumn(0);
    return code == SQLITE_ROW || code == SQLITE_DONE ? SQLITE_OK : code;
}

int SqliteReportStore::erase(std::int64_t place)
{
    if (const auto first = pieceKey(place, 0)) {
        SqliteStatement pieces(connection(),
                               "DELETE FROM report_value WHERE piece BETWEEN ? AND ?");
        const int code = pieces.integer(*first).integer(*first + kPiecesAReport - 1).step();
        if (code != SQLITE_DONE)
            return code;
    }
    SqliteStatement row(connection(), "DELETE FROM report WHERE place=?");
    const int code = row.integer(place).step();
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

} // namespace pryvane
