#include "cli/CliFixture.h"
#include "hosts/posix/SystemClock.h"
#include "platform/Messages.h"
#include "reports/DefaultMethods.h"
#include "store/SqliteUserDefaults.h"
#include "support/ReportFixtures.h"
#include "support/RunningProgram.h"
#include "volume/VolumeFileSystem.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace pryvane {
namespace {

using test::refuses;
using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

// The report's items 1 to 4.
constexpr const char* kAobo = "/Users/alice/Library/.A_o_b_o/";
constexpr const char* kRefog = "/Library/LaunchAgents/com.refog.agent.plist";
constexpr const char* kMdsa = "/Users/alice/Library/mdsa1331";
constexpr const char* kMdworker = "/tmp/.mdworker";

class RemoveCommandTest : public test::CliFixture {
protected:
    RemoveCommandTest()
    {
        volume.link("/tmp", "private/tmp"); // as on every Mac
        volume.file("/private/tmp/.mdworker");
        for (const char* path : {kAobo, kRefog, kMdsa})
            volume.plant(path);
        volume.file("/Users/alice/Library/.A_o_b_o/inside");
        EXPECT_EQ(scan().code, 1);
    }
    Outcome remove(const std::vector<std::string>& more)
    {
        return onVolume({"remove", "latest", "--user", "alice"}, more);
    }
    Outcome removeFrom(const std::string& disk, const std::vector<std::string>& more)
    {
        std::vector<std::string> command{"remove", "latest", "--user", "alice", "--volume", disk};
        command.insert(command.end(), more.begin(), more.end());
        return run(command);
    }
    void expectAllThere()
    {
        for (const char* path : {kAobo, kRefog, kMdsa, kMdworker})
            EXPECT_TRUE(volume.contains(path)) << path;
    }
};

TEST_F(RemoveCommandTest, SaysWhatIsWrongWithTheArguments)
{
    const struct {
        std::vector<std::string> arguments;
        const char* complaint;
    } rows[] = {
        {{}, "name what to remove: --item N"},
        {{"--item", "0"}, "there is no item \"0\"; the report's items are numbered from 1 to 4"},
        {{"--item", "2", "--item", "5"}, "there is no item \"5\""},
        {{"--item", "99999999999999999999"}, "there is no item"},
        {{"--item", "x\x1b[2J"}, "\"x\\x1b[2J\" is no item's number"},
        {{"--item=-1"}, "is no item's number"},
        {{"--item", "2", "--item", "3", "--item", "2"}, "item 2 is named twice"},
        {{"--item", "2", "--all"}, "excludes"},
        {{"--item", "2", "--weak"}, "--all"},
        {{"--item", "2", "3"}, "3"},
    };
    for (auto row : rows) {
        row.arguments.push_back("--yes");
        EXPECT_THAT(remove(row.arguments), refuses(row.complaint));
    }
    EXPECT_THAT(run({"remove", "nosuch", "--all", "--yes"}), refuses("no report \"nosuch\""));
    expectAllThere();
}

TEST_F(RemoveCommandTest, ADryRunShowsThePlanAndRemovesNothing)
{
    volume.remove(kMdsa);
    const Outcome plan = remove({"--all", "--dry-run", "--yes"});
    EXPECT_EQ(plan.code, 0) << plan.err;
    EXPECT_THAT(plan.out, ContainsRegex("1  folder +2 +4.1 KB  Aobo Keylogger Pro +exact path"));
    EXPECT_THAT(plan.out,
                ContainsRegex("2  file +1 .*known name in a launch folder \"Refog\"  /Lib"));
    EXPECT_THAT(plan.out, ContainsRegex("3  gone +0 +0 byte "));
    EXPECT_THAT(plan.out,
                HasSubstr("Would remove: 3 findings with 4 entries, 12.3 KB; 1 is gone already\n"));
    volume.plant(kMdsa);
    expectAllThere();
}

TEST_F(RemoveCommandTest, ASecondRemovalTakesNoTwinOfWhatIsGone)
{
    volume.plant("/Library/LaunchAgents/COM.REFOG.AGENT.PLIST");
    volume.remove(kRefog);
    EXPECT_EQ(scan().code, 1);
    volume.plant(kRefog); // comes after the scan
    EXPECT_EQ(remove({"--all", "--yes"}).code, 0);
    EXPECT_FALSE(volume.contains("/Library/LaunchAgents/COM.REFOG.AGENT.PLIST"));
    const Outcome again = remove({"--all", "--yes"});
    EXPECT_THAT(again.out, HasSubstr("4 were gone already"));
    EXPECT_TRUE(volume.contains(kRefog)) << again.out;
}

TEST_F(RemoveCommandTest, AllLeavesWhatRestsOnAPartOfANameAlone)
{
    const std::vector<std::string> weak{"/Library/Preferences/com.okaz.x",
                                        "/Users/alice/notes/TypeRecorder.txt",
                                        "/Users/alice/notes/Koobface.txt"};
    for (const std::string& path : weak)
        volume.plant(path);
    const std::string found = scan({"--deep"}).out;
    EXPECT_THAT(found, ContainsRegex("name fragment \"Okaz\" +/Library/Preferences/com.okaz.x"));
    const std::string number =
        found.substr(found.rfind("  ", found.find("Okaz Installer") - 3) + 2, 1);
    const struct {
        std::vector<std::string> arguments;
        int code;
        long left;
        const char* remark;
    } rows[] = {
        {{"--all", "--dry-run"}, 0, 3, "3 findings that rest on weak evidence"},
        {{"--all"}, 1, 3, "3 findings that rest on weak evidence"},
        {{"--item", number}, 0, 2, ""}, // named by itself
        {{"--all", "--dry-run"}, 0, 2, "2 findings that rest"},
        {{"--all", "--weak"}, 0, 0, ""},
        {{"--all"}, 0, 0, ""}, // what is gone is not left
    };
    for (auto row : rows) {
        row.arguments.push_back("--yes");
        EXPECT_THAT(remove(row.arguments), test::remarks(row.code, row.remark));
        EXPECT_EQ(std::ranges::count_if(weak, [&](auto& path) { return volume.contains(path); }),
                  row.left);
    }
    EXPECT_FALSE(volume.contains(kAobo) || volume.contains(kRefog) || volume.contains(kMdworker));
}

TEST_F(RemoveCommandTest, AsksAndRemovesOnlyWhatWasChosen)
{
    EXPECT_EQ(remove({"--item", "1"}).code, 2);
    terminal = true;
    input = "n\n";
    EXPECT_EQ(remove({"--item", "1"}).code, 2);
    expectAllThere();
    input = "y\n";
    const Outcome removed = remove({"--item", "4", "--item", "1"});
    EXPECT_THAT(removed, test::remarks(0, "Remove 2 findings for good? [y/N]"));
    EXPECT_THAT(removed.err, HasSubstr("Keep a record first (pryvane-cli report pdf latest FILE"));
    EXPECT_THAT(removed.out, AllOf(HasSubstr("\nLeft: 2 findings of the report\n"),
                                   ContainsRegex("4  removed +1 +4.1 KB  /tmp/.mdworker\n"),
                                   HasSubstr("Removed: 2 findings, 3 entries, 8.2 KB in all\n")));
    EXPECT_FALSE(volume.contains(kAobo) || volume.contains(kMdworker));
    EXPECT_TRUE(volume.contains(kRefog) && volume.contains(kMdsa));
    EXPECT_THAT(test::contentOf(data.hostPath("Removals.jsonl")),
                HasSubstr(R"("removed":2,"failed":0,"left":2})"));
    input = "n\n";
    EXPECT_THAT(remove({"--item", "2"}).err, Not(HasSubstr("Keep a record first")))
        << "it is not the first removal from this disk any more";
    EXPECT_THAT(onVolume({"report", "show", "latest"}).out,
                AllOf(ContainsRegex("1  Aobo.* gone "), ContainsRegex("4  Revir.* gone "),
                      ContainsRegex("2  Refog.* present ")));
}

TEST_F(RemoveCommandTest, EachOutcomeHasItsLineAndItsReason)
{
    volume.remove(kMdsa);
    volume.file("/Users/alice/Agents/com.refog.agent.plist");
    volume.remove("/Library/LaunchAgents");
    volume.link("/Library/LaunchAgents", "/Users/alice/Agents");
    volume.remove("/private/tmp/.mdworker");
    volume.file("/private/tmp/.mdworker/photos/1");
    volume.file("/private/tmp/.MDWORKER");
    const Outcome outcome = remove({"--all", "--yes"});
    EXPECT_THAT(outcome, test::says(1, "1 was gone already"));
    EXPECT_THAT(outcome.out,
                AllOf(ContainsRegex("2  failed +0 +0 byte  .*refog.agent.plist  \\(a link"),
                      ContainsRegex("3  gone +0 +0 byte  .*mdsa1331\n")));
    EXPECT_TRUE(volume.contains("/Users/alice/Agents/com.refog.agent.plist"));
    EXPECT_TRUE(volume.contains("/private/tmp/.MDWORKER"));
    // Whoever could only trick root into removing a file gets no folder removed.
    const bool stays = test::runningAsRoot();
    EXPECT_EQ(volume.contains(kMdworker), stays);
    EXPECT_THAT(outcome.out, stays ? HasSubstr("it is no longer") : HasSubstr("another one is"));
    EXPECT_EQ(remove({"--item", "1", "--item", "3", "--yes"}).code, 0); // both are gone
}

TEST_F(RemoveCommandTest, RemoteDesktopStaysWhateverIsAskedFor)
{
    const std::string desktop = "/Library/Preferences/com.apple.RemoteDesktop.plist";
    volume.plant(desktop);
    EXPECT_EQ(scan().code, 1);
    const std::string words = "item 5 stays: remote desktop is not removed; switch it off in the "
                              "Mac's Sharing settings";
    const struct {
        std::vector<std::string> arguments;
        int code;
        const char* planned; ///< how many are left to be removed
    } rows[] = {
        {{"--item", "5", "--item", "1", "--yes"}, 2, ""},
        {{"--all", "--dry-run"}, 0, "Would remove: 4 findings"},
        {{"--all", "--yes"}, 1, "Removed: 4 findings"},
    };
    for (const auto& row : rows) {
        expectAllThere();
        const Outcome outcome = remove(row.arguments);
        EXPECT_EQ(outcome.code, row.code);
        EXPECT_THAT(outcome.err, HasSubstr(words));
        EXPECT_THAT(outcome.out, AllOf(HasSubstr(row.planned), Not(HasSubstr("RemoteDesktop"))));
    }
    EXPECT_FALSE(volume.contains(kAobo));
    EXPECT_TRUE(volume.contains(desktop));
}

TEST_F(RemoveCommandTest, AReportOfAnotherVolumeRemovesNothing)
{
    const test::TemporaryFolder other;
    other.plant(kMdsa);
    EXPECT_THAT(removeFrom(other.path(), {"--all", "--yes"}),
                refuses("there are no reports of this disk yet"));
    EXPECT_THAT(run({"remove", reportIds().front(), "--all", "--yes", "--user", "alice", "--volume",
                     other.path()}),
                refuses("name its volume with --volume DIR"));
    EXPECT_EQ(removeFrom("/", {"--all", "--dry-run"}).code, 2);
    EXPECT_TRUE(other.contains(kMdsa));
    expectAllThere();
}

TEST_F(RemoveCommandTest, AnInterruptBeforehandRemovesNothing)
{
    interrupted.request();
    for (const char* how : {"--dry-run", "--yes"})
        EXPECT_THAT(remove({"--all", how}), test::remarks(130, "interrupted"));
    expectAllThere();
}

TEST_F(RemoveCommandTest, ABrowserThatRunsBlocksOnItsOwnVolume)
{
    // A report of this host's own disk, with a finding that is not there.
    const auto host = VolumeFileSystem::open("/");
    SilentLog log;
    SystemClock clock;
    const auto report = test::reportOf({"/Users/alice/Library/Safari/ pryvane-test/none"});
    report->volume = (*host)->identity();
    {
        const auto store = SqliteUserDefaults::open(data.path(), log);
        ASSERT_TRUE(store);
        DefaultMethods reports(*store->defaults, **host, clock, log);
        ASSERT_TRUE(reports.updateReportInDefaults(report));
    }
    test::RunningProgram safari("Safari");
    const Outcome blocked = removeFrom("/", {"--all", "--weak", "--yes"});
    EXPECT_THAT(blocked, test::remarks(1, "Safari is running"));
    EXPECT_EQ(blocked.out, "");
    EXPECT_THAT(removeFrom("/", {"--all", "--weak", "--dry-run"}),
                test::remarks(0, "Safari is running"));
    safari.quit();
    EXPECT_THAT(removeFrom("/", {"--all", "--weak", "--yes"}), test::says(0, "1 was gone already"));
}

} // namespace
} // namespace pryvane
