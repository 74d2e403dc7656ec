#include "cli/CliFixture.h"
#include "reports/DefaultMethods.h"
#include "reports/pdf/PDFGenerate.h"
#include "reports/pdf/PdfFixtures.h"
#include "reports/pdf/ReportTexts.h"
#include "scan/StatusPanel.h"
#include "store/SqliteUserDefaults.h"
#include "support/Fakes.h"
#include "support/ReportFixtures.h"
#include "support/Volumes.h"

#include <gmock/gmock.h>

#include <array>

namespace pryvane {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using namespace test;

class VerdictFacesTest : public CliFixture {
protected:
    /// Puts a report into the store as the window does, whose scan ended in a way that the command
    /// line cannot be brought to.
    void store(const std::function<void(ScanCoverage&)>& change)
    {
        auto opened = SqliteUserDefaults::open(data.path(), log);
        ASSERT_TRUE(opened.ok());
        const auto disk = volumeAt(volume, NameMatching::AsOnMac);
        DefaultMethods reports(*opened->defaults, *disk, clock, log);
        const auto made = reportOf({});
        made->volume = disk->identity();
        change(made->coverage);
        if (made->coverage.ended.how == ScanEnding::How::Stopped)
            made->scanDuration = kStopped;
        ASSERT_TRUE(reports.updateReportInDefaults(made).ok());
    }

    /// Every face of the newest report, each with what it says.
    std::vector<std::pair<std::string, std::string>> faces()
    {
        std::vector<std::pair<std::string, std::string>> told;
        const auto add = [&](const char* face, std::vector<std::string> arguments) {
            arguments.insert(arguments.end(), {"--volume", volume.path()});
            told.emplace_back(face, run(arguments).out);
        };
        add("list", {"report", "list"});
        add("show", {"report", "show", "latest"});
        add("json", {"report", "export", "latest"});
        add("csv", {"report", "export", "latest", "--format", "csv"});
        add("html", {"report", "export", "latest", "--format", "html"});
        auto opened = SqliteUserDefaults::openReadOnly(data.path(), log);
        const auto disk = volumeAt(volume, NameMatching::AsOnMac);
        DefaultMethods reports(*opened->defaults, *disk, clock, log);
        facts = reports.listReports()->front();
        report = *reports.loadReport(facts.reportId);
        return told;
    }

