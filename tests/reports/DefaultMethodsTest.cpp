#include "reports/DefaultMethods.h"

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
    for (const auto& report : {first, second, third})
        ASSERT_TRUE(store->updateReportInDefaults(report).ok());
    EXPECT_EQ(identities(store->loadListReportWithKey(kKey)), identities({third, second, first}));

    first->scanDuration = "changed";
    const auto updated = store->updateReportInDefaults(first);
    ASSERT_TRUE(updated.ok());
    EXPECT_EQ(updated->front(), first) << "the given report itself, not a copy";
    const auto loaded = store->loadListReportWithKey(kKey);
    EXPECT_EQ(identities(loaded), identities({first, third, second}));
    EXPECT_EQ(identities(*updated), identities(loaded));
    EXPECT_EQ(loaded[0]->scanDuration, "changed");
    EXPECT_EQ(loaded[0]->reportDateDisplay, "Yesterday");
    EXPECT_EQ(loaded[2]->openTrash, "btn_trash.tiff");
    EXPECT_EQ(loaded[2]->redGreen, kReportGreen);
    EXPECT_TRUE(log.lines().empty());
}

TEST_P(DefaultMethodsTest, ReplacesOnlyTheFirstOfSeveralWithOneIdentity)
{
    const auto a = reportOf({"/tmp/1"}), b = reportOf({"/tmp/2"}), c = reportOf({"/tmp/3"});
    b->reportId = c->reportId = a->reportId;
    ASSERT_TRUE(store->saveListReport({b, c}, kKey).ok());
    const auto list = store->updateReportInDefaults(a);
    ASSERT_TRUE(list.ok());
    ASSERT_EQ(list->size(), 2U);
    EXPECT_EQ(storedFields(*(*list)[1]), storedFields(*c));
}

TEST_P(DefaultMethodsTest, DeletesByIdentity)
{
    const auto a = reportOf({}), b = reportOf({});
    ASSERT_TRUE(store->saveListReport({a, b}, kKey).ok());
    EXPECT_FALSE(store->deleteReport("another").value());
    EXPECT_TRUE(store->deleteReport(a->reportId).value());
    EXPECT_FALSE(store->deleteReport(a->reportId).value());
    EXPECT_EQ(identities(store->loadListReportWithKey(kKey)), identities({b}));
}

TEST_P(DefaultMethodsTest, RecordsFollowTheDiskEachPathAskedOnce)
{
    disk.paths = {"/tmp/there", "/folder"};
    const auto here = reportOf({"/tmp/there", "/tmp/gone", "folder/", "/folder"});
    const auto again = reportOf({"/tmp/there", "/tmp/gone"});
    const auto elsewhere = reportOf({"/tmp/there"});
    elsewhere->volume = "volume-2";
    ASSERT_TRUE(store->saveListReport({here, again, elsewhere}, kKey).ok());

    const auto list = store->loadListReportWithKey(kKey);
    const auto availability = [](const SpywareScanReport& report) {
        std::string text;
        for (const auto& record : *report.spyWareList) {
            EXPECT_EQ(record->isAvail, record->isChecked);
            EXPECT_EQ(record->redGreen, record->isAvail ? RowColor::Black : RowColor::Grey);
            text += record->isAvail ? '+' : '-';
        }
        return text;
    };
    EXPECT_EQ(availability(*list[0]), "+-++");
    EXPECT_EQ(availability(*list[1]), "+-");
    EXPECT_EQ(availability(*list[2]), "-");
    for (const auto& [path, times] : disk.asked)
        EXPECT_EQ(times, 1) << path;

    disk.asked.clear();
    EXPECT_EQ(availability(*store->loadListReportWithoutDisk(kKey)[0]), "----");
    EXPECT_TRUE(disk.asked.empty());
}

TEST_P(DefaultMethodsTest, SetsADamagedValueAsideBeforeTheNextSave)
{
    const Bytes damaged{"no report list"};
    ASSERT_TRUE(defaults->setObject(kKey, damaged).ok());
    EXPECT_TRUE(store->loadListReportWithKey(kKey).empty());
    EXPECT_TRUE(store->loadListReportWithKey(kKey).empty());
    EXPECT_FALSE(store->deleteReport("any").value());
    EXPECT_EQ(log.lines().size(), 1U);
    EXPECT_EQ(defaults->getBytes(kKey), damaged) << "until the next save";

    const auto report = reportOf({"/tmp/a"});
    ASSERT_TRUE(store->updateReportInDefaults(report).ok());
    EXPECT_EQ(identities(store->loadListReportWithKey(kKey)), identities({report}));
    EXPECT_EQ(log.lines().size(), 1U);
}

/// Preferences on which every write fails.
class FailingDefaults final : public UserDefaults {
public:
    std::optional<PreferenceValue> objectForKey(std::string_view) override { return std::nullopt; }
    Result<Done> setObject(std::string_view, const PreferenceValue&) override { return full(); }
    Result<Done> removeObject(std::string_view) override { return full(); }
    Result<Done> updateBytes(std::string_view, const Change& change) override
    {
        static_cast<void>(change(std::nullopt));
        return full();
    }
    Result<Done> setAside(std::string_view) override { return full(); }

private:
    static Error full() { return Error{"The disk is full."}; }
};

TEST(DefaultMethodsFailure, IsReturnedAndLogged)
{
    FailingDefaults defaults;
    CountingDisk disk;
    FakeClock clock;
    RecordingLog log;
    DefaultMethods store(defaults, disk, clock, log);
    EXPECT_EQ(store.updateReportInDefaults(reportOf({})).error().message, "The disk is full.");
    EXPECT_FALSE(store.saveListReport({}, kKey).ok());
    EXPECT_EQ(log.lines().size(), 2U);
}

} // namespace

} // namespace pryvane::test
