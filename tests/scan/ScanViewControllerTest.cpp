
#include "scan/CheckSequence.h"
#include "scan/FindingInbox.h"
#include "scan/SessionFixture.h"
#include "signatures/Catalogue.h"
#include "signatures/CheckRunner.h"
#include "support/WatchedDisk.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>
#include <tuple>

namespace pryvane {
namespace {

using testing::ElementsAre;

class ScanViewControllerTest : public test::SessionFixture {};

TEST_F(ScanViewControllerTest, APacedQuickScanGoesThroughItsStepsAndStoresOneReport)
{
    volume.file("/Library/LaunchAgents/com.refog.agent.plist", "0123456789");
    clock.setNow(Date(std::chrono::seconds(1'700'000'000)));
    // Holds the checks at each pause until both halves of its step were shown.
    std::atomic<int> shown{0};
    const auto listening = controller.stateChanged.listen(
        [&] { shown = static_cast<int>(controller.display().progressBar); });
    bool inTime = true;
    clock.onPause = [&](std::size_t number) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (inTime && shown != static_cast<int>(2 * number)) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            inTime = std::chrono::steady_clock::now() < end;
        }
    };
    EXPECT_EQ(defaults.objectForKey("checkSubDir"), PreferenceValue(std::string("y")));
    scan();
    clock.onPause = nullptr;

    // 50 steps: the 47 checks, twice "Word macro" within the last row, and the last row itself.
    std::vector<Clock::Interval> pauses;
    std::vector<std::string> expectedLabels{""}, expectedSteps{""};
    Clock::Interval total{0};
    const auto expectStep = [&](std::string_view label, Clock::Interval pause) {
        pauses.push_back(pause);
        total += pause;
        if (expectedLabels.back() != label)
            expectedLabels.emplace_back(label);
    };
    for (const SequenceRow& row : catalogue::sequence()) {
        for (int word = 0; row.label == "Default Check" && word < 2; ++word)
            expectStep("Word macro", Clock::Interval(100));
        expectStep(row.label, row.pause);
    }
    ASSERT_EQ(pauses.size(), 50U);
    EXPECT_EQ(clock.pauses(), pauses);
    EXPECT_EQ(labels, expectedLabels);
    for (int percent = 1; percent <= 100; ++percent)
        expectedSteps.push_back(std::to_string(percent) + "%");
    expectedSteps.emplace_back("0%");
    EXPECT_EQ(steps, expectedSteps);
    EXPECT_THAT(types, ElementsAre("Scanning Entry:"));
    EXPECT_FALSE(stopOffered) << "that is for deep scans";
    EXPECT_THAT(log.lines(), ElementsAre("Done Scanning"));

    EXPECT_THAT(notes, ElementsAre("ScanStatusChange YES", "UpdateThreat", "ScanStatusChange NO",
                                   "ScanningChange"));
    const ReportList reports = stored();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0]->reportId, controller.report()->reportId);
    EXPECT_EQ(reports[0]->reportType, "Quick Scan");
    EXPECT_EQ(reports[0]->scanDuration,
              stringFromTimeInterval(std::chrono::duration<double>(total).count()));
    ASSERT_EQ(reports[0]->spyWareList->size(), 1U);
    EXPECT_EQ(reports[0]->spyWareList->front()->infections, "Refog Personal Monitor");
    EXPECT_TRUE(controller.threatFound());
    EXPECT_EQ(controller.statusPanel().statusText, "Potential Threats Detected");
    EXPECT_THAT(controller.arrSpyWarePath(),
                ElementsAre("/Library/LaunchAgents/com.refog.agent.plist"));
    EXPECT_FALSE(defaults.get(preferences::kScan));
    EXPECT_EQ(defaults.get(preferences::kLastScanDate), reports[0]->scanDate);
    EXPECT_FALSE(controller.isScanning());

