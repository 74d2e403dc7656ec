#include "removal/session/RecordRemoval.h"

#include "removal/session/BrowsersToQuit.h"
#include "removal/session/RemovalPlan.h"
#include "removal/session/RemovalSummary.h"
#include "reports/RecordAvailability.h"
#include "support/StubbornRemover.h"
#include "support/Volumes.h"
#include "support/WatchedDisk.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::ElementsAre;

const std::string kChrome = "/Users/al/Library/Application Support/Google/Chrome/x";
const std::string kFirefox = "/Users/al/Library/Application Support/Firefox/Profiles/x";
const std::string kSafari = "/Users/al/Library/Safari/ x";

TEST(BrowsersToQuit, AreThoseThatRunWithAFindingAmongTheirFiles)
{
    const std::vector<std::string> all{"Firefox", "Google Chrome", "Safari", "Mail"};
    const struct {
        const char* what;
        std::vector<std::string> paths, running, expected;
    } rows[] = {
        {"in the order of the table",
         {kFirefox, kChrome, kSafari},
         all,
         {"Safari", "Chrome", "Firefox"}},
        {"only those that run", {kFirefox, kChrome}, {"Firefox"}, {"Firefox"}},
        {"nothing runs", {kFirefox, kChrome}, {}, {}},
        {"each once", {kChrome, kChrome + "y"}, all, {"Chrome"}},
        {"elsewhere", {"/Users/al/Library/Application Support/Google/Chromf/x", "/tmp/x"}, all, {}},
        {"anywhere in the path", {"/Volumes/old" + kFirefox}, all, {"Firefox"}},
        {"another user", {"/Users/bo/Library/Application Support/Firefox/Profiles/x"}, all, {}},
        {"Safari's location ends with a blank", {"/Users/al/Library/Safari/x"}, all, {}},
        {"the display name does not count", {kChrome}, {"Chrome"}, {}},
    };
    for (const auto& row : rows) {
        std::vector<std::string> names;
        for (const BrowserEntry& entry : browsersToQuit(row.paths, row.running, "al"))
            names.push_back(entry.NameBrowser);
        EXPECT_EQ(names, row.expected) << row.what;
    }
    EXPECT_THAT(browsersToQuit(std::span(&kChrome, 1), all, "al"),
                ElementsAre(BrowserEntry{"Chrome", "/Applications/Google Chrome.app"}));
}

TEST(RemovalSummary, SaysWhatRemains)
{
    EXPECT_EQ(removalSummary({1, 0, 4, true}).counts,
              "1 finding removed, 3 left as you chose; Apple Remote Desktop stays: it is switched "
              "off in the Mac's settings.");
    EXPECT_EQ(removalSummary({7, 2}).counts, "7 findings removed, 2 failed.");
}

/// Of a disk without an identity only what a scan of this run has seen is known to be on it.
TEST(RecordRemoval, RefusesWhatMayBeOfAnotherDisk)
{
    using enum RemovalObstacle;
    const struct {
        const char *report, *disk;
        RemovalObstacle seen, stored;
    } rows[] = {
        {"a", "a", None, None},
        {"a", "b", OtherVolume, OtherVolume},
        {"", "", None, UnknownVolume},
        {"a", "", UnknownVolume, UnknownVolume},
        {"", "a", UnknownVolume, UnknownVolume},
    };
    const test::TemporaryFolder folder;
    const auto volume = test::volumeAt(folder, NameMatching::Exact);
    for (const auto& row : rows) {
        test::WatchedDisk disk(*volume);
        disk.name = row.disk;
        test::StubbornRemover remover(*volume);
        RecordRemoval removal(disk, remover);
        RecordSelection selection;
        selection.volume = row.report;
        std::vector<RemovalObstacle> expected;
        for (const bool seen : {true, false, false, true, false}) {
            const auto url = test::at("/a/" + std::to_string(expected.size()));
            folder.file(url.absolutePath());
            selection.records.push_back(Spyware::SpyWareSeen("x", "x", 0, url, kHighRisk));
            if (seen)
                selection.records.back()->seen = volume->sighting(url);
            expected.push_back(seen ? row.seen : row.stored);
        }
        const StopFlag never;
        std::vector<RemovalObstacle> planned, removed;
        const auto plan = removal.plan(selection, never);
        for (std::size_t i = 0; i < plan.rows.size(); ++i) {
            EXPECT_EQ(plan.rows[i].record, selection.records[i]);
            planned.push_back(plan.rows[i].forecast.obstacle);
        }
        removal.remove(selection, never, [&](std::size_t item, const RemovalResult& result) {
            EXPECT_EQ(item, removed.size());
            EXPECT_EQ(result.outcome == RemovalOutcome::Removed, result.obstacle == None);
            removed.push_back(result.obstacle);
        });
        EXPECT_EQ(planned, expected) << row.report << " on " << row.disk;
        EXPECT_EQ(removed, expected) << row.report << " on " << row.disk;

        SpywareScanReport report;
        report.volume = row.report;
        EXPECT_EQ(DiskPresence(disk).of(report, *selection.records[1]) == Presence::Unknown,
                  row.stored != None);
    }
}

