#include "cli/CliFixture.h"
#include "hosts/posix/SystemClock.h"
#include "removal/disk/RemovalJournalFile.h"
#include "support/PrintServer.h"
#include "volume/VolumeFileSystem.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

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
    EXPECT_THAT(latest, test::says(0, ids[0]));
    EXPECT_THAT(latest.out, testing::ContainsRegex("BlackHole RAT +High Risk +present"));
    EXPECT_THAT(onVolume({"report", "show", ids[1].substr(0, 12)}).out,
                testing::ContainsRegex("Revir +High Risk +gone"));
    const Outcome elsewhere = run({"report", "show", "latest"});
    EXPECT_THAT(elsewhere, test::remarks(0, "--volume DIR"));
    EXPECT_THAT(elsewhere.out, testing::ContainsRegex("BlackHole RAT +High Risk +unknown"));
    EXPECT_EQ(run({"report", "compare", ids[1], ids[0]}).out,
              "+ BlackHole RAT  /Users/alice/Library/mdsa1331\n"
              "- Revir  /tmp/.mdworker\n"
              "1 new, 1 gone, 0 in both\n"
              "before: Found: 1 potential threat.\n"
              "after:  Found: 1 potential threat.\n");
}

TEST_F(ReportCommandTest, TellsWhatBecameOfEachFindingAndWhereTheJournalLies)
{
    const auto shown = [&] { return onVolume({"report", "show", "latest"}).out; };
    volume.file("/tmp/.mdworker");
    ASSERT_EQ(scan().code, 1); // finds both
    EXPECT_THAT(shown(), testing::Not(HasSubstr("Journal:")));
    EXPECT_EQ(onVolume({"remove", "latest", "--all", "--yes"}).code, 0);
    EXPECT_THAT(shown(), AllOf(testing::ContainsRegex("1  removed +[0-9]+.* 1 entry"),
                               testing::ContainsRegex("2  removed"),
                               HasSubstr("Journal:  " + data.path() + "/Removals.jsonl")));

    const auto disk = std::move(VolumeFileSystem::open(volume.path()).value());
    SystemClock clock;
    RemovalJournalFile journal(data.path(), *disk, clock);
    const RemovalItem item{FileURL::fileURLWithPath("/tmp/.mdworker"), std::nullopt};
    ASSERT_TRUE(journal.begin({&item, 1}));
    EXPECT_THAT(shown(), HasSubstr("goes on"));
    RemovalResult failed;
    failed.obstacle = RemovalObstacle::Locked;
    journal.ended(0, failed);
    ASSERT_TRUE(journal.flush());
    EXPECT_THAT(shown(),
                AllOf(testing::ContainsRegex("  failed +[0-9]+"), HasSubstr(failed.reason())));

    // A report's findings are not those of an earlier one at the same places.
    volume.file("/tmp/.mdworker");
    ASSERT_EQ(scan().code, 1);
    EXPECT_THAT(shown(), testing::Not(HasSubstr("Journal:")));
}

TEST_F(ReportCommandTest, DeletingAsksFirst)
{
    const struct {
        const char* answer; ///< none: nobody is there to ask
        int code;
        std::size_t left;
    } rows[] = {{nullptr, 2, 2}, {"n\n", 2, 2}, {"y\n", 0, 1}};
    for (const auto& row : rows) {
        terminal = row.answer;
        input = row.answer ? row.answer : "";
        EXPECT_EQ(run({"report", "delete", "latest"}).code, row.code);
        EXPECT_EQ(reportIds().size(), row.left);
    }
    terminal = false;
    EXPECT_EQ(run({"report", "delete", "latest", "--yes"}).code, 0);
    EXPECT_EQ(run({"report", "list"}).out, "");
}

TEST_F(ReportCommandTest, ExplainAgreesWithTheScan)
{
    const std::string path = "/Users/alice/Library/mdsa1331";
    const Outcome flagged = run({"explain", "--user", "alice", path});
    EXPECT_THAT(flagged, test::says(1, "BlackHole RAT"));
    EXPECT_THAT(flagged.out, HasSubstr("exact path"));
    EXPECT_EQ(run({"explain", path}).out, flagged.out) << "the user is in the path";
    EXPECT_EQ(run({"explain", "--user", "bob", path}).code, 0);
}

using DisksCommandTest = test::CliFixture;

