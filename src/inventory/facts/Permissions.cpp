#include "inventory/facts/Permissions.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <memory>

namespace pryvane {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kMostTime = std::chrono::seconds(2);
constexpr std::size_t kHeader = 100;
constexpr std::size_t kWriteVersion = 18;
constexpr std::size_t kReadVersion = 19;
constexpr char kWriteAheadLog = 2;
constexpr int kLongestValue = 1024 * 1024;
constexpr int kMostColumns = 100;

/// A database in memory that can only be looked at.
class Database {
public:
    explicit Database(std::string bytes) : m_bytes(std::move(bytes)) {}

    [[nodiscard]] bool open()
    {
        sqlite3* handle = nullptr;
        const int opened = sqlite3_open_v2(":memory:", &handle,
                                           SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        m_handle.reset(handle);
        if (opened != SQLITE_OK)
            return false;
        // Pages that wait in a log beside the file are not here: the file's own are read alone.
        for (const std::size_t version : {kWriteVersion, kReadVersion})
            if (m_bytes[version] == kWriteAheadLog)
                m_bytes[version] = 1;
        sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestValue);
        sqlite3_limit(handle, SQLITE_LIMIT_COLUMN, kMostColumns);
        sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 0);
        sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
        sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
        sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
        const auto size = static_cast<sqlite3_int64>(m_bytes.size());
        const bool loaded =
            sqlite3_deserialize(handle, "main", reinterpret_cast<unsigned char*>(m_bytes.data()),
                                size, size, SQLITE_DESERIALIZE_READONLY) == SQLITE_OK &&
            sqlite3_exec(handle, "PRAGMA cell_size_check=ON; PRAGMA query_only=ON;", nullptr,
                         nullptr, nullptr) == SQLITE_OK;
        sqlite3_set_authorizer(handle, &onlyReading, nullptr);
        m_end = Clock::now() + kMostTime;
        sqlite3_progress_handler(handle, 1000, &timeIsUp, this);
        return loaded;
    }

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }
    [[nodiscard]] std::string problem() const
    {
        return sqlite3_errcode(handle()) == SQLITE_INTERRUPT ? "reading it took too long"
                                                             : sqlite3_errmsg(handle());
    }

private:
    struct Closer {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };

    static int onlyReading(void*, int action, const char* name, const char*, const char*,
                           const char*)
    {
        const bool reads =
            action == SQLITE_SELECT || action == SQLITE_READ ||
            (action == SQLITE_PRAGMA && name && std::string_view(name) == "table_info");
        return reads ? SQLITE_OK : SQLITE_DENY;
    }
    static int timeIsUp(void* self)
    {
        return Clock::now() >= static_cast<Database*>(self)->m_end ? 1 : 0;
    }

    std::string m_bytes; // first: the handle reads from it until it is closed
    std::unique_ptr<sqlite3, Closer> m_handle;
    Clock::time_point m_end;
};

class Query {
public:
    Query(const Database& database, const std::string& sql) : m_database(database)
    {
        sqlite3_stmt* statement = nullptr;
        m_code = sqlite3_prepare_v2(database.handle(), sql.c_str(), -1, &statement, nullptr);
        m_statement.reset(statement);
    }
    /// Moves to the next row, if there is one.
    [[nodiscard]] bool next()
    {
        if (!m_statement)
            return false;
        m_code = sqlite3_step(m_statement.get());
        return m_code == SQLITE_ROW;
    }
    /// Why there is not another row; empty at the end.
    [[nodiscard]] std::string problem() const
    {
        return m_code == SQLITE_DONE ? std::string() : m_database.problem();
    }
    [[nodiscard]] std::string text(int column) const
    {
        const auto* bytes =
            static_cast<const char*>(sqlite3_column_blob(m_statement.get(), column));
        const int size = sqlite3_column_bytes(m_statement.get(), column);
        return bytes ? boundedText({bytes, static_cast<std::size_t>(size)}) : std::string();
    }
    [[nodiscard]] std::optional<std::int64_t> integer(int column) const
    {
        if (sqlite3_column_type(m_statement.get(), column) != SQLITE_INTEGER)
            return std::nullopt;
        return sqlite3_column_int64(m_statement.get(), column);
    }

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    const Database& m_database;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
    int m_code = SQLITE_OK;
};

[[nodiscard]] Error notUnderstood(const std::string& why)
{
    return Error{"the database is not understood: " + why};
}

