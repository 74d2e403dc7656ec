#include "app/AppFixture.h"
#include "app/DashBoardViewController.h"
#include "reports/DefaultMethods.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

class DashBoardTest : public test::AppFixture {
protected:
    DashBoardTest()
    {
        delegate.openMainWindow();
        takeWindowCalls();
    }
    void load()
    {
        board->viewDidLoad();
        mainQueue.drain();
    }
    /// Stores what a scan that ends a minute later leaves.
    void add(const std::vector<std::string>& users, const std::string& volumeName,
             const char* kind = "Quick Scan", const char* duration = " 1 second",
             std::size_t findings = 0)
    {
        clock.advance(1min);
        const auto report = SpywareScanReport::ScanReportWithSpywareList(
            std::make_shared<SpywareList>(findings, std::make_shared<Spyware>()), clock.now(),
            duration, kind, clock.now());
        report->volume = volumeName;
        report->subject.users = users;
        ASSERT_TRUE(DefaultMethods(defaults, *disk, clock, log).updateReportInDefaults(report));
    }
    void choose(std::size_t entry)
    {
        const auto action = desktop.statusItem.menu.at(entry).action;
        action();
    }
    void pass(Clock::Interval interval)
    {
        clock.advance(interval);
        desktop.timers.run();
    }

    std::unique_ptr<DashBoardViewController> board =
        std::make_unique<DashBoardViewController>(services(), desktop.services(), delegate, facts);
};

TEST_F(DashBoardTest, FirstLaunchAppliesTheDefaults)
{
    load();
    board->makeAppChanges();
    EXPECT_TRUE(board->isRealTimeProtectionON() && delegate.state().isRealTimeProtectionON);
    EXPECT_TRUE(board->showDockIcon());
    EXPECT_FALSE(board->loginStart());
    EXPECT_EQ(desktop.statusItem.created, 1);
    EXPECT_EQ(desktop.statusItem.menu[0].title, "Real-time Scan Enabled");
    EXPECT_EQ(desktop.statusItem.menu[0].checked, true);
    EXPECT_THAT(desktop.dockIcon.set, IsEmpty());
    EXPECT_THAT(desktop.loginItem.asked, ElementsAre(false, false));
    EXPECT_THAT(desktop.distributedNotifications.posted, IsEmpty());
    EXPECT_EQ(board->lastScanText(), "Not scan yet");
    EXPECT_FALSE(board->lastScans().date);
}

TEST_F(DashBoardTest, EachHalfHourAsksForAScanAndRaisesNoWindow)
{
    load();
    const auto asksAfter = [&](Clock::Interval interval) {
        takeNotes();
        pass(interval);
        return takeNotes();
    };
    EXPECT_THAT(asksAfter(30min - 1ms), IsEmpty());
    EXPECT_EQ(asksAfter(1ms), kRequest);
    clock.setNow(clock.now() - 24h * 365); // a wall clock set back does not hold the timer up
    EXPECT_EQ(asksAfter(30min), kRequest);
    mainQueue.drain();
    EXPECT_THAT(takeWindowCalls(), IsEmpty());

    // Off and on again begins another half hour.
    pass(20min);
    desktop.statusItem.titles.clear();
    choose(0);
    EXPECT_FALSE(flag(preferences::kRealTimeScan));
    EXPECT_FALSE(board->nextRealTimeScan());
    choose(0);
    EXPECT_TRUE(flag(preferences::kRealTimeScan));
    EXPECT_THAT(desktop.statusItem.titles,
                ElementsAre("Enabled Real-time Scan", "Real-time Scan Disabled",
                            "Disabled Real-time Scan", "Real-time Scan Enabled"));
    EXPECT_EQ(board->nextRealTimeScan(), clock.now() + 30min);
    EXPECT_THAT(asksAfter(29min), IsEmpty());
    EXPECT_EQ(asksAfter(1min), kRequest);

    board->btnRealTimeScanClicked(false);
    EXPECT_FALSE(delegate.state().isRealTimeProtectionON);
    EXPECT_EQ(desktop.statusItem.menu[0].checked, false);
    EXPECT_THAT(asksAfter(31min), IsEmpty());
    board->btnRealTimeScanClicked(true);
    board.reset();
    EXPECT_EQ(desktop.timers.running(), 0U);
}

