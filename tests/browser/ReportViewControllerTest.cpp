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
    for (const bool scanning : {true, false}) {
        store({"/tmp/.mdworker"});
        clock.advance(2h);
        notifications.post(NotificationName::ScanStatusChange, scanning);
        EXPECT_EQ(browser.isScanning(), scanning);
    }
    settle();
    ASSERT_EQ(browser.rows().size(), 2U);
    // Relative dates are fresh after the details, and only then.
    open(1);
    clock.advance(1h);
    EXPECT_EQ(browser.rows().row(1).when, "4 hours ago");
    browser.backtoReportList();
    EXPECT_EQ(browser.rows().row(1).when, "5 hours ago");
}

TEST_F(ReportViewControllerTest, FiltersAndSearches)
{
    store({"/tmp/.mdworker", "/tmp/old"}, "Deep Scan");
    store({});
    store({"/tmp/.mdworker", "/tmp/new"});
    showList();
    const struct {
        ReportFilter filter;
        const char* search;
        std::vector<std::string> kinds;
    } rows[] = {
        {ReportFilter::Clean, "", {"Quick Scan 0"}},
        {ReportFilter::Found, "", {"Quick Scan 2", "Deep Scan 2"}},
        {ReportFilter::All, "okaz nothing", {}},
        {ReportFilter::All, " ", {"Quick Scan 2", "Quick Scan 0", "Deep Scan 2"}},
        {ReportFilter::Found, "deep OKAZ", {"Deep Scan 2"}},
    };
    for (const auto& row : rows) {
        browser.setFilter(row.filter);
        browser.setSearch(row.search);
        std::vector<std::string> kinds;
        for (std::size_t i = 0; i < browser.rows().size(); ++i)
            kinds.push_back(browser.rows().row(i).kind + " " +
                            std::to_string(browser.rows().report(i).spyWareCount));
        EXPECT_EQ(kinds, row.kinds) << row.search;
    }
    open(0);
    EXPECT_EQ(defaults.get(preferences::kIndex), 2) << "the place in the whole list";
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
        EXPECT_THAT((std::vector{details.type, details.path, details.durationLabel}),
                    ElementsAre(row.shownType, row.path, row.label));
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
    ASSERT_TRUE(methods().saveListReport({}, preferences::kSaveReport));
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
        std::function<void()> deletion;
        const char* what;
        std::size_t left;
    } rows[] = {
        {[&] { browser.openThisReport(0); }, "this report?", 4}, // clean: its icon is a trash can
        {[&] {
             browser.trashReports({0, 2, 3});
         },
         "these 3 reports?", 1},
        {[&] { open(0), browser.trashReport(); }, "this report?", 0},
    };
    for (const auto& row : rows) {
        const std::size_t before = stored().size();
        for (const bool sure : {false, true}) {
            alerts.answer(sure ? kAlertFirstButton : kAlertFirstButton + 1);
            row.deletion();
            settle();
            EXPECT_EQ(stored().size(), sure ? row.left : before);
            EXPECT_EQ(browser.rows().size(), stored().size());
            EXPECT_EQ(alerts.asked().back().informativeText,
                      "Are you sure you want to delete " + std::string(row.what));
        }
        EXPECT_TRUE(row.left != 1 || stored()[0]->reportId == kept);
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
    EXPECT_EQ(row.duration, " 12 seconds");
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

TEST_F(ReportViewControllerTest, PrintsRevealsAndStartsScans)
{
    store({"/tmp/a"});
    showList();
    open(0);
    browser.showThreatInFileDelegate(0);
    ASSERT_TRUE(host.print);
#ifndef __SANITIZE_THREAD__ // the libraries that draw and find fonts are not instrumented
    host.print();
    settle();
    EXPECT_TRUE(caches.contains("Report.PDF"));
    EXPECT_THAT(browser.notice(), HasSubstr("no printer"));
    EXPECT_THAT(log.lines(), testing::Contains("Error in printing"));
#endif
    browser.report()->volume = "another";
    browser.showThreatInFileDelegate(0);
    EXPECT_THAT(browser.notice(), HasSubstr("another volume"));
    std::int64_t row = 0;
    SelectionChange change{};
    const auto chosen =
        notifications.observe(NotificationName::MainTableChangedManually,
                              [&](const auto& note) { row = std::get<std::int64_t>(note.object); });
    const auto changed =
        notifications.observe(NotificationName::MainTableSelectionChange, [&](const auto& note) {
            change = std::get<SelectionChange>(note.object);
        });
    browser.scanningStartAction();
    EXPECT_THAT(host.asked, ElementsAre("reveal /tmp/a", "access"));
    EXPECT_TRUE(row == 1 && change == (SelectionChange{1, true, true}));
}

} // namespace
} // namespace pryvane
