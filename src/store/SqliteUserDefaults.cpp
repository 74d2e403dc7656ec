#include "store/SqliteUserDefaults.h"

#include "core/Escape.h"
#include "platform/Messages.h"
#include "store/SqliteStoreFile.h"
#include "store/StoreFolder.h"

#include <array>

namespace pryvane {

namespace {

/// Names of the stored types, in the order of PreferenceValue's alternatives.
constexpr std::array<std::string_view, 6> kTypeNames = {"bool", "integer", "date",
                                                        "text", "bytes",   "number"};
static_assert(kTypeNames.size() == std::variant_size_v<PreferenceValue>);

void bindValue(SqliteStatement& statement, const PreferenceValue& value)
{
    if (const auto* flag = std::get_if<bool>(&value))
        statement.integer(*flag ? 1 : 0);
    else if (const auto* number = std::get_if<std::int64_t>(&value))
        statement.integer(*number);
    else if (const auto* date = std::get_if<Date>(&value))
        statement.integer(date->time_since_epoch().count());
    else if (const auto* text = std::get_if<std::string>(&value))
        statement.text(*text);
    else if (const auto* real = std::get_if<double>(&value))
        statement.real(*real);
    else
        statement.blob(std::get<Bytes>(value).data);
}

/// The value in the columns (type, value), or none where the two do not fit each other.
std::optional<PreferenceValue> valueColumns(const SqliteStatement& statement)
{
    std::string type, bytes;
    if (!statement.bytesColumn(0, type))
        return std::nullopt;
    switch (statement.columnType(1)) {
    case SQLITE_INTEGER: {
        const std::int64_t number = statement.integerColumn(1);
        if (type == kTypeNames[0])
            return PreferenceValue(number != 0);
        if (type == kTypeNames[1])
            return PreferenceValue(number);
        if (type == kTypeNames[2])
            return PreferenceValue(Date(Date::duration(number)));
        return std::nullopt;
    }
    case SQLITE_FLOAT:
        return type == kTypeNames[5] ? std::optional<PreferenceValue>(statement.realColumn(1))
                                     : std::nullopt;
    case SQLITE_TEXT:
        if (type != kTypeNames[3] || !statement.bytesColumn(1, bytes))
            return std::nullopt;
        return PreferenceValue(std::move(bytes));
    case SQLITE_BLOB:
        if (type != kTypeNames[4] || !statement.bytesColumn(1, bytes))
            return std::nullopt;
        return PreferenceValue(Bytes{std::move(bytes)});
    default:
        return std::nullopt;
    }
}

} // namespace

SqliteUserDefaults::SqliteUserDefaults(OpenedStore store, Access access, Log& log)
    : m_log(log), m_access(access), m_path(store.path), m_store(std::move(store)),
      m_reports(m_store, m_mutex, access == Access::ReadOnly)
{
}

SqliteUserDefaults::~SqliteUserDefaults() = default;

Result<SqliteUserDefaults::Opened> SqliteUserDefaults::open(std::string_view dataFolder, Log& log)
{
    return made(openStore(dataFolder, log), Access::ReadWrite, log);
}

Result<SqliteUserDefaults::Opened> SqliteUserDefaults::openReadOnly(std::string_view dataFolder,
                                                                    Log& log, CutOffSave cutOff)
{
    return made(openStoreReadOnly(dataFolder, cutOff), Access::ReadOnly, log);
}

Result<SqliteUserDefaults::Opened> SqliteUserDefaults::made(Result<OpenedStore> store,
                                                            Access access, Log& log)
{
    if (!store)
        return store.error();
    Opened opened;
    opened.notice = store->notice;
    opened.defaults.reset(new SqliteUserDefaults(std::move(store).value(), access, log));
    return opened;
}

std::optional<PreferenceValue> SqliteUserDefaults::objectForKey(std::string_view key)
{
    const RecursiveMutexLock lock(m_mutex);
    std::optional<PreferenceValue> value;
    if (const int code = read(key, value); code != SQLITE_OK)
        m_log.line(storeError("read the preference " + forScreen(key), path(),
                              withoutFalseDamage(m_store.connection, code))
                       .message);
    return value;
}

Result<Done> SqliteUserDefaults::setObject(std::string_view key, const PreferenceValue& value)
{
    const RecursiveMutexLock lock(m_mutex);
    return saved(write(key, value));
}

Result<Done> SqliteUserDefaults::removeObject(std::string_view key)
{
    const RecursiveMutexLock lock(m_mutex);
    if (m_access == Access::ReadOnly)
        return saved(SQLITE_READONLY);
    SqliteStatement statement(m_store.connection, "DELETE FROM preference WHERE key=?");
    const int code = statement.text(key).step();
    return saved(code == SQLITE_DONE ? SQLITE_OK : code);
}

Result<Done> SqliteUserDefaults::updateBytes(std::string_view key, const Change& change)
{
    const RecursiveMutexLock lock(m_mutex);
    return saved(this->change(key, change));
}

Result<Done> SqliteUserDefaults::setAside(std::string_view key)
{
    const RecursiveMutexLock lock(m_mutex);
    if (m_access == Access::ReadOnly)
        return saved(SQLITE_READONLY);
    SqliteTransaction transaction(m_store.connection);
    int code = transaction.code();
    if (code == SQLITE_OK)
        code = moveAside(key);
    if (code == SQLITE_OK)
        code = transaction.commit();
    return saved(code);
}

int SqliteUserDefaults::read(std::string_view key, std::optional<PreferenceValue>& value)
{
    if (!m_store.connection)
        return SQLITE_OK;
    SqliteStatement statement(m_store.connection, "SELECT type, value FROM preference WHERE key=?");
    const int code = statement.text(key).step();
    if (code != SQLITE_ROW)
        return code == SQLITE_DONE ? SQLITE_OK : code;
    value = valueColumns(statement);
    return value ? SQLITE_OK : SQLITE_MISMATCH;
}

int SqliteUserDefaults::write(std::string_view key, const PreferenceValue& value)
{
    if (m_access == Access::ReadOnly)
        return SQLITE_READONLY;
    SqliteStatement statement(m_store.connection,
                              "INSERT INTO preference(key, type, value) VALUES(?, ?, ?) "
                              "ON CONFLICT(key) DO UPDATE SET type=excluded.type, "
                              "value=excluded.value "
                              // What is there already costs no flushing of the disk.
                              "WHERE type IS NOT excluded.type OR value IS NOT excluded.value");
    statement.text(key).text(kTypeNames[value.index()]);
    bindValue(statement, value);
    const int code = statement.step();
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

int SqliteUserDefaults::change(std::string_view key, const Change& change)
{
    if (m_access == Access::ReadOnly)
        return SQLITE_READONLY;
    SqliteTransaction transaction(m_store.connection);
    if (transaction.code() != SQLITE_OK)
        return transaction.code();
    std::optional<PreferenceValue> value;
    int code = read(key, value);
    std::optional<Bytes> bytes;
    if (value && std::holds_alternative<Bytes>(*value)) {
        bytes = std::get<Bytes>(std::move(*value));
    } else if (value || code == SQLITE_MISMATCH) {
        m_log.line("The preference " + forScreen(key) +
                   " held a value of another kind; it was set "
                   "aside.");
        code = moveAside(key);
    }
    if (code != SQLITE_OK)
        return code;
    if (auto changed = change(std::move(bytes)))
        code = write(key, PreferenceValue(std::move(*changed)));
    return code == SQLITE_OK ? transaction.commit() : code;
}

int SqliteUserDefaults::moveAside(std::string_view key)
{
    const std::string prefix = std::string(key) + std::string(kAsideMark);
    const std::string name = prefix + asideStamp();
    SqliteStatement rename(m_store.connection,
                           "UPDATE OR REPLACE preference SET key=? WHERE key=?");
    if (const int code = rename.text(name).text(key).step(); code != SQLITE_DONE)
        return code;
    SqliteStatement forget(m_store.connection,
                           "DELETE FROM preference WHERE key IN (SELECT key FROM preference "
                           "WHERE substr(key, 1, length(?1)) = ?1 ORDER BY key DESC "
                           "LIMIT -1 OFFSET ?2)");
    const int code = forget.text(prefix).integer(kKeptAside).step();
    return code == SQLITE_DONE ? SQLITE_OK : code;
}

Result<Done> SqliteUserDefaults::saved(int code)
{
    if (code == SQLITE_OK)
        return Done{};
    if (m_access == Access::ReadOnly)
        return Error{"The preferences were opened for reading only; nothing was saved."};
    return storeError("save the preferences", path(), withoutFalseDamage(m_store.connection, code));
}

} // namespace pryvane