/// Only a real table counts: a view or a module's table could run what it likes.
[[nodiscard]] Result<bool> hasTable(const Database& database, const std::string& name)
{
    Query query(database, "SELECT 1 FROM sqlite_master WHERE type='table' AND rootpage>0 "
                          "AND name='" +
                              name + "'");
    if (query.next())
        return true;
    if (const std::string problem = query.problem(); !problem.empty())
        return notUnderstood(problem);
    return false;
}

[[nodiscard]] std::vector<std::string> columnsOf(const Database& database, const std::string& table)
{
    std::vector<std::string> columns;
    Query query(database, "PRAGMA table_info(" + table + ")");
    while (query.next())
        columns.push_back(query.text(1));
    return columns;
}

/// The columns a row is made of; the number is that of the answer's column.
enum Column : int { Service, Client, ClientType, Value, OldValue, Reason, Target, When };
constexpr const char* kColumns[] = {"service",
                                    "client",
                                    "client_type",
                                    "auth_value",
                                    "allowed",
                                    "auth_reason",
                                    "indirect_object_identifier",
                                    "last_modified"};

[[nodiscard]] Decision decisionOf(const Query& row)
{
    constexpr Decision kValues[] = {Decision::Denied, Decision::NotKnown, Decision::Allowed,
                                    Decision::Limited};
    if (const auto value = row.integer(Value))
        return *value >= 0 && *value < 4 ? kValues[*value] : Decision::NotKnown;
    if (const auto allowed = row.integer(OldValue))
        return *allowed == 0   ? Decision::Denied
               : *allowed == 1 ? Decision::Allowed
                               : Decision::NotKnown;
    return Decision::NotKnown;
}

[[nodiscard]] Permission permissionOf(const Query& row, bool managed)
{
    Permission permission;
    permission.service = row.text(Service);
    permission.client = row.text(Client);
    permission.clientIsPath = row.integer(ClientType) == 1;
    permission.decision = decisionOf(row);
    permission.reason = row.integer(Reason);
    permission.managed = managed;
    permission.target = row.text(Target);
    if (permission.target == "UNUSED")
        permission.target.clear();
    constexpr std::int64_t kLatest = 253'402'300'799; // the end of the year 9999
    const auto when = row.integer(When);
    if (when && *when > 0 && *when <= kLatest)
        permission.when = Date(std::chrono::seconds(*when));
    return permission;
}

/// Adds the rows of a table. An error where the table's columns are not known.
[[nodiscard]] Result<Done> addRows(const Database& database, const std::string& table,
                                   ReadFacts<Permission>& found)
{
    const bool managed = table == "managed_overrides";
    const auto columns = columnsOf(database, table);
    if (sqlite3_errcode(database.handle()) == SQLITE_NOMEM)
        return notUnderstood(database.problem()); // not for what the table holds
    const auto has = [&](std::string_view name) {
        return std::find(columns.begin(), columns.end(), name) != columns.end();
    };
    const std::string value =
        managed && has("admin_auth_value") ? "admin_auth_value" : kColumns[Value];
    if (!has("service") || !has("client") || (!has(value) && !has("allowed")))
        return notUnderstood("its table \"" + table + "\" has other columns");
    std::string sql;
    for (const std::string name : kColumns) {
        const std::string wanted = name == kColumns[Value] ? value : name;
        sql += (sql.empty() ? "SELECT " : ", ") + (has(wanted) ? wanted : "NULL");
    }
    Query rows(database, sql + " FROM " + table);
    while (rows.next()) {
        if (!addBounded(found, permissionOf(rows, managed)))
            return Done{};
    }
    if (found.problem.empty())
        found.problem = rows.problem();
    return Done{};
}

} // namespace

Result<ReadFacts<Permission>> readPermissions(std::string bytes)
{
    if (bytes.size() < kHeader || !bytes.starts_with("SQLite format 3"))
        return notUnderstood("it does not begin like one");
    Database database(std::move(bytes));
    if (!database.open())
        return notUnderstood(database.problem());
    ReadFacts<Permission> found;
    const auto present = hasTable(database, "access");
    if (!present)
        return present.error();
    if (!*present)
        return notUnderstood("it has no table \"access\"");
    if (const auto added = addRows(database, "access", found); !added)
        return added.error();
    const auto managed = hasTable(database, "managed_overrides");
    if (managed && *managed)
        if (const auto added = addRows(database, "managed_overrides", found); !added)
            found.problem = added.error().message;
    return found;
}

} // namespace pryvane
