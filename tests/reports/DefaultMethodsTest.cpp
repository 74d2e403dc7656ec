#include "reports/DefaultMethods.h"

#include "reports/ReportCodec.h"
#include "store/MemoryUserDefaults.h"
#include "store/SqliteUserDefaults.h"
#include "support/Fakes.h"
#include "support/ReportFixtures.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace pryvane::test {

namespace {

constexpr auto kKey = preferences::kSaveReport;

std::vector<std::string> identities(const ReportList& list)
{
    std::vector<std::string> ids;
    for (const auto& report : list)
        ids.push_back(report->reportId);
    return ids;
}

/// The same rules hold over both stores.
class DefaultMethodsTest : public testing::TestWithParam<const char*> {
protected:
    DefaultMethodsTest()
    {
        clock.setNow(kReportDate + std::chrono::hours(24));
        if (std::string_view(GetParam()) == "Sqlite")
            defaults = std::move(SqliteUserDefaults::open(folder.path(), log)).value().defaults;
        else
            defaults = std::make_unique<MemoryUserDefaults>();
        store = std::make_unique<DefaultMethods>(*defaults, disk, clock, log);
    }

    TemporaryFolder folder;
    RecordingLog log;
    CountingDisk disk;
    FakeClock clock;
    std::unique_ptr<UserDefaults> defaults;
    std::unique_ptr<DefaultMethods> store;
};

INSTANTIATE_TEST_SUITE_P(Stores, DefaultMethodsTest, testing::Values("Memory", "Sqlite"),
                         [](const auto& row) { return std::string(row.param); });

TEST_P(DefaultMethodsTest, PutsNewAndChangedReportsAtTheHead)
{
    EXPECT_TRUE(store->loadListReportWithKey(kKey).empty());
    const auto first = reportOf({"/tmp/a"}), second = reportOf({}), third = reportOf({"/tmp/b"});
    for (const auto& report : {first, second, third, first}) {
        report->scanDuration += "changed";
        ASSERT_TRUE(store->updateReportInDefaults(report).ok());
    }
    const auto loaded = store->loadListReportWithKey(kKey);
    EXPECT_EQ(identities(loaded), identities({first, third, second}));
    EXPECT_EQ(loaded[0]->scanDuration, first->scanDuration);
    EXPECT_EQ(loaded[0]->reportDateDisplay, "Yesterday");
    EXPECT_EQ(loaded[2]->redGreen, kReportGreen);

    EXPECT_FALSE(store->deleteReport("another").value());
    EXPECT_TRUE(store->deleteReport(third->reportId).value());
    EXPECT_FALSE(store->deleteReport(third->reportId).value());
    EXPECT_EQ(identities(store->loadListReportWithKey(kKey)), identities({first, second}));
    EXPECT_TRUE(log.lines().empty());

    // Of several with one identity the first is replaced.
    const auto twin = reportOf({"/tmp/2"}), other = reportOf({"/tmp/3"});
    other->reportId = twin->reportId = first->reportId;
    ASSERT_TRUE(store->saveListReport({twin, other}, kKey).ok());
    ASSERT_TRUE(store->updateReportInDefaults(first).ok());
    const auto list = store->loadListReportWithKey(kKey);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(storedFields(*list[1]), storedFields(*other));
}

TEST_P(DefaultMethodsTest, RecordsFollowTheDiskEachPathAskedOnce)
{
    disk.paths = {"/tmp/there", "/folder"};
    const auto here = reportOf({"/tmp/there", "/tmp/gone", "folder/", "/folder"});
    const auto again = reportOf({"/tmp/there", "/tmp/gone"});
    const auto elsewhere = reportOf({"/tmp/there"});
    elsewhere->volume = "volume-2";
    ASSERT_TRUE(store->saveListReport({here, again, elsewhere}, kKey).ok());

    const auto availability = [](const ReportList& list) {
        std::string text;
        for (const auto& report : list) {
            for (const auto& record : *report->spyWareList) {
                EXPECT_EQ(record->isAvail(), record->isChecked);
                EXPECT_EQ(record->redGreen, record->isAvail() ? RowColor::Black : RowColor::Grey);
                text += record->isAvail() ? '+' : '-';
            }
            text += ' ';
        }
        return text;
    };
    EXPECT_EQ(availability(store->loadListReportWithKey(kKey)), "+-++ +- - ");
    for (const auto& [path, times] : disk.asked)
        EXPECT_EQ(times, 1) << path;
    disk.asked.clear();
    EXPECT_EQ(availability(store->loadListReportWithoutDisk(kKey)), "---- -- - ");
    EXPECT_TRUE(disk.asked.empty());
}

TEST_P(DefaultMethodsTest, ListsFactsAndLoadsOneReport)
{
    disk.paths = {"/tmp/a"};
    const auto many = reportOf(std::vector<std::string>(300, "/tmp/a")), none = reportOf({});
    (*many->spyWareList)[7]->infections = "Revir";
    for (const auto& report : {none, many})
        ASSERT_TRUE(store->updateReportInDefaults(report).ok());
    const auto list = store->listReports();
    ASSERT_TRUE(list.ok() && list->size() == 2);
    const ReportFacts& facts = list->front();
    EXPECT_EQ(facts.reportId, many->reportId);
    EXPECT_EQ(facts.findings, 300U);
    EXPECT_EQ(facts.spyWareCount, 300U & 0xff);
    EXPECT_EQ(facts.threats, (std::vector<std::string>{"Okaz Installer", "Revir"}));
    EXPECT_TRUE(facts.isRed && !list->back().isRed);
    EXPECT_EQ(facts.scanDate, many->scanDate);
    EXPECT_EQ(facts.volume, many->volume);
    EXPECT_TRUE(disk.asked.empty());

    const auto loaded = store->loadReport(many->reportId);
    ASSERT_TRUE(loaded.ok());
    EXPECT_EQ(storedFields(**loaded), storedFields(*many));
    EXPECT_TRUE((*loaded)->spyWareList->back()->isAvail());
    EXPECT_FALSE(store->loadReport("another").ok());
}

TEST_P(DefaultMethodsTest, KeepsReportsOfManyPieces)
{
    std::vector<std::string> paths;
    for (int i = 0; i < 10'000; ++i)
        paths.push_back("/Users/x/" + std::string(100, 'a') + std::to_string(i));
    const auto large = reportOf(paths), small = reportOf({"/tmp/a"});
    ASSERT_TRUE(store->saveListReport({large, small}, kKey).ok());
    const auto back = store->loadReport(large->reportId);
    ASSERT_TRUE(back.ok());
    EXPECT_EQ(storedFields(**back), storedFields(*large));
    const auto place = defaults->reports().list()->front().place;
    EXPECT_EQ(defaults->reports().pieces(place, 2, 100'000'000)->size(), 3U);
    ASSERT_TRUE(store->deleteReport(large->reportId).value());
    EXPECT_EQ(defaults->reports().pieces(place - 1, 0, 100'000'000)->size(), 1U) << "left behind";
    EXPECT_EQ(identities(store->loadListReportWithKey(kKey)), identities({small}));
}

TEST_P(DefaultMethodsTest, LeavesOutADamagedReportAndKeepsIt)
{
    const auto good = reportOf({"/tmp/a"});
    const auto write = [](const char* piece) {
        return [piece](const PieceSink& sink) { return sink(piece); };
    };
    ASSERT_TRUE(store->updateReportInDefaults(good).ok());
    ASSERT_TRUE(defaults->reports().put({"facts", "nonsense", write("nonsense")}).ok());
    ASSERT_TRUE(defaults->reports().put({"value", encodeFacts(*reportOf({})), write("\xa0")}).ok());
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(identities(store->loadListReportWithKey(kKey)), identities({good}));
        EXPECT_EQ(store->listReports()->size(), 2U) << "its facts can be read";
        EXPECT_FALSE(store->loadReport("value").ok());
    }
    EXPECT_EQ(log.lines().size(), 2U) << "each told once";
    ASSERT_TRUE(store->updateReportInDefaults(reportOf({})).ok());
    EXPECT_EQ(defaults->reports().list()->size(), 4U);
}

TEST_P(DefaultMethodsTest, TakesTheListOfAnEarlierVersionOver)
{
    const auto a = reportOf({"/tmp/1", "/tmp/2"}), b = reportOf({}), fresh = reportOf({"/tmp/3"});
    ASSERT_TRUE(defaults->setObject(kKey, Bytes{encodeReports({a, b})}).ok());
    EXPECT_EQ(store->listReports()->front().findings, 2U);
    EXPECT_EQ(storedFields(**store->loadReport(a->reportId)), storedFields(*a));
    EXPECT_TRUE(defaults->contains(kKey)) << "reading changes nothing";

    // As if the taking over had been broken off: what stands in the rows already does not count.
    ASSERT_TRUE(defaults->reports().put({"half", "", [](auto&) { return Done{}; }}).ok());
    ASSERT_TRUE(store->updateReportInDefaults(fresh).ok());
    EXPECT_FALSE(defaults->contains(kKey));
    EXPECT_EQ(identities(store->loadListReportWithKey(kKey)), identities({fresh, a, b}));
    EXPECT_TRUE(log.lines().empty());
}

TEST_P(DefaultMethodsTest, SetsADamagedListOfAnEarlierVersionAsideBeforeTheNextSave)
{
    const Bytes damaged{"no report list"};
    ASSERT_TRUE(defaults->setObject(kKey, damaged).ok());
    EXPECT_TRUE(store->loadListReportWithKey(kKey).empty());
    EXPECT_TRUE(store->listReports()->empty());
    EXPECT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(defaults->getBytes(kKey), damaged) << "until the next save";

    const auto report = reportOf({"/tmp/a"});
    ASSERT_TRUE(store->updateReportInDefaults(report).ok());
    EXPECT_EQ(identities(store->loadListReportWithKey(kKey)), identities({report}));
    EXPECT_FALSE(defaults->contains(kKey));
    EXPECT_EQ(log.lines().size(), 1U);
}

} // namespace

} // namespace pryvane::test