TEST_F(DashBoardTest, ARunningHelperTurnsStartAtLoginOnAndIsToldToQuit)
{
    desktop.loginItem.helperRuns = true;
    load();
    EXPECT_TRUE(board->loginStart());
    EXPECT_TRUE(flag(preferences::kIsRunOnStart));
    EXPECT_THAT(desktop.distributedNotifications.posted,
                ElementsAre("TERMINATEHELPERPryvane com.torvell.Pryvane"));
    EXPECT_THAT(desktop.loginItem.asked, ElementsAre(true));
}

TEST_F(DashBoardTest, AFailingLoginItemIsToldOnceOrTwiceAndStillRemembered)
{
    load();
    desktop.loginItem.fails = true;
    for (const bool on : {true, false}) {
        for (int told = on ? 1 : 2; told > 0; --told)
            alerts.answer(kAlertFirstButton);
        board->runStartUpAction(on);
        EXPECT_EQ(flag(preferences::kIsRunOnStart), on);
        EXPECT_EQ(alerts.asked().size(), on ? 1U : 3U);
    }
    EXPECT_EQ(alerts.asked().back().messageText, "Error");
    EXPECT_EQ(alerts.asked().back().informativeText, "Error in removing from start at login");
}

TEST_F(DashBoardTest, TheDockIconGoesOnlyWhileTheStatusItemIsThere)
{
    load();
    desktop.statusItem.setHasPlace(false);
    board->dockIconAction(false);
    EXPECT_FALSE(flag(preferences::kIsDockIcon));
    EXPECT_EQ(desktop.dockIcon.policy(), ActivationPolicy::Regular);

    desktop.statusItem.setHasPlace(true);
    EXPECT_EQ(desktop.dockIcon.policy(), ActivationPolicy::Accessory);
    EXPECT_THAT(takeWindowCalls(), IsEmpty());
    mainQueue.drain();
    EXPECT_THAT(takeWindowCalls(), ElementsAre("front main", "activate"));

    delegate.closeButtonClicked(0);
    EXPECT_FALSE(desktop.windows.isVisible(ShellWindow::Main));
    desktop.statusItem.setHasPlace(false);
    EXPECT_TRUE(desktop.windows.isVisible(ShellWindow::Main));
    EXPECT_EQ(desktop.dockIcon.policy(), ActivationPolicy::Regular);
    board->dockIconAction(true);
    EXPECT_TRUE(flag(preferences::kIsDockIcon));
}

TEST_F(DashBoardTest, TheScanButtonFollowsTheScan)
{
    load();
    const auto shown = [this] {
        const ScanButton& button = board->scanButton();
        return button.title + (button.spinner ? " spinner" : "") +
               (button.colour == TitleColour::White ? " white" : "") +
               (button.deepShown ? " shown" : "") + (button.deepEnabled ? " enabled" : "");
    };
    EXPECT_EQ(shown(), "Quick Scan > shown enabled");
    takeNotes();
    board->scanningStartAction();
    auto expected = kRequest;
    expected.emplace_back("UpdateThreat");
    EXPECT_EQ(takeNotes(), expected);
    EXPECT_FALSE(board->scanButton().deepShown || board->scanButton().deepEnabled);
    notifications.post(NotificationName::ScanStatusChange, false); // it was refused
    EXPECT_EQ(shown(), "Quick Scan > shown enabled");
    notifications.post(NotificationName::ScanStatusChange, true);
    EXPECT_EQ(shown(), " spinner shown");
    notifications.post(NotificationName::ScanStatusChange, false);
    EXPECT_EQ(shown(), "Quick Scan > shown enabled");

    board->btnDeepScanClicked(true);
    EXPECT_TRUE(delegate.state().isDeepScan);
    notifications.post(NotificationName::ScanStatusChange, true);
    EXPECT_EQ(shown(), " spinner");
    delegate.state().totalCount = 7;
    delegate.state().totalScanCount = 7;
    notifications.post(NotificationName::StopScan);
    EXPECT_EQ(shown(), "Deep Scan > white shown enabled");
    EXPECT_TRUE(delegate.state().isScanStop.requested());
    EXPECT_EQ(delegate.state().totalCount + delegate.state().totalScanCount, 0);
    board->btnDeepScanClicked(false);
    EXPECT_EQ(shown(), "Quick Scan > shown enabled");
}

