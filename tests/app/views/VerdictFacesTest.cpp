#include "app/DashBoardViewController.h"
#include "app/ScanOutside.h"
#include "app/SchedulerVC.h"
#include "app/views/DashboardView.h"
#include "app/views/Faces.h"
#include "browser/views/WindowFixture.h"
#include "cli/CliFixture.h"
#include "core/Escape.h"
#include "scan/ScanViewController.h"
#include "scan/views/ScanView.h"
#include "support/DesktopFakes.h"
#include "support/WatchedDisk.h"
#include "ui/Labels.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <sstream>

namespace pryvane::test {
namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct ScanOf {
    bool deep = false;
    int stopAt = -1;       ///< percent; -1: it is let be
    bool granted = true;   ///< access to the folder that is gone through
    std::size_t found = 0; ///< so many findings are waited for before it is stopped
};

constexpr ScanOf kQuick{};

constexpr ScanOf stoppedAt(int percent)
{
    return {true, percent};
}

/// The whole program over one disk: a scan in the window, and afterwards, as after a new start,
/// each screen, command and file.
class VerdictFacesTest : public ReportWindowFixture {
protected:
    VerdictFacesTest()
    {
        setenv("PRYVANE_DATA_DIR", data.path().c_str(), 1);
        setenv("XDG_CACHE_HOME", caches.path().c_str(), 1);
        // So many that one percent is less than two entries, and the walk's last step is the 99th.
        for (int i = 0; i < 197; ++i)
            volume.file("/Users/alice/Documents/" + std::to_string(i));
        // What an earlier scan of this Mac came to is none of the news.
        store({});
        const auto earlier = stored().front();
        earlier->subject.users = {"alice"};
        EXPECT_TRUE(methods().updateReportInDefaults(earlier));
        clock.advance(24h);
    }
    ~VerdictFacesTest() override { unsetenv("PRYVANE_DATA_DIR"); }

    PlatformServices services()
    {
        return {hidden, *kept,        notifications, queue,        clock,
                alerts, folderPicker, workspace,     userNotifier, log};
    }

    /// A program that has just been started.
    struct Run {
        explicit Run(VerdictFacesTest& of)
            : delegate(of.services(), of.desktop.services(), of.facts),
              board(of.services(), of.desktop.services(), delegate, of.facts),
              scheduler(of.services(), of.desktop.services(), delegate)
        {
            delegate.state().arrDefaultTorvellApp = makersApplicationKeys();
            board.viewDidLoad();
        }
        AppDelegate delegate;
        DashBoardViewController board;
        SchedulerVC scheduler;
    };

    /// Scans in the window and returns what its scan screen then says.
    std::string scanned(const ScanOf& wanted)
    {
        run.emplace(*this);
        run->delegate.state().isDeepScan = wanted.deep;
        ScanOptions options{"alice", {}};
        if (wanted.granted) {
            options.grantedRoot = options.homeRoot();
        } else {
            access.bookmark.reset();
            folderPicker.answer(options.homeRoot());
            alerts.answer(kAlertFirstButton);
        }
        scanScreen.reset();
        scanner = std::make_unique<ScanViewController>(services(), run->delegate.state(), access,
                                                       reports, remover, options);
        scanScreen = std::make_unique<ScanView>(*scanner, ScanView::Options{"alice", {}, {}});
        scanScreen->show();
        return scannedAgain(wanted);
    }
    /// By the same program, with the same screen.
    std::string scannedAgain(const ScanOf& wanted = kQuick)
    {
        const ScanOutside outside(services(), desktop.services(), run->delegate, *scanner, {});
        bool ended = false, stopped = wanted.stopAt < 0;
        const auto ending = scanner->scanEnded.listen([&] { ended = true; });
        const auto changing = scanner->stateChanged.listen([&] {
            if (!stopped && scanner->isScanning() &&
                scanner->display().progressBar >= wanted.stopAt &&
                run->delegate.state().arrSpywareList.records().size() >= wanted.found) {
                stopped = true;
                scanner->stopScan();
            }
        });
        scanner->SpywareScanStart();
        EXPECT_TRUE(runUntil([&] { return ended; }));
        EXPECT_TRUE(stopped) << "it never came that far";
        runFor(150ms); // a screen gathers what it is told
        EXPECT_EQ(scanner->statusPanel().background == "no_threats_bg",
                  scanner->statusPanel().statusText == wordsFor(Verdict::Clean).headline);
        return test::textOf(*scanScreen);
    }

    std::string dashboard()
    {
        run.emplace(*this); // what the scan's own run knew is forgotten
        bool isRead = false;
        QObject::connect(&run->board, &DashBoardViewController::lastScansRead, &run->board,
                         [&] { isRead = true; });
        DashboardView screen(run->board, run->scheduler);
        screen.show();
        EXPECT_TRUE(runUntil([&] { return isRead; }));
        return test::textOf(screen);
    }

