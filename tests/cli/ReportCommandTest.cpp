#include "cli/CliFixture.h"
#include "hosts/posix/SystemClock.h"
#include "removal/disk/RemovalJournalFile.h"
#include "volume/VolumeFileSystem.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::HasSubstr;

class ReportCommandTest : public test::CliFixture {
protected:
    ReportCommandTest()
    {
        volume.file("/tmp/.mdworker");
        EXPECT_EQ(scan().code, 1);
        volume.remove("/tmp/.mdworker");
        volume.file("/Users/alice/Library/mdsa1331");
        EXPECT_EQ(scan().code, 1);
    }
    std::string onVolume = "--volume=" + volume.path();
};

TEST_F(ReportCommandTest, ListsNewestFirstAndShowsWhatIsStillThere)
{
    const auto ids = reportIds();
    ASSERT_EQ(ids.size(), 2U);
    const Outcome latest = run({"report", "show", "latest", onVolume});
    EXPECT_EQ(latest.code, 0);
    EXPECT_THAT(latest.out, HasSubstr(ids[0]));
    EXPECT_THAT(latest.out, testing::ContainsRegex("BlackHole RAT +High Risk +present"));
    const Outcome older = run({"report", "show", ids[1].substr(0, 12), onVolume});
    EXPECT_THAT(older.out, testing::ContainsRegex("Revir +High Risk +gone"));
}

TEST_F(ReportCommandTest, AnotherVolumeMakesEveryFindingUnavailable)
{
    const Outcome shown = run({"report", "show", "latest"});
    EXPECT_THAT(shown.out, testing::ContainsRegex("BlackHole RAT +High Risk +unknown"));
    EXPECT_THAT(shown.err, HasSubstr("--volume DIR"));
}

TEST_F(ReportCommandTest, TellsWhatBecameOfEachFindingAndWhereTheJournalLies)
{
    volume.file("/tmp/.mdworker");
    ASSERT_EQ(scan().code, 1); // finds both
    const Outcome before = run({"report", "show", "latest", onVolume});
    EXPECT_THAT(before.out, testing::Not(HasSubstr("Journal:")));
    EXPECT_EQ(run({"remove", "latest", "--all", "--yes", onVolume}).code, 0);
    const Outcome removed = run({"report", "show", "latest", onVolume});
    EXPECT_THAT(removed.out, testing::ContainsRegex("1  removed +[0-9]+.* 1 entry"));
    EXPECT_THAT(removed.out, testing::ContainsRegex("2  removed"));
    EXPECT_THAT(removed.out, HasSubstr("Journal:  " + data.path() + "/Removals.jsonl"));

    const auto disk = std::move(VolumeFileSystem::open(volume.path()).value());
    SystemClock clock;
    RemovalJournalFile journal(data.path(), *disk, clock);
    const RemovalItem item{FileURL::fileURLWithPath("/tmp/.mdworker"), std::nullopt};
    ASSERT_TRUE(journal.begin({&item, 1}));
    EXPECT_THAT(run({"report", "show", "latest", onVolume}).out, HasSubstr("goes on"));
    RemovalResult failed;
    failed.obstacle = RemovalObstacle::Locked;
    journal.ended(0, failed);
    ASSERT_TRUE(journal.flush());
    const Outcome shown = run({"report", "show", "latest", onVolume});
    EXPECT_THAT(shown.out, testing::ContainsRegex("  failed +[0-9]+"));
    EXPECT_THAT(shown.out, HasSubstr(failed.reason()));

    // A report's findings are not those of an earlier one at the same places.
    volume.file("/tmp/.mdworker");
    ASSERT_EQ(scan().code, 1);
    EXPECT_THAT(run({"report", "show", "latest", onVolume}).out,
                testing::Not(HasSubstr("Journal:")));
}

TEST_F(ReportCommandTest, ComparesByLocation)
{
    const auto ids = reportIds();
    const Outcome changes = run({"report", "compare", ids[1], ids[0]});
    EXPECT_EQ(changes.code, 0);
    EXPECT_EQ(changes.out, "+ BlackHole RAT  /Users/alice/Library/mdsa1331\n"
                           "- Revir  /tmp/.mdworker\n"
                           "1 new, 1 gone, 0 in both\n"
                           "before: Found: 1 potential threat.\n"
                           "after:  Found: 1 potential threat.\n");
}

TEST_F(ReportCommandTest, DeletingAsksFirst)
{
    EXPECT_EQ(run({"report", "delete", "latest"}).code, 2);
    terminal = true;
    input = "n\n";
    EXPECT_EQ(run({"report", "delete", "latest"}).code, 2);
    EXPECT_EQ(reportIds().size(), 2U);
    input = "y\n";
    EXPECT_EQ(run({"report", "delete", "latest"}).code, 0);
    terminal = false;
    EXPECT_EQ(reportIds().size(), 1U);
    EXPECT_EQ(run({"report", "delete", "latest", "--yes"}).code, 0);
    const Outcome empty = run({"report", "list"});
    EXPECT_EQ(empty.code, 0);
    EXPECT_EQ(empty.out, "");
}

TEST_F(ReportCommandTest, ExplainAgreesWithTheScan)
{
    const Outcome flagged = run({"explain", "--user", "alice", "/Users/alice/Library/mdsa1331"});
    EXPECT_EQ(flagged.code, 1);
    EXPECT_THAT(flagged.out, HasSubstr("BlackHole RAT"));
    EXPECT_THAT(flagged.out, HasSubstr("exact path"));
    EXPECT_EQ(run({"explain", "/Users/alice/Library/mdsa1331"}).out, flagged.out)
        << "the user is in the path";
    EXPECT_EQ(run({"explain", "--user", "bob", "/Users/alice/Library/mdsa1331"}).code, 0);
    EXPECT_EQ(run({"explain", "--user", "alice", "/Users/alice/Library/Fonts"}).code, 0);
}

} // namespace
} // namespace pryvane
