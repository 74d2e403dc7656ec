#include "store/SqliteUserDefaults.h"

#include "store/SqliteHandles.h"
#include "support/Fakes.h"
#include "support/StoreFixtures.h"
#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <new>
#include <stdexcept>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {

namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class SqliteUserDefaultsTest : public testing::Test {
protected:
    std::unique_ptr<SqliteUserDefaults> open()
    {
        auto opened = openedStore(data(), log);
        EXPECT_EQ(opened.notice, std::nullopt);
        return std::move(opened.defaults);
    }
    [[nodiscard]] std::string data() const { return folder.hostPath("share/Pryvane"); }
    [[nodiscard]] std::string file() const { return data() + "/" + std::string(kStoreFile); }

    TemporaryFolder folder;
    RecordingLog log;
};

TEST_F(SqliteUserDefaultsTest, KeepsValuesOfEveryTypeOverARestart)
{
    const std::vector<std::pair<std::string, PreferenceValue>> values = {
        {"bool", true},
        {"no", false},
        {"integer", std::int64_t{-1} << 62},
        {"date", Date(std::chrono::milliseconds(-1))},
        {"number", 32399.25},
        {"whole number", 32400.0},
        {"text", "caf\xc3\xa9"s},
        {"raw text", "a\0b\xff"s},
        {"no text", ""s},
        {"bytes", Bytes{"\0\xff\0"s}},
        {"no bytes", Bytes{}},
        {"key with a quote ' and \xff", "x"s},
        {"large", Bytes{std::string(33U << 20, 'x')}},
    };
    auto defaults = open();
    for (const auto& [key, value] : values) {
        ASSERT_TRUE(defaults->setObject(key, PreferenceValue("old"s)).ok());
        ASSERT_TRUE(defaults->setObject(key, value).ok());
    }
    defaults = open();
    for (const auto& [key, value] : values)
        EXPECT_TRUE(defaults->objectForKey(key) == value) << key;
    ASSERT_TRUE(defaults->removeObject("large").ok());
    EXPECT_FALSE(defaults->contains("large"));
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(SqliteUserDefaultsTest, IsOneFileForTheUserAlone)
{
    umask(0);
    const auto defaults = open();
    ASSERT_TRUE(defaults->set(preferences::kScan, true).ok());
    umask(022);
    EXPECT_EQ(namesIn(data()), std::vector<std::string>{std::string(kStoreFile)});
    for (const std::string& path : {data(), folder.hostPath("share"), file()})
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(path == file() ? 0600 : 0700)) << path;
}

TEST_F(SqliteUserDefaultsTest, FallsBackWhereTheTypeIsAnother)
{
    const auto defaults = open();
    ASSERT_TRUE(defaults->setObject(preferences::kARD.name, "no"s).ok());
    EXPECT_TRUE(defaults->get(preferences::kARD));
    ASSERT_TRUE(defaults->set(preferences::kARD, false).ok());
    EXPECT_FALSE(defaults->get(preferences::kARD));
    EXPECT_EQ(defaults->get(preferences::kCheckSubDir), "y");
}

TEST_F(SqliteUserDefaultsTest, ChangesOfManyWritersAllCount)
{
    constexpr int kEach = 40;
    const auto memory = fastFolder();
    const auto countUp = [&](SqliteUserDefaults& defaults) {
        for (int i = 0; i < kEach; ++i) {
            const auto done = defaults.updateBytes("count", [](std::optional<Bytes> stored) {
                return Bytes{(stored ? stored->data : "") + "."};
            });
            EXPECT_TRUE(done.ok()) << done.error().message;
        }
    };
    const auto first = openedStore(memory->path(), log), second = openedStore(memory->path(), log);
    std::thread one([&] { countUp(*first.defaults); });
    std::thread sameObject([&] { countUp(*first.defaults); });
    std::thread otherObject([&] { countUp(*second.defaults); });
    one.join();
    sameObject.join();
    otherObject.join();
    EXPECT_EQ(first.defaults->getBytes("count")->data.size(), 3U * kEach);
}

