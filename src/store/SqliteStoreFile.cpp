#include "store/SqliteStoreFile.h"

#include "core/Escape.h"
#include "core/Result.h"
#include "platform/Messages.h"
#include "store/StoreFolder.h"
#include "store/StoreLook.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane {

namespace {

/// What one attempt at opening came to: exactly one of the three is set.
struct Attempt {
    std::optional<SqliteConnection> sound;
    std::optional<std::string> damage;
    std::optional<Error> error;
    bool cutOff = false; ///< the damage is a save that was cut off, which writing would undo
    ReportTables reports = ReportTables::None;
};

/// SQLite tells an impossible header field as a plain error, which no statement of ours causes.
bool meansDamage(int code)
{
    const int primary = code & 0xff;
    return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB || primary == SQLITE_ERROR;
}

/// Whether a read of the file failed in the system: SQLite gives that out as damage.
bool couldNotRead(const SqliteConnection& connection)
{
    int error = 0;
    return connection &&
           sqlite3_file_control(connection.handle(), "main", SQLITE_FCNTL_LAST_ERRNO, &error) ==
               SQLITE_OK &&
           (error == EIO || error == ENXIO || error == ERANGE);
}

Attempt failed(const SqliteConnection& connection, std::string_view path, int code)
{
    if (meansDamage(code) && couldNotRead(connection))
        return {{}, {}, storeError("read the preferences", path, SQLITE_IOERR_READ)};
    if (meansDamage(code))
        return {{}, sqlite3_errstr(code), {}};
    if (code == SQLITE_READONLY_ROLLBACK) // never where writing is allowed: then it is just undone
        return {{}, "a save was interrupted, which the next start that may write undoes", {}, true};
    return {{}, {}, storeError("open the preferences", path, code)};
}

int configure(const SqliteConnection& connection)
{
    sqlite3* handle = connection.handle();
    if (const int code = sqlite3_busy_timeout(handle, static_cast<int>(kStorePatience.count()));
        code != SQLITE_OK)
        return code;
    constexpr std::array<std::pair<int, int>, 4> switches = {{
        {SQLITE_DBCONFIG_DEFENSIVE, 1},
        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
        {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    }};
    for (const auto& [option, value] : switches) {
        if (const int code = sqlite3_db_config(handle, option, value, nullptr); code != SQLITE_OK)
            return code;
    }
    // fullfsync: a Mac's plain fsync stops at the disk's own cache. secure_delete: some systems
    // build SQLite so that it overwrites each page that comes free, which for a large report means
    // to write all of it twice. The file is for its user's eyes only, and reports are no secrets
    // beyond that.
    return connection.execute("PRAGMA trusted_schema=OFF; PRAGMA cell_size_check=ON;"
                              "PRAGMA secure_delete=FAST;"
                              "PRAGMA mmap_size=0; PRAGMA synchronous=EXTRA; PRAGMA fullfsync=ON");
}

/// Looks the file over: header, pages, and that it holds our tables and nothing else.
Attempt checked(SqliteConnection connection, const std::string& path)
{
    std::int64_t version = 0, application = 0;
    for (const auto& [sql, value] : {std::pair{"PRAGMA user_version", &version},
                                     std::pair{"PRAGMA application_id", &application}}) {
        if (const int code = readInteger(connection, sql, *value); code != SQLITE_ROW)
            return failed(connection, path, code);
    }
    if (application != applicationId(version))
        return {{}, "its header is not one of ours", {}};
    constexpr auto kLatest = static_cast<std::int64_t>(ReportTables::Current);
    if (version > kLatest) {
        return {{},
                {},
                Error{"The preferences in " + forScreen(path) +
                      " were written by a later version of Pryvane (format " +
                      std::to_string(version) + ", this one knows " + std::to_string(kLatest) +
                      "): use that version, " + std::string(kElsewhere) + "."}};
    }

    std::string verdict, schema;
    const int read = readText(
        connection,
        "SELECT group_concat(sql, char(10)) FROM (SELECT sql FROM sqlite_master ORDER BY name)",
        schema);
    if (read != SQLITE_ROW)
        return failed(connection, path, read);
    const auto reports = static_cast<ReportTables>(version);
    if (version < 1 || schema != tablesOf(reports))
        return {{}, "its tables are not the expected ones", {}};
    if (const int code = lookOver(connection, reports, verdict); code != SQLITE_ROW)
        return failed(connection, path, code);
    if (verdict != "ok") {
        if (couldNotRead(connection))
            return failed(connection, path, SQLITE_CORRUPT);
        return {{}, verdict, {}};
    }
    if (reports != ReportTables::None) {
        std::int64_t last = 0;
        const int code =
            readInteger(connection,
                        "SELECT max(ifnull((SELECT max(place) FROM report), 0), "
                        "ifnull((SELECT max(CAST(seq AS INTEGER)) FROM sqlite_sequence), 0))",
                        last);
        if (code != SQLITE_ROW)
            return failed(connection, path, code);
        if (last >= kLastPlace)
            return {{}, "the places of its reports are out of bounds", {}};
    }
    Attempt attempt;
    attempt.reports = reports;
    attempt.sound = std::move(connection);
    return attempt;
}

Attempt openChecked(const std::string& path, int flags)
{
    int code = SQLITE_OK;
    SqliteConnection connection(path, flags | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_FULLMUTEX, code);
    if (code == SQLITE_OK)
        code = configure(connection);
    if (code != SQLITE_OK)
        return failed(connection, path, code);
    const bool writing = (flags & SQLITE_OPEN_READWRITE) != 0;
    Attempt attempt = checked(std::move(connection), path);
    if (!attempt.sound || !writing)
        return attempt;

    std::string mode;
    code = readText(*attempt.sound, "PRAGMA journal_mode=DELETE", mode);
    if (code != SQLITE_ROW)
        return failed(*attempt.sound, path, code);
    if (mode != "delete")
        return {{}, {}, storeError("open the preferences", path, SQLITE_BUSY)};
    if (sqlite3_db_readonly(attempt.sound->handle(), "main") == 0) {
        if (attempt.reports != ReportTables::Current)
            code = bringUpToDate(*attempt.sound, attempt.reports);
        attempt.reports = ReportTables::Current;
        if (code == SQLITE_ROW || code == SQLITE_OK)
            return attempt;
        return {{}, {}, storeError("bring the preferences up to date", path, code)};
    }
    // Our own permissions were looked at before, so it is the file's header that forbids writing.
    return {{}, "its header forbids writing", {}};
}

Attempt create(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        return {{},
                {},
                Error{"Cannot make " + forScreen(path) + ": " + errorText(errno) +
                      "; repair that, " + std::string(kElsewhere) + "."}};
    ::close(file);

    int code = SQLITE_OK;
    SqliteConnection connection(
        path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_FULLMUTEX, code);
    if (code == SQLITE_OK)
        code = configure(connection);
    // Looking the file over and deleting a report both go from page to page.
    if (code == SQLITE_OK)
        code = connection.execute("PRAGMA page_size=16384");
    if (code == SQLITE_OK)
        code = bringUpToDate(connection, std::nullopt);
    if (code == SQLITE_OK) {
        Attempt attempt;
        attempt.sound = std::move(connection);
        attempt.reports = ReportTables::Current;
        return attempt;
    }
    connection = {};
    ::unlink(path.c_str()); // nothing is in it, and an empty file would look like a loss
    return {{}, {}, storeError("make the preferences file", path, code)};
}

Result<OpenedStore> outcome(Attempt attempt, const std::string& path,
                            std::optional<std::string> notice)
{
    if (attempt.error)
        return *attempt.error;
    return OpenedStore{std::move(*attempt.sound), path, attempt.reports, std::move(notice)};
}

/// What stands in the file, without taking a failing disk for damage: damaged is only what was read
/// whole and is wrong twice.
Attempt judged(const std::string& path, InPlace found, int flags)
{
    if (found == InPlace::EmptyFile)
        return {{}, "it is empty", {}};
    Attempt attempt = openChecked(path, flags);
    if (!attempt.damage)
        return attempt;
    if (const auto read = readsThrough(path, (flags & SQLITE_OPEN_READWRITE) != 0); !read)
        return {{}, {}, read.error()};
    return openChecked(path, flags);
}

/// Sets the damaged file aside and starts a fresh one in its place.
Result<OpenedStore> replaced(const std::string& folder, const std::string& path,
                             const std::string& damage, Log& log)
{
    const auto aside = moveFileAside(path);
    if (!aside)
        return aside.error();
    Attempt fresh = create(path);
    if (fresh.error) {
        const bool back = moveFileBack(*aside, path);
        return Error{"The preferences in " + forScreen(path) + " are damaged (" +
                     forScreen(damage) + "), and a fresh file cannot take their place. " +
                     fresh.error->message +
                     (back ? " The damaged file was left as it is."
                           : " The damaged file is kept as " + forScreen(*aside) + ".")};
    }
    forgetOldAsides(folder);
    std::string notice = "The preferences in " + forScreen(path) + " were damaged (" +
                         forScreen(damage) +
                         "). Settings and stored reports start afresh; what was there is kept as " +
                         forScreen(*aside) + ".";
    log.line(notice);
    return outcome(std::move(fresh), path, std::move(notice));
}

} // namespace

Result<OpenedStore> openStore(std::string_view dataFolder, Log& log)
{
    if (dataFolder.empty())
        return folderError("", "no folder is named");
    const std::string given(dataFolder);
    if (const auto made = makeFolders(given); !made)
        return made.error();
    const auto folder = resolvedFolder(given);
    if (!folder)
        return folder.error();
    const std::string path = storePath(*folder);
    const FolderLock lock(*folder);
    if (lock.timedOut())
        return storeError("open the preferences", path, SQLITE_BUSY);

    const auto found = inPlace(path);
    if (!found)
        return found.error();
    if (const auto allowed = mayWrite(*folder, path, *found); !allowed)
        return allowed.error();
    if (*found == InPlace::Nothing)
        return outcome(create(path), path, {});

    Attempt attempt = judged(path, *found, SQLITE_OPEN_READWRITE);
    if (!attempt.damage)
        return outcome(std::move(attempt), path, {});
    return replaced(*folder, path, *attempt.damage, log);
}

Result<OpenedStore> openStoreReadOnly(std::string_view dataFolder, CutOffSave cutOff)
{
    struct stat data {};
    const std::string given(dataFolder);
    if (stat(given.c_str(), &data) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return OpenedStore{};
        return folderError(given, errorText(errno));
    }
    if (!S_ISDIR(data.st_mode))
        return folderError(given, "it is not a folder");
    const auto folder = resolvedFolder(given);
    if (!folder)
        return folder.error();
    const std::string path = storePath(*folder);
    const auto found = inPlace(path);
    if (!found)
        return found.error();
    if (*found == InPlace::Nothing)
        return OpenedStore{{}, path, ReportTables::None, {}};

    Attempt attempt = judged(path, *found, SQLITE_OPEN_READONLY);
    if (attempt.cutOff && cutOff == CutOffSave::Undo) {
        const FolderLock lock(*folder);
        attempt = judged(path, *found, SQLITE_OPEN_READWRITE);
    }
    if (!attempt.damage)
        return outcome(std::move(attempt), path, {});
    return OpenedStore{{},
                       path,
                       ReportTables::None,
                       "The preferences in " + forScreen(path) + " cannot be read (" +
                           forScreen(*attempt.damage) + "). Nothing was changed."};
}

int withoutFalseDamage(const SqliteConnection& connection, int code)
{
    return meansDamage(code) && couldNotRead(connection) ? SQLITE_IOERR_READ : code;
}

void wantWholeLook(const SqliteConnection& connection)
{
    static_cast<void>(
        connection.execute("INSERT OR REPLACE INTO preference VALUES('WholeLook', 'bool', 1)"));
}

Error storeError(std::string_view doing, std::string_view path, int sqliteCode)
{
    const auto reason = [&]() -> std::string {
        if (sqliteCode == SQLITE_READONLY_DBMOVED)
            return "the file was moved while the program ran; start the program again";
        switch (sqliteCode & 0xff) {
        case SQLITE_FULL:
            return "its disk is full; free some space and try again";
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "another program keeps it locked; close that and try again";
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
        case SQLITE_CANTOPEN:
            return "the file or its folder cannot be written; repair their permissions, " +
                   std::string(kElsewhere);
        case SQLITE_IOERR:
            return "its disk reports an error; check the disk and try again";
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return "the file is damaged; start the program again to replace it";
        case SQLITE_TOOBIG:
            return "the value is too large; delete old reports";
        case SQLITE_NOMEM:
            return "memory ran out; close other programs and try again";
        default:
            return std::string(sqlite3_errstr(sqliteCode)) + "; start the program again";
        }
    };
    return Error{"Cannot " + std::string(doing) + " in " + forScreen(path) + ": " + reason() + "."};
}

} // namespace pryvane
