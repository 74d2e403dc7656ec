#include "platform/ReportStore.h"
#include "reports/DefaultMethods.h"
#include "support/Fakes.h"
#include "support/ReportFixtures.h"
#include "support/StoreFixtures.h"
#include "support/Volumes.h"

#include <gmock/gmock.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {

namespace {

constexpr std::size_t kPage = 16384; // bytes of a page of the store

constexpr auto kKey = preferences::kSaveReport;

ReportList manyReports(int count)
{
    ReportList list;
    for (int i = 0; i < count; ++i)
        list.push_back(reportOf({"/tmp/a", "/Library/" + std::to_string(i), "/Users/x/b"}));
    return list;
}

class StoreDamageTest : public testing::Test {
protected:
    void SetUp() override
    {
        auto opened = openedStore(folder->path(), log);
        ASSERT_TRUE(opened.defaults->set(preferences::kScan, true).ok());
        DefaultMethods store(*opened.defaults, disk, clock, log);
        ASSERT_TRUE(store.saveListReport(manyReports(60), kKey).ok());
        opened.defaults.reset();
        sound = contentOf(file());
        ASSERT_GT(sound.size(), 16'384U);
    }

    [[nodiscard]] std::string file() const { return folder->hostPath(kStoreFile); }

    /// Starts on that file, uses it, and starts again: whatever it holds, everything must work
    /// then. Says whether the start told of damage.
    bool survives(std::string_view content)
    {
        std::filesystem::remove_all(folder->path());
        folder->folder("");
        setContent(file(), content);
        auto opened = openedStore(folder->path(), log);
        const bool told = opened.notice.has_value();
        EXPECT_EQ(namesIn(folder->path()).size(), told ? 2U : 1U);
        {
            DefaultMethods store(*opened.defaults, disk, clock, log);
            const auto list = store.loadListReportWithKey(kKey);
            EXPECT_TRUE(!told || list.empty());
            const auto report = reportOf({"/tmp/new"});
            const auto updated = store.updateReportInDefaults(report);
            EXPECT_TRUE(updated.ok()) << updated.error().message;
            EXPECT_TRUE(opened.defaults->set(preferences::kScan, true).ok());
            const auto again = store.loadListReportWithKey(kKey);
            EXPECT_TRUE(!again.empty() && again[0]->reportId == report->reportId);
        }
        opened.defaults.reset();
        opened = openedStore(folder->path(), log);
        EXPECT_EQ(opened.notice, std::nullopt) << "told once";
        EXPECT_TRUE(opened.defaults->get(preferences::kScan));
        return told;
    }

    std::unique_ptr<TemporaryFolder> folder = fastFolder();
    RecordingLog log;
    CountingDisk disk;
    FakeClock clock;
    std::string sound;
};

TEST_F(StoreDamageTest, StartsAfreshOnWhatIsNoStore)
{
    EXPECT_FALSE(survives(sound));
    // The stored statement that makes the table, with one word changed to another of its length.
    std::string foreign = sound;
    const auto word = foreign.find("type TEXT NOT NULL");
    ASSERT_NE(word, std::string::npos);
    foreign.replace(word, 4, "kind");
    for (const auto& content :
         {std::string(), std::string("garbage"), std::string(8192, '\0'),
          std::string(sound.size(), '\xff'), std::string("SQLite format 3"), foreign})
        EXPECT_TRUE(survives(content));
    EXPECT_EQ(log.lines().size(), 6U);
    EXPECT_NE(log.lines()[0].find("kept as " + file() + ".damaged-2"), std::string::npos);
}

TEST_F(StoreDamageTest, SurvivesTruncationAnywhere)
{
    for (std::size_t size = 1; size < sound.size() && !HasFailure(); size += size < 200 ? 9 : 509)
        // Of the last page only what follows the list's end can be missing unnoticed.
        EXPECT_TRUE(survives(sound.substr(0, size)) || size > sound.size() - 4096) << size;
}

TEST_F(StoreDamageTest, SurvivesFlippedBits)
{
    std::mt19937 random(7);
    // Every bit of the header and of the first pages' heads, then some anywhere.
    std::vector<std::size_t> bits;
    for (std::size_t bit = 0; bit < 112 * 8; ++bit)
        bits.push_back(bit);
    for (std::size_t page = 1; page * kPage < sound.size(); ++page) {
        for (std::size_t bit = 0; bit < 16 * 8; bit += 5)
            bits.push_back(page * kPage * 8 + bit);
    }
    for (int i = 0; i < 300; ++i)
        bits.push_back(random() % (sound.size() * 8));
    int told = 0;
    for (const std::size_t bit : bits) {
        SCOPED_TRACE("byte " + std::to_string(bit / 8) + " bit " + std::to_string(bit % 8));
        std::string damaged = sound;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << (bit % 8)));
        told += survives(damaged) ? 1 : 0;
        if (HasFailure())
            return;
    }
    EXPECT_GT(told, 100);
}