TEST_F(DashBoardTest, TheStatusMenuActs)
{
    load();
    takeNotes();
    choose(1);
    EXPECT_EQ(takeNotes(), kRequest);
    EXPECT_THAT(takeWindowCalls(), ElementsAre("front main", "activate"));
    choose(3);
    EXPECT_EQ(desktop.statusItem.menu[3].title, "Checking for Update…");
    choose(3);
    alerts.answer(kAlertFirstButton);
    mainQueue.drain();
    EXPECT_EQ(desktop.statusItem.menu[3].title, "Check for Update");
    ASSERT_EQ(alerts.asked().size(), 1U);
    EXPECT_EQ(alerts.asked()[0].messageText, "No Update is Available");
    EXPECT_EQ(alerts.asked()[0].informativeText, "You are currently running Pryvane version 1.2");
    choose(4);
    choose(5);
    choose(7);
    EXPECT_THAT(takeWindowCalls(), ElementsAre("front main", "activate", "terminate"));
    EXPECT_THAT(desktop.webBrowser.opened, ElementsAre("https://pryvane.example/"));

    board.reset();
    choose(7); // the item outlives the dashboard
    EXPECT_THAT(takeWindowCalls(), IsEmpty());
}

TEST_F(DashBoardTest, TellsHowLongAgoTheLastScanWasAndHowLongItTook)
{
    load();
    EXPECT_EQ(board->scanExplanation(), "Looks in every place that known spyware settles in.");
    const std::string here = disk->identity();
    add({"alice"}, here, "Quick Scan", " 3 seconds");
    add({"alice"}, here, "Real Time Scan", " 1 minute  1 second");
    add({"alice"}, here, "Deep Scan", "Stopped", 1);
    clock.advance(30h);
    // Newer ones of another disk, of one that cannot be told, and of another user on this one.
    add({"alice"}, "another");
    add({"alice"}, "", "Deep Scan");
    add({"bob"}, here);
    ASSERT_TRUE(defaults.set(preferences::kLastScanDate, clock.now()).ok());
    notifications.post(NotificationName::ScanStatusChange, false);
    // The list that was read when the dashboard opened may still come, with some of the reports.
    ASSERT_TRUE(mainQueue.runUntil([&] { return board->lastScans().verdict == Verdict::Found; }));
    EXPECT_EQ(board->scanExplanation(), "Looks in every place that known spyware settles in. Last "
                                        "time: 1 minute 1 second.");
    board->btnDeepScanClicked(true);
    EXPECT_THAT(board->scanExplanation(), testing::Not(testing::HasSubstr("Last time")));
    EXPECT_EQ(board->lastScanText(), "Yesterday");
}

TEST_F(DashBoardTest, OfEveryoneAReportTellsThatLeftNobodyOut)
{
    facts.user.clear();
    board =
        std::make_unique<DashBoardViewController>(services(), desktop.services(), delegate, facts);
    int reads = 0, wanted = 1;
    QObject::connect(board.get(), &DashBoardViewController::lastScansRead, [&] { ++reads; });
    load();
    // Or the list that was read when the dashboard opened is taken for the next one.
    ASSERT_TRUE(mainQueue.runUntil([&] { return reads == wanted; }));
    const auto dateAfter = [&](const std::vector<std::string>& users) {
        add(users, disk->identity());
        ++wanted;
        notifications.post(NotificationName::ScanStatusChange, false);
        EXPECT_TRUE(mainQueue.runUntil([&] { return reads == wanted; }));
        return board->lastScans().date;
    };
    EXPECT_TRUE(dateAfter({"alice"})) << "the only home there is";
    volume.folder("/Users/bob");
    EXPECT_FALSE(dateAfter({"alice"})) << "bob's home was not looked at";
    EXPECT_TRUE(dateAfter({"alice", "bob"}));
    EXPECT_EQ(board->lastScans().date, clock.now());
}

} // namespace
} // namespace pryvane