    // The next one starts without what this one found.
    volume.remove("/Library/LaunchAgents/com.refog.agent.plist");
    scan();
    EXPECT_FALSE(stored()[0]->isRed);
    EXPECT_EQ(controller.statusPanel().statusText, "No Potential Threats Detected");
}

TEST_F(ScanViewControllerTest, AStopAtAnyStepLeavesNoReportAndTheNextScanWorks)
{
    volume.file("/tmp/.mdworker");
    std::size_t stopAt = 0;
    clock.onPause = [&](std::size_t number) {
        if (number == stopAt)
            notifications.post(NotificationName::StopScan);
    };
    for (std::size_t step = 1; step <= 50; ++step) {
        SCOPED_TRACE(step);
        notes.clear();
        const std::size_t before = clock.pauses().size();
        stopAt = before + step;
        scan();
        EXPECT_EQ(clock.pauses().size(), before + step);
        EXPECT_EQ(notes.back(), "ScanStatusChange NO");
        EXPECT_TRUE(stored().empty());
        EXPECT_FALSE(controller.isScanning());
        EXPECT_FALSE(state.isScanStop.requested());
        EXPECT_EQ(controller.coverage().ended.how, ScanEnding::How::Stopped);
        EXPECT_NE(controller.statusPanel().background, "no_threats_bg");
        EXPECT_FALSE(defaults.get(preferences::kScan));
    }
    stopAt = 0;
    scan();
    ASSERT_EQ(stored().size(), 1U);
    EXPECT_EQ(stored().front()->spyWareList->size(), 1U);
}

TEST_F(ScanViewControllerTest, ASecondStartAndAnEarlyStopDoNoHarm)
{
    controller.SpywareScanStart();
    controller.SpywareScanStart();
    controller.stopScan();
    ASSERT_TRUE(mainQueue.runUntil([&] { return ended > 0; }));
    mainQueue.drain();
    EXPECT_EQ(ended, 1);
    EXPECT_THAT(notes, ElementsAre("ScanStatusChange YES", "StopScan", "ScanStatusChange NO"));
    EXPECT_TRUE(stored().empty());
}

TEST_F(ScanViewControllerTest, AStopWithinAStepRunsNoFurtherCheckOfIt)
{
    // As a user may stop between two checks of one step.
    test::WatchedDisk stopping(*disk);
    stopping.onPresence = [&](const std::string& place) {
        if (place == "/Users/alice/Library/Skype/SkypeHelper")
            state.isScanStop.request();
    };
    ScanCoverage coverage;
    FindingInbox inbox(services(), state, [] {});
    CheckRunner checks(stopping, defaults, {"alice"}, inbox, coverage);
    std::string last;
    CheckSequence sequence(checks, clock, state.isScanStop,
                           [&](std::string_view label, int) { last = label; });
    EXPECT_EQ(sequence.scan4SpywareStart(), CheckSequence::Outcome::Stopped);
    // The last step has two checks more: one shows "Word macro", one notes that it watches.
    EXPECT_EQ(last, "SniperSpyKeylogger");
    EXPECT_FALSE(defaults.contains(preferences::kARD));
}

TEST_F(ScanViewControllerTest, WhatIsChosenDuringAScanIsForTheNextOne)
{
    clock.onPause = [&](std::size_t) {
        mainQueue.post([&] { state.isDeepScan = state.isRealTimeProtectionON = true; });
    };
    scan();
    EXPECT_EQ(stored()[0]->reportType, "Quick Scan");
    clock.onPause = {};
    state.isDeepScan = false;
    scan();
    EXPECT_EQ(stored()[0]->reportType, "Real Time Scan");
    state.isDeepScan = true;
    scan();
    EXPECT_EQ(stored()[0]->reportType, "Deep Scan");
}

TEST_F(ScanViewControllerTest, WhatWasListedAndThenCannotBeLookedAtIsInTheCoverage)
{
    const std::string path = "/Library/LaunchAgents/com.refog.agent.plist";
    volume.file(path);
    const std::vector<Refusal> none, one{{path, "it was found, and then could not be looked at"}};
    for (const auto& [answer, listed, refused] :
         {std::tuple{Presence::Present, 1U, none}, std::tuple{Presence::Absent, 0U, none},
          std::tuple{Presence::Unknown, 0U, one}}) {
        test::WatchedDisk answering(*disk);
        answering.answers[path] = answer;
        ScanViewController onIt(servicesOn(answering), state, access, store, remover, options);
        int over = 0;
        const auto listening = onIt.scanEnded.listen([&] { ++over; });
        for (int scan = 1; scan <= 2; ++scan) { // nothing of the first is told of the second
            onIt.SpywareScanStart();
            ASSERT_TRUE(mainQueue.runUntil([&] { return over == scan; }));
            EXPECT_EQ(stored()[0]->spyWareList->size(), listed);
            EXPECT_EQ(stored()[0]->coverage.refused, refused);
        }
    }
}

TEST_F(ScanViewControllerTest, DestroyingTheControllerEndsARunningScanAndLeavesNoStop)
{
    for (const bool running : {false, true}) {
        auto passing = std::make_unique<ScanViewController>(services(), state, access, store,
                                                            remover, options);
        if (running)
            passing->SpywareScanStart();
        mainQueue.drain();
        passing.reset();
        mainQueue.drain();
        EXPECT_FALSE(state.isScanStop.requested()) << running;
        EXPECT_FALSE(state.isScanning()) << running;
    }
}

} // namespace
} // namespace pryvane