TEST_F(DisksCommandTest, TheLatestReportIsThatOfTheDiskInFront)
{
    const test::TemporaryFolder second, third;
    second.file("/tmp/.mdworker");
    const std::pair<const test::TemporaryFolder*, const char*> disks[] = {
        {&volume, "clean"}, {&second, "found"}, {&third, "clean"}};
    for (const auto& [disk, verdict] : disks) {
        disk->folder("/Users/alice");
        static_cast<void>(run({"scan", "--volume", disk->path(), "--user", "alice"}));
    }
    for (const auto& [disk, verdict] : disks) {
        const auto report = [&](std::vector<std::string> command) {
            command.insert(command.begin(), "report");
            command.insert(command.end(), {"--volume", disk->path()});
            return run(command);
        };
        EXPECT_EQ(json::parse(report({"export", "latest"}).out).at("verdict"), verdict);
        const Outcome listed = report({"list"});
        EXPECT_EQ(std::ranges::count(listed.out, '\n'), 1) << listed.out;
        EXPECT_THAT(listed.out, HasSubstr(" " + std::string(verdict) + " "));
        EXPECT_THAT(listed.err, HasSubstr("2 reports of other disks left out"));
        EXPECT_THAT(report({"compare", "latest", "latest"}).out, HasSubstr("0 new, 0 gone"));
    }
    EXPECT_EQ(reportIds().size(), 3U) << "all, where none is named";
    EXPECT_EQ(run({"remove", "latest", "--all", "--yes", "--volume", third.path()}).code, 0);
    EXPECT_TRUE(second.contains("/tmp/.mdworker"));
    const test::TemporaryFolder unseen;
    unseen.folder("/Users/alice");
    EXPECT_EQ(run({"report", "show", "latest", "--volume", unseen.path()}).code, 2);
    EXPECT_EQ(run({"report", "list", "--volume", unseen.path()}).out, "");
}

/// What was learned of one disk is told of that disk.
TEST_F(DisksCommandTest, EachReportNamesItsMac)
{
    volume.file("/Library/Preferences/SystemConfiguration/preferences.plist",
                "<plist version=\"1.0\"><dict><key>System</key><dict><key>System</key><dict>"
                "<key>ComputerName</key><string>Alice's &lt;Mac&gt;</string></dict></dict></dict>"
                "</plist>");
    ASSERT_EQ(scan().code, 0);
    for (const std::vector<std::string>& face :
         {std::vector<std::string>{"list"}, {"show", "latest"}, {"export", "latest"}}) {
        std::vector<std::string> command{"report"};
        command.insert(command.end(), face.begin(), face.end());
        EXPECT_THAT(onVolume(command).out, AllOf(HasSubstr("Alice's <Mac>"), HasSubstr("alice")));
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
    EXPECT_THAT(scan({"--pdf", nowhere}), test::refuses("no such file or directory"));
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
    const auto print = [&](const std::vector<std::string>& more = {}) {
        return onVolume({"report", "print", "latest"}, more);
    };
    EXPECT_EQ(scan().code, 1);
    setenv("CUPS_SERVER", data.hostPath("no.sock").c_str(), 1);
    EXPECT_THAT(print(), test::refuses("there is no print service"));

    const test::PrintServer server;
    if (!server.trouble().empty())
        GTEST_SKIP() << server.trouble();
    setenv("CUPS_SERVER", server.socket().c_str(), 1);
    EXPECT_THAT(print({"--printer", "attic"}), test::refuses("choose one of: pile, shut"));
    EXPECT_THAT(print(), test::says(0, "Print job "));
    const auto arrived = server.arrived();
    ASSERT_TRUE(arrived);
    EXPECT_THAT(*arrived, testing::StartsWith("%PDF-"));
    EXPECT_EQ(*arrived, test::contentOf(data.hostPath("caches/pryvane/Report.PDF")));
    EXPECT_THAT(server.told(), HasSubstr("media=iso_a4_210x297mm"));

    // What cannot be replaced is an older report, which is not printed in place of this one.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{4096, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    const Outcome unwritten = print();
    setrlimit(RLIMIT_FSIZE, &before);
    static_cast<void>(std::signal(SIGXFSZ, handler));
    EXPECT_THAT(unwritten, test::refuses("Report.PDF: "));
}

} // namespace
} // namespace pryvane
