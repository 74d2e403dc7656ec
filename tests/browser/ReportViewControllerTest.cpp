#include "browser/BrowserFixture.h"
#include "platform/ReportStore.h"
#include "reports/ReportCodec.h"

namespace pryvane {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ReportViewControllerTest : public test::BrowserFixture {};

TEST_F(ReportViewControllerTest, ListsWhatIsStoredNewestFirstAndFollowsScans)
{
    showList();
    EXPECT_FALSE(browser.isReportAvailable());

    notifications.post(NotificationName::ScanStatusChange, true);
    EXPECT_TRUE(browser.isScanning());
    store({"/tmp/.mdworker"});
    clock.advance(2h);
    store({});
    notifications.post(NotificationName::ScanStatusChange, false);
    settle();
    EXPECT_FALSE(browser.isScanning());
    EXPECT_TRUE(browser.isReportAvailable());
    ASSERT_EQ(browser.rows().size(), 2U);
    EXPECT_EQ(browser.rows().row(0).openTrash, "btn_trash.tiff");
    EXPECT_EQ(browser.rows().row(1).when, "2 hours ago");

    // Relative dates are fresh after the details, and only then.
    open(1);
    clock.advance(1h);
    EXPECT_EQ(browser.rows().row(1).when, "2 hours ago");
    browser.backtoReportList();
    EXPECT_EQ(browser.rows().row(1).when, "3 hours ago");
}

TEST_F(ReportViewControllerTest, FiltersAndSearches)
{
    store({"/tmp/.mdworker", "/tmp/old"}, "Deep Scan");
    clock.advance(1h);
    store({});
    clock.advance(1h);
    store({"/tmp/.mdworker", "/tmp/new"});
    showList();
    const auto kinds = [&] {
        std::vector<std::string> texts;
        for (std::size_t i = 0; i < browser.rows().size(); ++i)
            texts.push_back(browser.rows().row(i).kind + " " +
                            std::to_string(browser.rows().report(i).spyWareCount));
        return texts;
    };
    browser.setFilter(ReportFilter::Clean);
    EXPECT_THAT(kinds(), ElementsAre("Quick Scan 0"));
    browser.setFilter(ReportFilter::Found);
    EXPECT_THAT(kinds(), ElementsAre("Quick Scan 2", "Deep Scan 2"));
    browser.setSearch("deep OKAZ");
    EXPECT_THAT(kinds(), ElementsAre("Deep Scan 2"));
    // What is remembered is the place in the whole list.
    open(0);
    EXPECT_EQ(defaults.get(preferences::kIndex), 2);
    browser.backtoReportList();
    browser.setSearch("okaz nothing");
    EXPECT_THAT(kinds(), ElementsAre());
    browser.setSearch(" ");
    browser.setFilter(ReportFilter::All);
    ASSERT_EQ(browser.rows().size(), 3U);
}

TEST_F(ReportViewControllerTest, ShowsTheFactsOfAReport)
{
    const struct {
        const char *type, *duration;
        const char *shownType, *path, *label;
    } rows[] = {
        {"Full System Scan", " 2 seconds", "Full System Scan", "Scan Path: /", "Scan Duration:"},
        {"/Users/x/Documents", "Stopped", "Custom Scan", "Scan Path: /Users/x/Documents",
         "Scan Status:"},
    };
    for (const auto& row : rows) {
        store({"/tmp/a", "/tmp/b"}, row.type, row.duration);
        showList();
        browser.selectRow(0);
        browser.viewReport();
        settle();
        const ReportDetails& details = browser.details();
        EXPECT_EQ(details.type, row.shownType);
        EXPECT_EQ(details.path, row.path);
        EXPECT_EQ(details.durationLabel, row.label);
        EXPECT_EQ(details.duration, row.duration);
        EXPECT_EQ(details.spyWareCount, 2U);
        EXPECT_THAT(details.startTime, StartsWith("Today"));
    }
}

TEST_F(ReportViewControllerTest, VanishedFilesAreGreyUncheckedAndCannotBeRemoved)
{
    store({"/tmp/a", "/tmp/b"});
    showList();
    open(0);
    EXPECT_EQ(browser.selection(), (SelectionState{true, false, true}));
    browser.checkClicked(0, false);
    EXPECT_EQ(browser.selection(), (SelectionState{true, false, false}));
    browser.checkAllAction(false);
    EXPECT_EQ(browser.selection(), (SelectionState{false, false, false}));
    browser.checkAllAction(true);
    EXPECT_EQ(browser.selection(), (SelectionState{true, false, true}));

    volume.remove("/tmp/a");
    volume.remove("/tmp/b");
    browser.backtoReportList();
    open(0); // without reading the list anew
    for (const auto& threat : threats()) {
        EXPECT_FALSE(threat->isAvail() || threat->isChecked);
        EXPECT_EQ(threat->redGreen, RowColor::Grey);
    }
    EXPECT_EQ(browser.selection(), SelectionState{});
    browser.removeSelected(); // asks nothing
    EXPECT_TRUE(alerts.asked().empty());
}

TEST_F(ReportViewControllerTest, AReportOfAnotherVolumeCannotBeRemovedOrRevealed)
{
    const auto report = store({"/tmp/a"});
    report->volume = "another";
    ASSERT_TRUE(methods.updateReportInDefaults(report));
    showList();
    open(0);
    EXPECT_FALSE(threats()[0]->isAvail());
    browser.checkClicked(0, true);
    browser.reloadReportView();
    settle();
    EXPECT_TRUE(volume.contains("/tmp/a"));
    EXPECT_EQ(browser.removal().unDeletedSpyware().size(), 1U);
    browser.showThreatInFileDelegate(0);
    EXPECT_THAT(browser.notice(), HasSubstr("another volume"));
    EXPECT_TRUE(host.asked.empty());
}

TEST_F(ReportViewControllerTest, OpensTheReportThatTheScanScreenHandsOver)
{
    const auto report = store({"/tmp/a"});
    browser.viewWillAppear(); // the list may still be on its way
    notifications.post(NotificationName::RefreshReport, std::any(report));
    settle();
    EXPECT_TRUE(browser.isReportDetails());
    EXPECT_EQ(browser.report(), report);
    EXPECT_TRUE(host.print);
    EXPECT_FALSE(defaults.contains(preferences::kIndex));
    browser.backtoReportList();
    EXPECT_FALSE(host.print);

    // With nothing stored there is no list to go back to.
    ASSERT_TRUE(methods.saveListReport({}, preferences::kSaveReport));
    browser.viewWillAppear();
    notifications.post(NotificationName::RefreshReport, std::any(report));
    settle();
    EXPECT_FALSE(browser.isReportDetails());
    EXPECT_FALSE(browser.isReportAvailable());
}

TEST_F(ReportViewControllerTest, DeletesReportsAfterAskingOnce)
{
    for (const char* path : {"/tmp/a", "/tmp/b", "/tmp/c", "/tmp/d"})
        store({path});
    store({});
    showList();
    const std::string kept = stored()[2]->reportId;
    browser.trashReports({});
    EXPECT_TRUE(alerts.asked().empty());
    const struct {
        std::size_t reports;
        std::function<void()> deletion;
    } rows[] = {
        {1, [&] { browser.openThisReport(0); }}, // clean: its icon is a trash can
        {3,
         [&] {
             browser.trashReports({0, 2, 3});
         }},
        {1,
         [&] {
             open(0);
             EXPECT_TRUE(browser.isReportDetails());
             browser.trashReport();
         }},
    };
    std::size_t left = 5;
    for (const auto& [number, deletion] : rows) {
        for (const bool sure : {false, true}) {
            alerts.answer(sure ? kAlertFirstButton : kAlertFirstButton + 1);
            deletion();
            settle();
            left -= sure ? number : 0;
            EXPECT_EQ(stored().size(), left);
            EXPECT_EQ(browser.rows().size(), left);
            EXPECT_EQ(alerts.asked().back().informativeText,
                      number == 1 ? "Are you sure you want to delete this report?"
                                  : "Are you sure you want to delete these 3 reports?");
        }
        EXPECT_TRUE(left != 1 || stored()[0]->reportId == kept);
    }
    EXPECT_FALSE(browser.isReportDetails() || browser.isReportAvailable());
}

/// Values that cannot be decoded: whoever looked at one would leave its report out and say so.
TEST_F(ReportViewControllerTest, ListsWithoutReadingAnyReport)
{
    constexpr std::size_t kReports = 10'000;
    const auto sample = store({"/tmp/a", "/tmp/b"});
    ASSERT_TRUE(defaults.reports().replaceAll(kReports, [&](std::size_t i) {
        sample->reportId = "report " + std::to_string(i);
        return NewReport{sample->reportId, encodeFacts(*sample),
                         [](const PieceSink& sink) { return sink("nonsense"); }};
    }));
    showList();
    browser.setSearch("quick okaz");
    browser.setFilter(ReportFilter::Found);
    ASSERT_EQ(browser.rows().size(), kReports);
    const ReportRow row = browser.rows().row(kReports - 1);
    EXPECT_TRUE(row.hasThreats && row.redGreen == kReportRed);
    EXPECT_EQ(row.duration, " 2 seconds");
    EXPECT_TRUE(log.lines().empty() && browser.notice().empty());

    open(7);
    EXPECT_FALSE(browser.isReportDetails());
    EXPECT_THAT(browser.notice(), HasSubstr("report 7 is damaged"));
    browser.compare(0, 1, [](const ComparedReports&) { ADD_FAILURE(); });
    settle();
    EXPECT_THAT(browser.notice(), HasSubstr("cannot be compared"));

    // One that was opened, or closed, before another was read stays.
    store({"/tmp/c"});
    showList();
    browser.openThisReport(0);
    notifications.post(NotificationName::RefreshReport, std::any(sample));
    settle();
    EXPECT_EQ(browser.report(), sample);
}

TEST_F(ReportViewControllerTest, PrintsWithoutHoldingTheMainThread)
{
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "the libraries that draw and find fonts are not instrumented";
#endif
    store({"/tmp/a"});
    showList();
    open(0);
    ASSERT_TRUE(host.print);
    host.print();
    settle();
    EXPECT_TRUE(caches.contains("Report.PDF"));
    EXPECT_THAT(browser.notice(), HasSubstr("no printer"));
    EXPECT_THAT(log.lines(), testing::Contains("Error in printing"));
}

TEST_F(ReportViewControllerTest, RevealsAndStartsScans)
{
    store({"/tmp/a"});
    showList();
    open(0);
    browser.showThreatInFileDelegate(0);
    browser.scanningStartAction();
    EXPECT_THAT(host.asked, ElementsAre("reveal /tmp/a", "access", "row 1", "scan"));
}

} // namespace
} // namespace pryvane
