#include "store/SqliteHandles.h"

namespace pryvane {

SqliteConnection::SqliteConnection(const std::string& path, int flags, int& code)
{
    sqlite3* handle = nullptr;
    // Even a failed opening may leave a handle that has to be closed.
    code = sqlite3_open_v2(path.c_str(), &handle, flags | SQLITE_OPEN_EXRESCODE, nullptr);
    m_handle.reset(handle);
}

int SqliteConnection::execute(const char* sql) const
{
    return sqlite3_exec(m_handle.get(), sql, nullptr, nullptr, nullptr);
}

SqliteStatement::SqliteStatement(const SqliteConnection& connection, std::string_view sql)
{
    sqlite3_stmt* statement = nullptr;
    m_code = sqlite3_prepare_v2(connection.handle(), sql.data(), static_cast<int>(sql.size()),
                                &statement, nullptr);
    m_statement.reset(statement);
}

SqliteStatement& SqliteStatement::text(std::string_view value)
{
    if (m_code == SQLITE_OK) {
        m_code =
            sqlite3_bind_text64(m_statement.get(), ++m_bound, value.empty() ? "" : value.data(),
                                value.size(), SQLITE_STATIC, SQLITE_UTF8);
    }
    return *this;
}

SqliteStatement& SqliteStatement::blob(std::string_view value)
{
    if (m_code == SQLITE_OK) {
        m_code =
            sqlite3_bind_blob64(m_statement.get(), ++m_bound, value.empty() ? "" : value.data(),
                                value.size(), SQLITE_STATIC);
    }
    return *this;
}

SqliteStatement& SqliteStatement::integer(std::int64_t value)
{
    if (m_code == SQLITE_OK)
        m_code = sqlite3_bind_int64(m_statement.get(), ++m_bound, value);
    return *this;
}

SqliteStatement& SqliteStatement::real(double value)
{
    if (m_code == SQLITE_OK)
        m_code = sqlite3_bind_double(m_statement.get(), ++m_bound, value);
    return *this;
}

int SqliteStatement::step()
{
    return m_code == SQLITE_OK ? sqlite3_step(m_statement.get()) : m_code;
}

SqliteStatement& SqliteStatement::again()
{
    if (!m_statement)
        return *this;
    sqlite3_reset(m_statement.get()); // gives the last step's failure once more
    sqlite3_clear_bindings(m_statement.get());
    m_code = SQLITE_OK;
    m_bound = 0;
    return *this;
}

int SqliteStatement::columnType(int column) const
{
    return sqlite3_column_type(m_statement.get(), column);
}

std::int64_t SqliteStatement::integerColumn(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

double SqliteStatement::realColumn(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

bool SqliteStatement::bytesColumn(int column, std::string& bytes) const
{
    const void* data = sqlite3_column_blob(m_statement.get(), column);
    const int size = sqlite3_column_bytes(m_statement.get(), column);
    if (!data)
        return sqlite3_errcode(sqlite3_db_handle(m_statement.get())) != SQLITE_NOMEM;
    bytes.assign(static_cast<const char*>(data), static_cast<std::size_t>(size));
    return true;
}

SqliteTransaction::SqliteTransaction(const SqliteConnection& connection)
    : m_connection(connection), m_isInner(sqlite3_get_autocommit(connection.handle()) == 0),
      m_isOpen(false), m_code(connection.execute(m_isInner ? "SAVEPOINT part" : "BEGIN IMMEDIATE"))
{
    m_isOpen = m_code == SQLITE_OK;
}

SqliteTransaction::~SqliteTransaction()
{
    // SQLite has rolled back by itself after some failures; then there is nothing left to do.
    if (m_isOpen && sqlite3_get_autocommit(m_connection.handle()) == 0)
        static_cast<void>(
            m_connection.execute(m_isInner ? "ROLLBACK TO part; RELEASE part" : "ROLLBACK"));
}

int SqliteTransaction::commit()
{
    const int code = m_connection.execute(m_isInner ? "RELEASE part" : "COMMIT");
    m_isOpen = code != SQLITE_OK;
    return code;
}

} // namespace pryvane