TEST_F(SqliteUserDefaultsTest, AChangeThatGivesNothingOrThrowsLeavesAllAsItWas)
{
    const auto defaults = open();
    ASSERT_TRUE(defaults->setObject("k", Bytes{"old"}).ok());
    EXPECT_TRUE(defaults->updateBytes("k", [](auto) { return std::nullopt; }).ok());
    const auto thrower = [&](std::optional<Bytes>) -> std::optional<Bytes> {
        EXPECT_TRUE(defaults->setAside("k").ok());
        throw std::runtime_error("no");
    };
    EXPECT_THROW(static_cast<void>(defaults->updateBytes("k", thrower)), std::runtime_error);
    EXPECT_EQ(defaults->getBytes("k"), Bytes{"old"});
    EXPECT_TRUE(defaults->setObject("k", Bytes{"new"}).ok());
}

TEST_F(SqliteUserDefaultsTest, KeepsTheLastThreeValuesSetAside)
{
    const auto defaults = open();
    for (int i = 0; i < 5; ++i) {
        ASSERT_TRUE(defaults->setObject("k", Bytes{"value " + std::to_string(i)}).ok());
        ASSERT_TRUE(defaults->setAside("k").ok());
        EXPECT_FALSE(defaults->contains("k"));
        usleep(2000); // the names go by the millisecond
    }
    ASSERT_TRUE(defaults->setObject("k", "text"s).ok());
    const auto change = [](std::optional<Bytes> stored) {
        EXPECT_EQ(stored, std::nullopt) << "a text is no bytes";
        return Bytes{"new"};
    };
    ASSERT_TRUE(defaults->updateBytes("k", change).ok());
    EXPECT_EQ(defaults->getBytes("k"), Bytes{"new"});

    int code = SQLITE_OK;
    const SqliteConnection connection(file(), SQLITE_OPEN_READONLY, code);
    SqliteStatement rows(connection, "SELECT value FROM preference WHERE key LIKE 'k.damaged-2%' "
                                     "ORDER BY key");
    for (std::string value; const std::string expected : {"value 3", "value 4", "text"}) {
        ASSERT_EQ(rows.step(), SQLITE_ROW);
        ASSERT_TRUE(rows.bytesColumn(0, value));
        EXPECT_EQ(value, expected);
    }
    EXPECT_EQ(rows.step(), SQLITE_DONE);
}

TEST_F(SqliteUserDefaultsTest, ReadOnlyMakesAndChangesNothing)
{
    auto missing = SqliteUserDefaults::openReadOnly(data(), log);
    ASSERT_TRUE(missing.ok());
    EXPECT_FALSE(missing->defaults->contains(preferences::kScan));
    EXPECT_FALSE(missing->defaults->set(preferences::kScan, true).ok());
    EXPECT_EQ(access(folder.hostPath("share").c_str(), F_OK), -1);

    ASSERT_TRUE(open()->set(preferences::kScan, true).ok());
    const std::string before = contentOf(file());
    auto reader = SqliteUserDefaults::openReadOnly(data(), log);
    ASSERT_TRUE(reader.ok());
    EXPECT_TRUE(reader->defaults->get(preferences::kScan));
    const auto refused = reader->defaults->set(preferences::kScan, false);
    EXPECT_EQ(refused.error().message,
              "The preferences were opened for reading only; nothing was saved.");
    EXPECT_FALSE(reader->defaults->removeObject("Scan").ok());
    EXPECT_FALSE(reader->defaults->setAside("Scan").ok());
    EXPECT_FALSE(reader->defaults->updateBytes("Scan", [](auto) { return Bytes{}; }).ok());

    setContent(file(), "garbage");
    auto damaged = SqliteUserDefaults::openReadOnly(data(), log);
    ASSERT_TRUE(damaged.ok());
    EXPECT_TRUE(damaged->notice.has_value());
    EXPECT_FALSE(damaged->defaults->contains(preferences::kScan));
    EXPECT_EQ(contentOf(file()), "garbage");
    EXPECT_EQ(namesIn(data()).size(), 1U);
    setContent(file(), before);
    EXPECT_TRUE(open()->get(preferences::kScan));
}

