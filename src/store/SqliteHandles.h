#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace pryvane {

/// One open database file, closed with the object. Calls return SQLite's extended result codes.
class SqliteConnection {
public:
    SqliteConnection() = default;

    /// Opens the file; `code` says how that went.
    SqliteConnection(const std::string& path, int flags, int& code);

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }
    explicit operator bool() const { return m_handle != nullptr; }

    /// Runs statements whose rows, if any, do not matter.
    [[nodiscard]] int execute(const char* sql) const;

private:
    struct Closer {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };
    std::unique_ptr<sqlite3, Closer> m_handle;
};

/// One prepared statement. What is bound is borrowed until the statement is gone; a failure while
/// preparing or binding comes out of step().
class SqliteStatement {
public:
    SqliteStatement(const SqliteConnection& connection, std::string_view sql);

    /// Bind the next parameter.
    SqliteStatement& text(std::string_view value);
    SqliteStatement& blob(std::string_view value);
    SqliteStatement& integer(std::int64_t value);
    SqliteStatement& real(double value);

    /// SQLITE_ROW, SQLITE_DONE, or what went wrong.
    [[nodiscard]] int step();

    /// Whether it could not even be prepared.
    [[nodiscard]] bool isUnusable() const { return !m_statement; }

    /// Ready to be bound and run again; holds nothing of the file until then.
    SqliteStatement& again();

    [[nodiscard]] int columnType(int column) const;
    [[nodiscard]] std::int64_t integerColumn(int column) const;
    [[nodiscard]] double realColumn(int column) const;
    /// The bytes of a text or blob column. False if memory ran out; step() does not report that.
    [[nodiscard]] bool bytesColumn(int column, std::string& bytes) const;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
    int m_code = SQLITE_OK;
    int m_bound = 0;
};

/// A write transaction that holds off all other writers from its beginning, and is rolled back
/// unless it was committed. Inside another one it is a part of that, and rolled back alone.
class SqliteTransaction {
public:
    explicit SqliteTransaction(const SqliteConnection& connection);
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    /// SQLITE_OK once it has begun.
    [[nodiscard]] int code() const { return m_code; }
    [[nodiscard]] int commit();

private:
    const SqliteConnection& m_connection;
    const bool m_isInner;
    bool m_isOpen;
    int m_code;
};

} // namespace pryvane