    Outcome command(std::vector<std::string> arguments, bool interrupt = false)
    {
        StopFlag interrupted;
        if (interrupt)
            interrupted.request();
        arguments.insert(arguments.end(), {"--volume", volume.path()});
        return onConsole({.interrupted = interrupted}, [&](const cli::Console& console) {
            return cli::CommandLine().run(std::move(arguments), console);
        });
    }

    /// What the newest report says of itself, by the name of the face; commands want it by its
    /// identity where it is not of this disk.
    std::map<std::string, std::string> facesOfReport(const std::string& id = "latest")
    {
        std::map<std::string, std::string> told;
        show();
        told["row of the list"] = rowText("reportList", 0);
        table("reportList")->selectRow(0);
        click("compareReports");
        told["comparison"] = test::textOf(*find("comparisonSheet"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        runFor(20ms);
        press("reportList", 0, Qt::Key_Return);
        told["details"] = test::textOf(*view);
        const std::string list = command({"report", "list"}).out;
        told["report list"] = list.substr(0, list.find('\n'));
        told["show"] = command({"report", "show", id}).out;
        told["json"] = command({"report", "export", id}).out;
        told["csv"] = command({"report", "export", id, "--format", "csv"}).out;
        told["html"] = command({"report", "export", id, "--format", "html"}).out;
        told["compare"] = command({"report", "compare", id, id}).out;
        const std::string file = exports.hostPath("report.pdf");
        EXPECT_EQ(command({"report", "pdf", id, file}).code, 0);
        told["pdf"] = joinedTextOf(file);
        return told;
    }

    WatchedDisk hidden{*disk};
    FakeDesktop desktop{clock};
    ApplicationFacts facts{"alice", "com.torvell.Pryvane", "1.2", "https://pryvane.example/"};
    std::optional<Run> run;
    DefaultMethods reports = methods();
    std::unique_ptr<ScanViewController> scanner;
    std::unique_ptr<ScanView> scanScreen; // after what it looks at
};

struct Row {
    const char* name;
    const char* files; ///< on the disk, a blank between them
    ScanOf scan;
    const char* word;
    const char* line;
    std::optional<int> exitCode = {}; ///< of that scan on the command line, where it can be had
    bool hidesHome = false;
    std::optional<int> storedAs = {}; ///< percent
};

/// A calm sentence that is not true is the worst that this program can say.
class EveryFace : public VerdictFacesTest, public testing::WithParamInterface<Row> {};

TEST_P(EveryFace, TellsTheSameVerdict)
{
    const Row& row = GetParam();
    std::istringstream files(row.files);
    for (std::string file; files >> file;)
        volume.file(file);
    hidden.shut = row.hidesHome ? "/Users/alice" : ""; // which only its owner may enter
    const std::string screen = scanned(row.scan);
    hidden.shut.clear();
    ASSERT_TRUE(scanner->report());
    if (row.storedAs) { // which no walk comes to by its own steps
        scanner->report()->coverage.ended.percent = *row.storedAs;
        ASSERT_TRUE(methods().updateReportInDefaults(scanner->report()).ok());
    }
    const SpywareScanReport& report = *scanner->report();
    const std::string line = report.verdictLine();
    const VerdictWords& words = wordsFor(report.verdict());
    EXPECT_STREQ(words.machine, row.word);
    EXPECT_THAT(line, StartsWith(row.line));

    auto faces = facesOfReport();
    if (!row.storedAs) {
        faces["scan screen"] = screen;
        faces["notification"] = userNotifier.concluded.back();
    }
    faces["dashboard"] = dashboard();
    const std::string word = row.word, shortWord = words.shortWord;
    const bool isClean = word == "clean";
    for (const auto& [face, text] : faces) {
        SCOPED_TRACE(face + ": " + text);
        if (face == "pdf")
            EXPECT_THAT(withoutBlanks(text), HasSubstr(withoutBlanks(line)));
        else if (face == "row of the list")
            EXPECT_THAT(text, StartsWith(shortWord + " | "));
        else if (face == "comparison")
            EXPECT_THAT(text, HasSubstr(": " + shortWord + ")\n"));
        else if (face == "report list" || face == "csv")
            EXPECT_THAT(text, HasSubstr(word));
        else if (face == "json")
            EXPECT_EQ(json::parse(text).at("verdict"), word);
        else
            EXPECT_THAT(text, HasSubstr(face == "html" ? forHtml(line) : line));
        if (isClean || face == "comparison") // the earlier report was a clean one
            continue;
        for (const char* calm :
             {"Clean", "found nothing\n", "No Potential Threats", "class=\"green\"", " clean "})
            EXPECT_THAT(text, Not(HasSubstr(calm)));
    }

    if (row.exitCode) {
        const bool stops = row.scan.stopAt >= 0;
        const Outcome outcome = command({"scan", "--no-store", "--user", "alice"}, stops);
        EXPECT_EQ(outcome.code, *row.exitCode);
        EXPECT_EQ(outcome.code == 0, isClean);
        EXPECT_THAT(outcome.out, StartsWith(line.substr(0, line.find(':'))));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Situations, EveryFace,
    testing::Values(
        Row{"Clean", "", kQuick, "clean", "Clean: nothing found.", 0},
        Row{"StoppedAtOnce", "", stoppedAt(0), "stopped", "Stopped at 0 %: ", 130},
        Row{"StoppedHalfway", "", stoppedAt(50), "stopped", "Stopped at 50 %: "},
        Row{"StoppedNearTheEnd", "", stoppedAt(99), "stopped", "Stopped at 99 %: "},
        Row{"StoppedAtTheEnd", "", stoppedAt(99), "stopped", "Stopped at 100 %: ", {}, false, 100},
        Row{"HeldBack", "/Applications/PKL.app/x", kQuick, "attention", "Attention: 1 application",
            1},
        Row{"UnreadableHome", "", kQuick, "incomplete", "Incomplete: ", {}, true},
        Row{"OtherHomes", "/Users/bob/x /Users/carol/x", kQuick, "clean",
            "Clean for alice: nothing found. Not looked at: bob, carol.", 0},
        Row{"NoGrant", "", ScanOf{true, -1, false}, "incomplete", "Incomplete: "},
        Row{"Found", "/tmp/.mdworker", kQuick, "found", "Found: 1 potential threat", 1},
        Row{"FoundAndStopped",
            "/Users/alice/Library/mdsa1331",
            ScanOf{true, 10, true, 1},
            "found",
            "Found: 1 potential threat; the scan was stopped at 50 %",
            {},
            false,
            50}),
    [](const auto& row) { return row.param.name; });

/// A report stores the low eight bits of its count; a person is told how many there are.
TEST_F(VerdictFacesTest, ThreeHundredFindingsAreNeverCalledFortyFour)
{
    for (char first = 'a'; first < 'a' + 12; ++first)
        for (char second = 'a'; second < 'a' + 25; ++second)
            volume.file(std::string("/Users/alice/Koobface/") + first + second);
    const std::string screen = scanned({true});
    ASSERT_EQ(scanner->report()->spyWareList->size(), 300U);
    auto faces = facesOfReport();
    faces["scan screen"] = screen;
    faces["dashboard"] = dashboard();
    faces["notification"] = userNotifier.concluded.back();
    EXPECT_EQ(json::parse(faces["json"]).at("report").at("spyWareCount"), 44) << "as it is stored";
    EXPECT_EQ(json::parse(faces["json"]).at("report").at("findings"), 300);
    faces.erase("json");
    // Times, sizes and the numbers of rows are no counts.
    const QRegularExpression wrong(
        QStringLiteral(R"((?<![0-9:.-])44(?![0-9:.-]| \(300 listed\)))"));
    const QRegularExpression noCount(QStringLiteral("/Koobface/|Report"));
    for (const auto& [face, text] : faces) {
        SCOPED_TRACE(face);
        if (face == "csv") {
            EXPECT_EQ(std::ranges::count(text, '\n'), 301);
            continue;
        }
        if (face == "pdf")
            EXPECT_THAT(text, HasSubstr("44 (300 listed)"));
        else if (face == "comparison")
            EXPECT_THAT(text, HasSubstr("300 new"));
        else
            EXPECT_THAT(text, HasSubstr("300"));
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            EXPECT_TRUE(!ui::text(line).contains(wrong) || ui::text(line).contains(noCount))
                << line;
    }
}

/// Each disk's dashboard and reminder go by its own reports, whichever was scanned last; and of
/// another disk's findings nobody knows whether they are still there.
TEST_F(VerdictFacesTest, NoDiskIsTakenForAnother)
{
    const auto storeOf = [&](const std::string& of, const std::vector<std::string>& findings) {
        clock.advance(1h);
        const auto report = store(findings);
        report->volume = of;
        report->subject = {{DiskSource::Kind::Folder, of}, {}, {}, {"alice"}};
        EXPECT_TRUE(methods().updateReportInDefaults(report).ok());
        return report->reportId;
    };
    storeOf("other", {"/tmp/a"});
    storeOf(disk->identity(), {"/tmp/c"});
    const std::string latest = storeOf("other", {"/tmp/a", "/tmp/x.plist"});
    clock.advance(1h);
    EXPECT_THAT(dashboard(), HasSubstr("The last scan found something\nLast scan: 2 hours ago\n"
                                       "Found: 1 potential threat"));
    EXPECT_EQ(run->delegate.state().lastScan, clock.now() - 2h) << "what the reminder goes by";
    const auto faces = facesOfReport(latest);
    EXPECT_THAT(faces.at("row of the list"), HasSubstr("other, alice"));
    const std::map<std::string, std::string> words{
        {"show", " unknown "},       {"json", "\"presence\": \"unknown\""},
        {"csv", ",unknown,,found,"}, {"html", "<td>not known: "},
        {"details", "not known"},    {"pdf", "Not Checked"}};
    for (const auto& [face, word] : words) {
        const std::string& text = faces.at(face);
        SCOPED_TRACE(face + ": " + text);
        EXPECT_THAT(text, HasSubstr("x.plist"));
        EXPECT_THAT(text, HasSubstr(word));
        for (const char* wrong : {"gone", "Gone", "<td>no</td>", ",no,", "\"gone\"", "absent",
                                  "Removed", "Quarantined"})
            EXPECT_THAT(text, Not(HasSubstr(wrong)));
    }
    // Of a disk that cannot be told from others no stored report is known to be.
    hidden.name = "";
    EXPECT_THAT(dashboard(), HasSubstr("Not scanned yet\nThis disk cannot be told from others"));
    ReportViewController untold(services(), {host, host, printing, remover, "alice"});
    untold.viewWillAppear();
    ASSERT_TRUE(runUntil([&] { return !untold.isBusy(); }));
    EXPECT_EQ(untold.reportList().size(), 4U);
    EXPECT_FALSE(untold.reportsOfThisDisk());
}

/// Whoever has told the program to be silent about it can have it told again.
TEST_F(VerdictFacesTest, IgnoringRemoteDesktopIsTakenBack)
{
    volume.file("/Library/Preferences/com.apple.RemoteDesktop.plist");
    scanned(kQuick);
    auto* box = scanScreen->findChild<QAbstractButton*>("ignoreARD");
    ASSERT_TRUE(box);
    for (const bool ignores : {false, true, false}) {
        if (box->isChecked() != ignores)
            QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
        EXPECT_EQ(box->isChecked(), ignores);
        const std::string told = scannedAgain();
        EXPECT_EQ(scanner->report()->spyWareList->size(), ignores ? 0U : 1U);
        EXPECT_TRUE(box->isVisible()) << "or nobody could take it back";
        EXPECT_THAT(told, HasSubstr("Apple Remote Desktop is"));
        EXPECT_EQ(told.find("Apple Remote Desktop is ignored") != told.npos, ignores) << told;
    }
}

/// What nobody has looked at has no verdict, whatever is known of other disks.
TEST_F(VerdictFacesTest, NothingIsToldOfADiskThatWasNotLookedAt)
{
    for (const auto& report : stored())
        ASSERT_TRUE(methods().deleteReport(report->reportId).ok());
    const auto other = store({"/tmp/.mdworker"});
    volume.remove("/tmp");
    other->volume = "another";
    ASSERT_TRUE(methods().updateReportInDefaults(other));
    for (const bool isMac : {true, false}) {
        std::map<std::string, std::string> faces;
        if (!isMac) {
            volume.remove("/Users");
            faces["scan screen"] = scanned({});
            faces["notification"] = testing::PrintToString(userNotifier.concluded);
            EXPECT_THAT(faces["scan screen"], HasSubstr("There was no scan: there is no Mac"));
            const Outcome outcome = command({"scan"});
            faces["scan"] = outcome.out;
            EXPECT_EQ(outcome.code, 2);
        }
        faces["dashboard"] = dashboard();
        EXPECT_THAT(faces["dashboard"], HasSubstr("Not scanned yet"));
        for (const char* verb : {"show", "export"}) {
            const Outcome outcome = command({"report", verb, "latest"});
            faces[verb] = outcome.out;
            EXPECT_EQ(outcome.code, 2);
            EXPECT_THAT(outcome.err, HasSubstr("no reports of this disk"));
        }
        faces["report list"] = command({"report", "list"}).out;
        for (const auto& [face, text] : faces) {
            SCOPED_TRACE(face + ": " + text);
            for (const VerdictWords& verdict :
                 {wordsFor(Verdict::Clean), wordsFor(Verdict::Found)}) {
                EXPECT_THAT(text, Not(HasSubstr(verdict.headline)));
                EXPECT_THAT(text, Not(HasSubstr(std::string(verdict.shortWord) + ":")));
                EXPECT_THAT(text, Not(HasSubstr(std::string(" ") + verdict.machine + " ")));
            }
        }
    }
    show();
    EXPECT_EQ(ReportWindowFixture::textOf("reportCount"), "1 report, none of this disk");
    EXPECT_EQ(stored().size(), 1U) << "a folder without a Mac leaves no report";
}

} // namespace
} // namespace pryvane::test