TEST_F(StoreDamageTest, KeepsThreeDamagedFilesTheLargestAndTheirJournals)
{
    for (int i = 0; i < 6; ++i) {
        // The second is the one that holds something. An empty file, or SQLite itself would make
        // away with the odd journal.
        setContent(file(), i == 1 ? std::string(9000, 'x') : "");
        if (i != 1)
            setContent(file() + "-journal", "journal " + std::to_string(i));
        EXPECT_TRUE(openedStore(folder->path(), log).notice.has_value());
        usleep(2000); // the names go by the millisecond
    }
    const auto names = namesIn(folder->path());
    ASSERT_EQ(names.size(), 8U);
    EXPECT_EQ(contentOf(folder->hostPath(names[1])).size(), 9000U);
    EXPECT_EQ(contentOf(folder->hostPath(names[3])), "journal 3");
    EXPECT_EQ(contentOf(folder->hostPath(names[7])), "journal 5");
    EXPECT_EQ(names[3], names[2] + "-journal");
}

/// The findings of a large store are not read at each start. What is wrong with them is found by
/// whoever needs them, and the next start sets the file aside.
TEST_F(StoreDamageTest, LargeStoresAreLookedOverWithoutTheirFindings)
{
    auto opened = openedStore(folder->path(), log);
    const std::string piece(std::size_t{1} << 20, 'f');
    const auto filled = opened.defaults->reports().replaceAll(2, [&](std::size_t i) {
        return NewReport{"report " + std::to_string(i), "facts", [&](const PieceSink& sink) {
                             Result<Done> done = Done{};
                             for (int k = 0; k < 40 && done; ++k)
                                 done = sink(piece);
                             return done;
                         }};
    });
    ASSERT_TRUE(filled);
    opened.defaults.reset();
    std::string damaged = contentOf(file());
    // Behind the last page with findings of the older report, no page follows any more.
    const std::size_t page = damaged.size() / kPage / 4 * kPage;
    ASSERT_EQ(damaged.substr(page + 4, 9), "fffffffff");
    damaged.replace(page, 4, "\xff\xff\xff\xff");
    setContent(file(), damaged);

    const auto readOnly = SqliteUserDefaults::openReadOnly(folder->path(), log);
    ASSERT_TRUE(readOnly && !readOnly->notice);
    EXPECT_EQ(readOnly->defaults->reports().list()->size(), 2U);
    for (const bool writes : {false, true}) { // a failing write asks for the look
        opened = openedStore(folder->path(), log);
        ASSERT_FALSE(opened.notice.has_value()) << *opened.notice;
        ReportStore& reports = opened.defaults->reports();
        EXPECT_EQ(reports.list()->size(), 2U);
        EXPECT_FALSE(writes && reports.remove("report 1"));
        opened.defaults.reset();
    }
    EXPECT_EQ(contentOf(file()).size(), damaged.size());
    EXPECT_TRUE(openedStore(folder->path(), log).notice.has_value());
    EXPECT_EQ(namesIn(folder->path()).size(), 2U) << "kept beside a fresh one";
}

TEST_F(StoreDamageTest, PutsTheFileBackWhereAFreshOneCannotBeMade)
{
    setContent(file(), "garbage");
    const std::string outcome = inChild([&]() -> std::string {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit nothing{0, 0};
        static_cast<void>(setrlimit(RLIMIT_FSIZE, &nothing));
        const auto opened = SqliteUserDefaults::open(folder->path(), log);
        return opened.ok() ? "opened" : opened.error().message;
    });
    EXPECT_NE(outcome.find("The damaged file was left as it is."), std::string::npos) << outcome;
    EXPECT_EQ(namesIn(folder->path()), std::vector<std::string>{std::string(kStoreFile)});
    EXPECT_EQ(contentOf(file()), "garbage");
}

TEST_F(StoreDamageTest, OneOfManyStartingAtOnceReplacesTheFile)
{
    setContent(file(), "garbage");
    std::atomic<int> notices{0};
    std::vector<std::thread> starts;
    for (int i = 0; i < 8; ++i) {
        starts.emplace_back([&] {
            if (openedStore(folder->path(), log).notice)
                ++notices;
        });
    }
    for (auto& start : starts)
        start.join();
    EXPECT_EQ(notices, 1);
    EXPECT_EQ(namesIn(folder->path()).size(), 2U);
}

TEST_F(StoreDamageTest, AFullDiskIsToldAndLosesNothing)
{
    const std::string answer = inChild([&]() -> std::string {
        if (unshare(CLONE_NEWNS) != 0 || mount("", "/", "", MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("tmpfs", folder->path().c_str(), "tmpfs", 0, "size=256k") != 0)
            return "no mounts of its own";
        std::ofstream(folder->hostPath("filler")) << std::string(1 << 20, 'x');
        const auto full = SqliteUserDefaults::open(folder->path(), log);
        std::string told = full ? "" : full.error().message;
        told += namesIn(folder->path()).size() == 1 ? "; " : " and leaves an empty file; ";
        folder->remove("filler");
        const auto opened = openedStore(folder->path(), log);
        DefaultMethods store(*opened.defaults, disk, clock, log);
        if (!store.saveListReport(manyReports(20), kKey))
            return "cannot save where there is room";
        const auto saved = store.saveListReport(manyReports(900), kKey);
        told += saved ? "256k held 900" : saved.error().message;
        return told + "; " + std::to_string(store.listReports()->size()) + " stay";
    });
    if (answer.starts_with("no mounts"))
        GTEST_SKIP() << answer;
    EXPECT_THAT(answer, testing::MatchesRegex(".*disk is full.*; .*disk is full; free some "
                                              "space.*; 20 stay"));
}

} // namespace

} // namespace pryvane::test
