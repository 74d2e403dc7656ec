#include "cli/CliFixture.h"
#include "hosts/posix/SystemClock.h"
#include "removal/disk/RemovalJournalFile.h"
#include "support/PrintServer.h"
#include "volume/VolumeFileSystem.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

namespace pryvane {
namespace {

using nlohmann::json;
using testing::AllOf;
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
};

TEST_F(ReportCommandTest, ListsNewestFirstAndShowsWhatIsStillThere)
{
    const auto ids = reportIds();
    ASSERT_EQ(ids.size(), 2U);
    const Outcome latest = onVolume({"report", "show", "latest"});
    EXPECT_EQ(latest.code, 0);
    EXPECT_THAT(latest.out, HasSubstr(ids[0]));
    EXPECT_THAT(latest.out, testing::ContainsRegex("BlackHole RAT +High Risk +present"));
    const Outcome older = onVolume({"report", "show", ids[1].substr(0, 12)});
    EXPECT_THAT(older.out, testing::ContainsRegex("Revir +High Risk +gone"));

    const Outcome elsewhere = run({"report", "show", "latest"});
    EXPECT_THAT(elsewhere.out, testing::ContainsRegex("BlackHole RAT +High Risk +unknown"));
    EXPECT_THAT(elsewhere.err, HasSubstr("--volume DIR"));
}

TEST_F(ReportCommandTest, TellsWhatBecameOfEachFindingAndWhereTheJournalLies)
{
    volume.file("/tmp/.mdworker");
    ASSERT_EQ(scan().code, 1); // finds both
    const Outcome before = onVolume({"report", "show", "latest"});
    EXPECT_THAT(before.out, testing::Not(HasSubstr("Journal:")));
    EXPECT_EQ(onVolume({"remove", "latest", "--all", "--yes"}).code, 0);
    const Outcome removed = onVolume({"report", "show", "latest"});
    EXPECT_THAT(removed.out, testing::ContainsRegex("1  removed +[0-9]+.* 1 entry"));
    EXPECT_THAT(removed.out, testing::ContainsRegex("2  removed"));
    EXPECT_THAT(removed.out, HasSubstr("Journal:  " + data.path() + "/Removals.jsonl"));

    const auto disk = std::move(VolumeFileSystem::open(volume.path()).value());
    SystemClock clock;
    RemovalJournalFile journal(data.path(), *disk, clock);
    const RemovalItem item{FileURL::fileURLWithPath("/tmp/.mdworker"), std::nullopt};
    ASSERT_TRUE(journal.begin({&item, 1}));
    EXPECT_THAT(onVolume({"report", "show", "latest"}).out, HasSubstr("goes on"));
    RemovalResult failed;
    failed.obstacle = RemovalObstacle::Locked;
    journal.ended(0, failed);
    ASSERT_TRUE(journal.flush());
    const Outcome shown = onVolume({"report", "show", "latest"});
    EXPECT_THAT(shown.out, testing::ContainsRegex("  failed +[0-9]+"));
    EXPECT_THAT(shown.out, HasSubstr(failed.reason()));

    // A report's findings are not those of an earlier one at the same places.
    volume.file("/tmp/.mdworker");
    ASSERT_EQ(scan().code, 1);
    EXPECT_THAT(onVolume({"report", "show", "latest"}).out, testing::Not(HasSubstr("Journal:")));
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

using DisksCommandTest = test::CliFixture;

TEST_F(DisksCommandTest, TheLatestReportIsThatOfTheDiskInFront)
{
    const test::TemporaryFolder second, third;
    const std::array<const test::TemporaryFolder*, 3> disks{&volume, &second, &third};
    std::vector<std::string> words;
    for (const test::TemporaryFolder* disk : disks) {
        disk->folder("/Users/alice");
        if (disk == &second)
            disk->file("/tmp/.mdworker");
        static_cast<void>(run({"scan", "--volume", disk->path(), "--user", "alice"}));
    }
    for (const test::TemporaryFolder* disk : disks) {
        const std::vector<std::string> of{"--volume", disk->path()};
        const auto ofDisk = [&](std::vector<std::string> command) {
            command.insert(command.end(), of.begin(), of.end());
            return run(command);
        };
        words.push_back(json::parse(ofDisk({"report", "export", "latest"}).out).at("verdict"));
        const Outcome listed = ofDisk({"report", "list"});
        EXPECT_EQ(std::ranges::count(listed.out, '\n'), 1) << listed.out;
        EXPECT_THAT(listed.out, HasSubstr(" " + words.back() + " "));
        EXPECT_THAT(listed.err, HasSubstr("2 reports of other disks left out"));
        EXPECT_THAT(ofDisk({"report", "compare", "latest", "latest"}).out,
                    HasSubstr("0 new, 0 gone"));
    }
    EXPECT_THAT(words, testing::ElementsAre("clean", "found", "clean"));
    EXPECT_EQ(reportIds().size(), 3U) << "all, where none is named";
    EXPECT_EQ(run({"remove", "latest", "--all", "--yes", "--volume", third.path()}).code, 0);
    EXPECT_TRUE(second.contains("/tmp/.mdworker"));
    const test::TemporaryFolder unseen;
    unseen.folder("/Users/alice");
    EXPECT_EQ(run({"report", "show", "latest", "--volume", unseen.path()}).code, 2);
    EXPECT_THAT(run({"report", "list", "--volume", unseen.path()}).out, testing::IsEmpty());
}

/// What was learned of one disk is told of that disk.
TEST_F(DisksCommandTest, EachReportNamesItsMac)
{
    volume.file("/Library/Preferences/SystemConfiguration/preferences.plist",
                "<plist version=\"1.0\"><dict><key>System</key><dict><key>System</key><dict>"
                "<key>ComputerName</key><string>Alice's &lt;Mac&gt;</string></dict></dict></dict>"
                "</plist>");
    ASSERT_EQ(scan().code, 0);
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"report", "list"},
          {"report", "show", "latest"},
          {"report", "export", "latest"},
          {"report", "export", "latest", "--format", "csv"},
          {"report", "export", "latest", "--format", "html"}}) {
        const bool isHtml = command.back() == "html";
        EXPECT_THAT(onVolume(command).out,
                    AllOf(HasSubstr(isHtml ? "Alice&#39;s &lt;Mac&gt;" : "Alice's <Mac>"),
                          HasSubstr("alice")))
            << command.back();
    }
}