TEST_F(SqliteUserDefaultsTest, UndoesASaveThatWasCutOff)
{
    const Bytes old{std::string(100'000, 'o')};
    ASSERT_TRUE(open()->setObject("k", old).ok());
    {
        // Too small a cache makes SQLite write into the file before the end; copied now, the file
        // and its journal are what a power cut would leave.
        int code = SQLITE_OK;
        const SqliteConnection connection(file(), SQLITE_OPEN_READWRITE, code);
        ASSERT_EQ(connection.execute("PRAGMA cache_size=1; BEGIN IMMEDIATE;"
                                     "UPDATE preference SET value=randomblob(400000)"),
                  SQLITE_OK);
        folder.folder("cut");
        for (const char* name : {"Pryvane.sqlite", "Pryvane.sqlite-journal"})
            fs::copy(data() + "/" + name, folder.hostPath("cut") + "/" + name);
    }
    const std::string cut = folder.hostPath("cut");
    const std::string before = contentOf(cut + "/Pryvane.sqlite");
    ASSERT_NE(before, contentOf(file()));
    const auto reader = SqliteUserDefaults::openReadOnly(cut, log);
    ASSERT_TRUE(reader.ok()) << reader.error().message;
    ASSERT_TRUE(reader->notice.has_value());
    EXPECT_NE(reader->notice->find("a save was interrupted"), std::string::npos);
    EXPECT_EQ(contentOf(cut + "/Pryvane.sqlite"), before);
    EXPECT_EQ(namesIn(cut).size(), 2U);

    const auto opened = openedStore(cut, log);
    EXPECT_EQ(opened.notice, std::nullopt);
    EXPECT_EQ(opened.defaults->getBytes("k"), old);
    EXPECT_EQ(namesIn(cut).size(), 1U);
}

TEST_F(SqliteUserDefaultsTest, SaysWhatIsWrongWithItsPlaceAndTouchesNothing)
{
    const std::string path = "share/Pryvane/Pryvane.sqlite";
    const auto fileAt = [&](const std::string& at) { return [=, this] { folder.file(at); }; };
    const auto linkAt = [&](const std::string& at, const std::string& to) {
        return [=, this] { folder.link(at, to); };
    };
    const auto pipeAt = [&](const std::string& at) {
        return [=, this] {
            folder.file(path);
            folder.remove(at);
            ASSERT_EQ(mkfifo(folder.hostPath(at).c_str(), 0600), 0);
        };
    };
    const std::string target = folder.hostPath("t"), noFile = "something that is no file";
    folder.file("t");
    const struct {
        const char* name;
        std::function<void()> prepare;
        std::string words;
    } rows[] = {
        {"file for the folder", fileAt("share"), "share is not a folder"},
        {"file for the data folder", fileAt("share/Pryvane"), "is not a folder"},
        {"dangling link for the folder", linkAt("share", "gone"), "no such file"},
        {"link", linkAt(path, target), "a link"},
        {"dangling link", linkAt(path, "gone"), "a link"},
        {"folder", [&] { folder.folder(path); }, "a folder"},
        {"pipe", pipeAt(path), noFile},
        {"pipe for the journal", pipeAt(path + "-journal"), noFile},
        {"link for the journal", [&] { folder.file(path), folder.link(path + "-journal", target); },
         "a link"},
        {"pipe for the shared memory", pipeAt(path + "-shm"), noFile},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        folder.remove("share");
        row.prepare();
        for (const bool reading : {false, true}) {
            const auto opened = reading ? SqliteUserDefaults::openReadOnly(data(), log)
                                        : SqliteUserDefaults::open(data(), log);
            if (reading && opened.ok()) {
                EXPECT_EQ(opened->defaults->path(), "") << "nothing there to read";
                continue;
            }
            ASSERT_FALSE(opened.ok());
            const std::string& message = opened.error().message;
            for (const std::string& words :
                 {row.words, folder.hostPath("share"), std::string("PRYVANE_DATA_DIR")})
                EXPECT_NE(message.find(words), std::string::npos) << message;
            EXPECT_EQ(message.find('\n'), std::string::npos) << message;
        }
    }
    EXPECT_FALSE(SqliteUserDefaults::open("", log).ok());
    folder.remove("share");
    folder.link("share", "real"); // which is nothing wrong
    folder.folder("real");
    EXPECT_TRUE(open()->set(preferences::kScan, true).ok());
    EXPECT_EQ(contentOf(folder.hostPath("t")), "x");
}

TEST_F(SqliteUserDefaultsTest, NeverSavesIntoAFileThatWasMovedAway)
{
    const auto defaults = open();
    ASSERT_TRUE(defaults->set(preferences::kScan, true).ok());
    fs::rename(file(), folder.hostPath("moved"));
    const auto saved = defaults->set(preferences::kScan, false);
    ASSERT_FALSE(saved.ok());
    EXPECT_NE(saved.error().message.find("moved while the program ran"), std::string::npos)
        << saved.error().message;
}

TEST_F(SqliteUserDefaultsTest, LeavesTheFileOfALaterVersionAlone)
{
    ASSERT_TRUE(open()->set(preferences::kScan, true).ok());
    std::string content = contentOf(file());
    constexpr std::size_t kUserVersion = 63, kApplicationId = 71; // their last bytes
    ASSERT_EQ(content[kUserVersion], 3);
    content[kUserVersion] = content[kApplicationId] = 4;
    setContent(file(), content);
    const auto opened = SqliteUserDefaults::open(data(), log);
    ASSERT_FALSE(opened.ok());
    EXPECT_NE(opened.error().message.find("later version of Pryvane"), std::string::npos);
    EXPECT_EQ(contentOf(file()), content);
    EXPECT_EQ(namesIn(data()).size(), 1U);
}

TEST_F(SqliteUserDefaultsTest, BringsTheFileOfAnEarlierVersionUpToDate)
{
    constexpr const char* kWithoutReports = "PRAGMA user_version=1;"
                                            "PRAGMA application_id=0x50790001;";
    constexpr const char* kKeyedByTwo =
        "CREATE TABLE report(place INTEGER PRIMARY KEY AUTOINCREMENT, id TEXT NOT NULL, "
        "facts BLOB NOT NULL);"
        "CREATE TABLE report_piece(report INTEGER NOT NULL, number INTEGER NOT NULL, "
        "value BLOB NOT NULL, PRIMARY KEY(report, number)) WITHOUT ROWID;"
        "INSERT INTO report VALUES(3, 'older', x'01'), (7, 'newer', x'02');"
        "INSERT INTO report_piece VALUES(3, 0, x'61'), (7, 0, x'62'), (7, 1, x'63');"
        "PRAGMA user_version=2; PRAGMA application_id=0x50790002;";
    const auto textOf = [](ReportStore& reports) {
        std::string text;
        const auto rows = reports.list();
        const auto pieces = reports.pieces(1, 0, 1000);
        for (const auto& row : *rows)
            text += row.id + std::to_string(row.place) + " ";
        for (const auto& piece : *pieces)
            text += std::to_string(piece.place) + "." + std::to_string(piece.number) + "=" +
                    piece.value + " ";
        return text;
    };
    for (const auto& [tables, held, after] :
         {std::tuple(kWithoutReports, "", "id1 1.0=piece "),
          std::tuple(kKeyedByTwo, "newer7 older3 3.0=a 7.0=b 7.1=c ",
                     "id8 newer7 older3 3.0=a 7.0=b 7.1=c 8.0=piece ")}) {
        fs::remove_all(data());
        folder.folder("share/Pryvane");
        int code = SQLITE_OK;
        ASSERT_EQ(
            SqliteConnection(file(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, code)
                .execute(
                    (std::string("CREATE TABLE preference(key TEXT PRIMARY KEY NOT NULL, type TEXT "
                                 "NOT NULL, value NOT NULL) WITHOUT ROWID;"
                                 "INSERT INTO preference VALUES('SaveReport', 'bytes', x'00ff');") +
                     tables)
                        .c_str()),
            SQLITE_OK);
        const std::string before = contentOf(file());
        {
            const auto reader = SqliteUserDefaults::openReadOnly(data(), log);
            ASSERT_TRUE(reader.ok()) << reader.error().message;
            EXPECT_EQ(reader->notice, std::nullopt);
            EXPECT_EQ(reader->defaults->getBytes("SaveReport"), Bytes{"\0\xff"s});
            EXPECT_EQ(textOf(reader->defaults->reports()), held);
            EXPECT_FALSE(reader->defaults->reports().remove("newer").ok());
        }
        EXPECT_EQ(contentOf(file()), before);
        for (int times = 0; times < 2; ++times) {
            const auto defaults = open();
            EXPECT_EQ(defaults->getBytes("SaveReport"), Bytes{"\0\xff"s});
            if (times == 0) {
                const auto put = defaults->reports().put(
                    {"id", "facts", [](const PieceSink& sink) { return sink("piece"); }});
                EXPECT_TRUE(put.ok()) << put.error().message;
            }
            EXPECT_EQ(textOf(defaults->reports()), after);
        }
    }
}

/// What a writer of a report does in the middle of it.
TEST_F(SqliteUserDefaultsTest, AReportThatCannotBeWrittenLeavesTheListAsItWas)
{
    const auto defaults = open();
    ReportStore& reports = defaults->reports();
    ASSERT_TRUE(
        reports.put({"old", "", [](const PieceSink& sink) { return sink("old piece"); }}).ok());
    bool throws = false;
    const NewReport half{"old", "", [&](const PieceSink& sink) -> Result<Done> {
                             EXPECT_TRUE(sink("new piece").ok());
                             if (throws)
                                 throw std::bad_alloc();
                             return Error{"no"};
                         }};
    const auto change = [&](auto) -> std::optional<Bytes> {
        EXPECT_FALSE(reports.put(half).ok());
        EXPECT_TRUE(reports.remove("old").value());
        throw std::bad_alloc();
    };
    EXPECT_EQ(reports.put(half).error().message, "no");
    EXPECT_THROW(static_cast<void>(defaults->updateBytes("k", change)), std::bad_alloc);
    throws = true;
    EXPECT_THROW(static_cast<void>(reports.put(half)), std::bad_alloc);
    const auto rows = reports.list();
    ASSERT_TRUE(rows.ok() && rows->size() == 1);
    EXPECT_EQ(reports.pieces(rows->front().place, 0, 0)->front().value, "old piece");
    EXPECT_TRUE(openedStore(data(), log).defaults->set(preferences::kScan, true).ok())
        << "a lock was left behind";
}

TEST_F(SqliteUserDefaultsTest, SaysWhenTheFolderMayNotBeWritten)
{
    if (!runningAsRoot())
        GTEST_SKIP() << "needs root, to become another user";
    ASSERT_TRUE(open()->set(preferences::kScan, true).ok());
    chmod(folder.path().c_str(), 0755);
    chmod(folder.hostPath("share").c_str(), 0755);
    for (const auto& [folderMode, fileMode] : {std::pair{0755, 0666}, {0777, 0444}, {0700, 0600}}) {
        chmod(data().c_str(), static_cast<mode_t>(folderMode));
        chmod(file().c_str(), static_cast<mode_t>(fileMode));
        const std::string before = contentOf(file());
        const std::string told = asNobody([&] {
            const auto opened = SqliteUserDefaults::open(data(), log);
            return opened ? std::string("opened") : opened.error().message;
        });
        EXPECT_NE(told.find("permission denied"), std::string::npos) << told;
        EXPECT_NE(told.find(data()), std::string::npos) << told;
        EXPECT_EQ(contentOf(file()), before);
    }
}

} // namespace

} // namespace pryvane::test
