
#include "engine/SessionFixture.h"
#include "signatures/Catalogue.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::ElementsAre;

class ScanViewControllerTest : public test::SessionFixture {};

TEST_F(ScanViewControllerTest, APacedQuickScanGoesThroughItsStepsAndStoresOneReport)
{
    volume.file("/Library/LaunchAgents/com.refog.agent.plist", "0123456789");
    clock.setNow(Date(std::chrono::seconds(1'700'000'000)));
    scan();

    // 50 steps: the 47 checks, twice "Word macro" within the last row, and the last row itself.
    std::vector<Clock::Interval> pauses;
    std::vector<std::string> expectedLabels{""};
    const auto expectStep = [&](std::string_view label, Clock::Interval pause) {
        pauses.push_back(pause);
        if (expectedLabels.back() != label)
            expectedLabels.emplace_back(label);
    };
    for (const SequenceRow& row : catalogue::sequence()) {
        if (row.label == "Default Check") {
            expectStep("Word macro", Clock::Interval(100));
            expectStep("Word macro", Clock::Interval(100));
        }
        expectStep(row.label, row.pause);
    }
    ASSERT_EQ(pauses.size(), 50U);
    EXPECT_EQ(clock.pauses(), pauses);
    EXPECT_EQ(labels, expectedLabels);
    EXPECT_THAT(steps, testing::Contains("1%"));
    EXPECT_THAT(steps, testing::Contains("99%"));
    EXPECT_EQ(steps.back(), "0%");

    EXPECT_THAT(notes, ElementsAre("ScanStatusChange YES", "UpdateThreat", "ScanStatusChange NO",
                                   "ScanningChange"));
    const ReportList reports = stored();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0]->reportId, controller.report()->reportId);
    EXPECT_EQ(reports[0]->reportType, "Quick Scan");
    Clock::Interval total{0};
    for (const auto pause : pauses)
        total += pause;
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

    // The next report goes to the head; the first one keeps what it found.
    volume.remove("/Library/LaunchAgents/com.refog.agent.plist");
    clock.advance(std::chrono::seconds(5));
    scan();
    ASSERT_EQ(stored().size(), 2U);
    EXPECT_FALSE(stored()[0]->isRed);
    EXPECT_TRUE(stored()[1]->isRed);
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
        EXPECT_FALSE(controller.isScanning() || state.isScanning);
        EXPECT_FALSE(state.isScanStop.requested());
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

TEST_F(ScanViewControllerTest, TheRealTimeSwitchNamesTheReport)
{
    state.isRealTimeProtectionON = true;
    scan();
    EXPECT_EQ(stored()[0]->reportType, "Real Time Scan");
}

TEST_F(ScanViewControllerTest, AMissingHomeIsNeverAPlainClean)
{
    volume.remove("/Users/alice");
    volume.folder("/Users/carol");
    volume.folder("/Users/Shared");
    scan();
    const ScanCoverage coverage = stored()[0]->coverage;
    EXPECT_EQ(coverage.missingHome, "/Users/alice");
    EXPECT_THAT(coverage.homes, ElementsAre("carol"));
    EXPECT_EQ(verdictLine(0, coverage), "Clean, but not everything could be read: no home at "
                                        "/Users/alice, homes there are: carol.");
}

TEST_F(ScanViewControllerTest, DestroyingTheControllerEndsARunningScan)
{
    auto passing =
        std::make_unique<ScanViewController>(services(), state, access, store, remover,
                                             ScanOptions{"alice", FileURL::fileURLWithPath("/")});
    passing->SpywareScanStart();
    mainQueue.drain();
    passing.reset();
    mainQueue.drain();
    EXPECT_FALSE(state.isScanStop.requested());
}

} // namespace
} // namespace pryvane