class PrintCommandTest : public test::CliFixture {
protected:
    PrintCommandTest()
    {
        setenv("XDG_CACHE_HOME", data.hostPath("caches").c_str(), 1);
        for (const char* name : {"PRINTER", "LPDEST"})
            unsetenv(name);
        volume.file("/tmp/.mdworker");
    }
    ~PrintCommandTest() override
    {
        unsetenv("XDG_CACHE_HOME");
        unsetenv("CUPS_SERVER");
    }
};

TEST_F(PrintCommandTest, WritesDocumentsOrSaysWhyNot)
{
    const std::string nowhere = data.hostPath("gone/x.pdf");
    const Outcome scanned = scan({"--pdf", nowhere});
    EXPECT_EQ(scanned.code, 2);
    EXPECT_THAT(scanned.err, HasSubstr("no such file or directory"));
    EXPECT_TRUE(reportIds().empty()) << "it is better known before the scan";
    const std::string first = data.hostPath("scan.pdf"), second = data.hostPath("report.pdf");
    EXPECT_EQ(scan({"--pdf", first}).code, 1);
    EXPECT_EQ(onVolume({"report", "pdf", "latest", second}).code, 0);
    for (const std::string& written : {first, second})
        EXPECT_THAT(test::contentOf(written), testing::StartsWith("%PDF-"));
    EXPECT_EQ(onVolume({"report", "pdf", "latest", nowhere}).code, 2);
}

TEST_F(PrintCommandTest, PrintsWhatItWrote)
{
    EXPECT_EQ(scan().code, 1);
    setenv("CUPS_SERVER", data.hostPath("no.sock").c_str(), 1);
    const Outcome unserved = onVolume({"report", "print", "latest"});
    EXPECT_EQ(unserved.code, 2);
    EXPECT_THAT(unserved.err, HasSubstr("there is no print service"));

    const test::PrintServer server;
    if (!server.trouble().empty())
        GTEST_SKIP() << server.trouble();
    setenv("CUPS_SERVER", server.socket().c_str(), 1);
    const Outcome nobody = onVolume({"report", "print", "latest", "--printer", "attic"});
    EXPECT_EQ(nobody.code, 2);
    EXPECT_THAT(nobody.err, HasSubstr("choose one of: pile, shut"));

    const Outcome printed = onVolume({"report", "print", "latest"});
    EXPECT_EQ(printed.code, 0) << printed.err;
    EXPECT_THAT(printed.out, HasSubstr("Print job "));
    const auto arrived = server.arrived();
    ASSERT_TRUE(arrived);
    EXPECT_THAT(*arrived, testing::StartsWith("%PDF-"));
    EXPECT_EQ(*arrived, test::contentOf(data.hostPath("caches/pryvane/Report.PDF")));
    EXPECT_THAT(server.told(), HasSubstr("media=iso_a4_210x297mm"));

    // What cannot be replaced is an older report, which is not printed in place of this one.
    data.remove("caches/pryvane/Report.PDF");
    data.folder("caches/pryvane/Report.PDF/x");
    const Outcome unwritten = onVolume({"report", "print", "latest"});
    EXPECT_EQ(unwritten.code, 2);
    EXPECT_EQ(unwritten.out, "");
    EXPECT_THAT(unwritten.err, HasSubstr("Report.PDF: "));
}

} // namespace
} // namespace pryvane