    FakeClock clock;
    SilentLog log;
    ReportFacts facts;
    std::shared_ptr<SpywareScanReport> report;
};

/// A calm sentence that is not true is the worst that this program can say.
TEST_F(VerdictFacesTest, EveryFaceTellsTheSameVerdict)
{
    using How = ScanEnding::How;
    const auto stoppedAt = [&](int percent) {
        return [this, percent] {
            store([&](ScanCoverage& coverage) {
                if (percent == 0)
                    coverage = {};
                coverage.ended = {How::Stopped, percent};
            });
        };
    };
    const auto scanned = [&] { static_cast<void>(scan()); };
    struct Row {
        const char* name;
        std::function<void()> make;
        const char* word;
        const char* line; ///< its beginning
    };
    const Row rows[] = {
        {"clean", scanned, "clean", "Clean: nothing found."},
        {"stopped at once", stoppedAt(0), "stopped", "Stopped at 0 %: "},
        {"stopped halfway", stoppedAt(50), "stopped", "Stopped at 50 %: "},
        {"stopped at the end", stoppedAt(100), "stopped", "Stopped at 100 %: "},
        {"no grant", [&] { store([](auto& c) { c.ended.how = How::GrantFailed; }); }, "incomplete",
         "Incomplete: "},
        {"unreadable home",
         [&] { store([](auto& c) {
                   c.refused = {{"/Users/alice", "permission denied"}};
               }); },
         "incomplete", "Incomplete: "},
        {"another home",
         [&] {
             volume.folder("/Users/bob");
             scanned();
         },
         "clean", "Clean for alice: nothing found. Not looked at: bob."},
        {"held back",
         [&] {
             volume.folder("/Applications/PKL.app");
             scanned();
         },
         "attention", "Attention: 1 application"},
        {"found",
         [&] {
             volume.file("/tmp/.mdworker");
             scanned();
         },
         "found", "Found: 1 potential threat"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        row.make();
        for (const auto& [face, text] : faces()) {
            SCOPED_TRACE(face);
            EXPECT_THAT(text, HasSubstr(face == "list" || face == "csv" ? row.word : row.line));
            const bool clean = std::string_view(row.word) == "clean";
            EXPECT_EQ(text.find("class=\"green\"") != std::string::npos, face == "html" && clean);
            if (face == "list") {
                EXPECT_EQ(text.substr(0, text.find('\n')).find(" clean ") != std::string::npos,
                          clean);
            }
            if (face == "csv") {
                EXPECT_EQ(text.find(",clean,") != std::string::npos, clean);
            }
            if (face == "json") {
                EXPECT_EQ(json::parse(text).at("verdict"), row.word);
            }
        }
        EXPECT_STREQ(wordsFor(facts.verdict).machine, row.word);
        EXPECT_EQ(facts.verdictLine, report->verdictLine());
        FakeMachine machine;
        const auto disk = volumeAt(volume, NameMatching::AsOnMac);
        EXPECT_THAT(pdf::reportTexts(*report, {}, *disk, machine).verdict,
                    testing::StartsWith(row.line));
        const StatusPanel panel =
            makeStatusPanel({true, false, report->verdict(), report->verdictLine(), clock.now(),
                             clock.now() - std::chrono::hours(1), clock.now()});
        EXPECT_EQ(panel.background == "no_threats_bg", report->verdict() == Verdict::Clean);
    }
}

TEST_F(VerdictFacesTest, TheExitCodeOfAScanFollowsTheVerdict)
{
    EXPECT_EQ(scan().code, 0);
    EXPECT_EQ(run({"scan", "--volume", volume.path(), "--user", "nobody-here"}).code, 3);
    volume.folder("/Applications/PKL.app");
    for (const char* format : {"text", "json"})
        EXPECT_EQ(scan({"--format", format}).code, 1);
    volume.remove("/Applications/PKL.app");
    std::filesystem::permissions(volume.hostPath("/Users/alice"), {});
    std::filesystem::permissions(volume.path(), std::filesystem::perms(0755));
    const std::string told = asNobody([&] {
        const Outcome outcome = scan({"--no-store", "--format", "json"});
        return std::to_string(outcome.code) +
               json::parse(outcome.out).at("verdict").get<std::string>();
    });
    std::filesystem::permissions(volume.hostPath("/Users/alice"), std::filesystem::perms(0755));
    EXPECT_EQ(told, "3incomplete");
}

/// A home that only its owner may enter, looked at by somebody else.
TEST_F(VerdictFacesTest, WhatCannotBeAskedIsNeverToldAsGone)
{
    volume.file("/Users/alice/Library/LaunchAgents/com.refog.agent.plist");
    ASSERT_EQ(scan().code, 1);
    const std::string id = reportIds().front();
    for (const auto& path : {data.path(), volume.path()})
        std::filesystem::permissions(path, std::filesystem::perms(0755));
    for (const auto& entry : std::filesystem::directory_iterator(data.path()))
        std::filesystem::permissions(entry.path(), std::filesystem::perms(0644));
    const std::string home = volume.hostPath("/Users/alice");
    const auto askedBy = [&](const std::string& volumeFolder, std::vector<std::string> arguments) {
        return asNobody([&] {
            arguments.insert(arguments.end(), {"--volume", volumeFolder});
            const Outcome outcome = run(arguments);
            return outcome.out + "\n" + outcome.err;
        });
    };
    const TemporaryFolder other;
    other.folder("/Users/alice");
    std::filesystem::permissions(other.path(), std::filesystem::perms(0755));
    for (const std::string& at : {volume.path(), other.path()}) {
        SCOPED_TRACE(at == other.path() ? "another volume" : "a home of mode 0700");
        std::filesystem::permissions(home, std::filesystem::perms(0700));
        const std::string show = askedBy(at, {"report", "show", id});
        const std::string text = askedBy(at, {"report", "export", id});
        const std::string csv = askedBy(at, {"report", "export", id, "--format", "csv"});
        const std::string html = askedBy(at, {"report", "export", id, "--format", "html"});
        std::filesystem::permissions(home, std::filesystem::perms(0755));
        EXPECT_THAT(show, HasSubstr("unknown"));
        EXPECT_THAT(text, HasSubstr("\"presence\": \"unknown\""));
        EXPECT_THAT(text, HasSubstr("presenceReason"));
        EXPECT_THAT(csv, AllOf(HasSubstr(",false,"), HasSubstr(",unknown,alice,found,")));
        EXPECT_THAT(html, HasSubstr("<td>not known: "));
        for (const std::string& sink : {show, text, csv, html}) {
            EXPECT_THAT(sink, Not(HasSubstr("gone")));
            EXPECT_THAT(sink, Not(HasSubstr("<td>no</td>")));
            EXPECT_THAT(sink, HasSubstr("not known")) << "the words beside it";
        }
    }
}

TEST_F(VerdictFacesTest, TheLatestReportIsThatOfTheDiskInFront)
{
    const TemporaryFolder second, third;
    const std::array<const TemporaryFolder*, 3> disks{&volume, &second, &third};
    std::vector<std::string> words;
    for (const TemporaryFolder* disk : disks) {
        disk->folder("/Users/alice");
        if (disk == &second)
            disk->file("/tmp/.mdworker");
        static_cast<void>(run({"scan", "--volume", disk->path(), "--user", "alice"}));
    }
    for (const TemporaryFolder* disk : disks) {
        const Outcome shown = run({"report", "export", "latest", "--volume", disk->path()});
        words.push_back(json::parse(shown.out).at("verdict"));
    }
    EXPECT_THAT(words, testing::ElementsAre("clean", "found", "clean"));
    EXPECT_EQ(run({"remove", "latest", "--all", "--yes", "--volume", third.path()}).code, 0);
    EXPECT_TRUE(second.contains("/tmp/.mdworker"));
    const TemporaryFolder unseen;
    unseen.folder("/Users/alice");
    EXPECT_EQ(run({"report", "show", "latest", "--volume", unseen.path()}).code, 2);
}

/// What was learned of one disk is told of that disk.
TEST_F(VerdictFacesTest, EachReportNamesItsMac)
{
    volume.file("/Library/Preferences/SystemConfiguration/preferences.plist",
                "<plist version=\"1.0\"><dict><key>System</key><dict><key>System</key><dict>"
                "<key>ComputerName</key><string>Alice's &lt;Mac&gt;</string></dict></dict></dict>"
                "</plist>");
    ASSERT_EQ(scan().code, 0);
    for (const auto& [face, text] : faces()) {
        SCOPED_TRACE(face);
        EXPECT_THAT(text, HasSubstr(face == "html" ? "Alice&#39;s &lt;Mac&gt;" : "Alice's <Mac>"));
        EXPECT_THAT(text, HasSubstr("alice"));
    }
}

} // namespace
} // namespace pryvane