/// It is switched off; but any file may be called as its record is.
TEST(RecordRemoval, RemoteDesktopStaysWhoeverAsks)
{
    const test::TemporaryFolder folder;
    const auto volume = test::volumeAt(folder, NameMatching::Exact);
    test::StubbornRemover remover(*volume);
    const RecordRemoval removal(*volume, remover);
    RecordSelection selection;
    selection.volume = volume->identity();
    for (const auto& [name, threat] : {std::pair("ARD", "Apple Remote Desktop"),
                                       std::pair("ARD", "Spyware"), std::pair("x", "Spyware")})
        selection.records.push_back(
            Spyware::SpyWareSeen(name, threat, 0, FileURL::fileURLWithPath("/a/x"), kHighRisk));
    const StopFlag never;
    const auto plan = removal.plan(selection, never);
    EXPECT_EQ(plan.rows.at(0).forecast.obstacle, RemovalObstacle::RemoteDesktop);
    EXPECT_EQ(plan.totals().hindered, 1U);
    std::vector<RemovalResult> results(3);
    removal.remove(selection, never,
                   [&](std::size_t item, const RemovalResult& result) { results[item] = result; });
    const SortedRecords sorted = sortOutcomes(selection.records, results);
    EXPECT_THAT(sorted.removed, ElementsAre(selection.records[1], selection.records[2]));
    EXPECT_THAT(sorted.failed, ElementsAre(selection.records[0]));
    EXPECT_EQ(removable(selection.records), sorted.removed);
}

TEST(RecordRemoval, CountsWhatWasRemovedFailedAndIsLeft)
{
    const auto recordOf = [](const char* path, bool isThere = true) {
        auto record =
            Spyware::SpyWareSeen("x", "Revir", 0, FileURL::fileURLWithPath(path), kHighRisk);
        record->setPresence(isThere ? Presence::Present : Presence::Absent);
        return record;
    };
    const SpywareList all{recordOf("/a"),       recordOf("/a/in"), recordOf("/b"),
                          recordOf("/b/in"),    recordOf("/c"),    recordOf("/gone", false),
                          recordOf("/relative")};
    RecordSelection selection{{all[0], all[2]}, "", {}};
    selection.there = thereOf(all);
    EXPECT_EQ(selection.there.size(), all.size() - 1);
    std::vector<RemovalResult> results(2);
    results[0].outcome = RemovalOutcome::Removed;
    // What lay in the one that went is not left; what lies in the one that failed is.
    EXPECT_EQ(tallyOf(selection, results), (RemovalTally{1, 1, 3}));
    results[1].outcome = RemovalOutcome::AlreadyGone;
    EXPECT_EQ(tallyOf(selection, results), (RemovalTally{2, 0, 2}));
}

RemovalPlan planOf(const std::vector<const char*>& findings)
{
    RemovalPlan plan;
    for (const char* path : findings) {
        const auto record =
            Spyware::SpyWareSeen("x", "Revir", 0, FileURL::fileURLWithPath(path), kHighRisk);
        RemovalForecast forecast;
        forecast.kind = FileKind::RegularFile;
        forecast.entries = 1;
        forecast.bytes = 512;
        plan.rows.push_back({record, FindingRules().flaggedBy(*record), forecast});
    }
    return plan;
}

TEST(RemovalPlan, CountsWhatWouldGo)
{
    RemovalPlan plan = planOf({"/a", "/b", "/c", "/d", "/e", "/f"});
    plan.rows[0].forecast.obstacle = RemovalObstacle::ReadOnlyVolume;
    plan.rows[1].forecast = {};
    const auto totals = plan.totals();
    EXPECT_EQ(totals.entries, 4U);
    EXPECT_EQ(totals.bytes, 4 * 512);
    EXPECT_EQ(totals.hindered, 1U);
    EXPECT_EQ(totals.gone, 1U);

    // What lies inside another one, or is listed twice, goes once; not inside one that stays.
    plan = planOf({"/a/b/c", "/a/b/", "/a/bc", "/a/b", "/stays", "/stays/x"});
    plan.rows[4].forecast.obstacle = RemovalObstacle::ReadOnlyVolume;
    EXPECT_EQ(plan.totals().rows, 6U);
    EXPECT_EQ(plan.totals().entries, 3U);
    EXPECT_EQ(plan.totals().bytes, 3 * 512);
}

} // namespace
} // namespace pryvane
