#include "scan/SessionFixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace pryvane {
namespace {

using testing::ElementsAre;

class DeepScanTest : public test::SessionFixture {
protected:
    DeepScanTest() { state.isDeepScan = true; }

    std::vector<std::string> walkFindings()
    {
        SpywareList walked = state.arrSpywareList.records();
        std::erase_if(walked, [](const auto& record) { return record->infections != "Spyware"; });
        return pathsOf(walked);
    }
};

TEST_F(DeepScanTest, ChecksAndWalkEndInOneReport)
{
    volume.file("/opt/tools/Koobface/readme.txt");
    volume.file("/opt/.hidden/Jahlav/loader");
    volume.file("/opt/.Jahlav");
    volume.file("/Library/LaunchAgents/com.refog.agent.plist");
    volume.file("/tmp/.mdworker"); // an exact path of a check, and in the full-system list
    volume.file("/tmp/Puper Koobface");
    volume.link("/opt/link to Koobface", "/opt/tools");
    scan();

    const ReportList reports = stored();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0]->reportType, "Deep Scan");
    EXPECT_THAT(walkFindings(),
                testing::UnorderedElementsAre("/opt/tools/Koobface/readme.txt",
                                              "/opt/.hidden/Jahlav/loader", "/tmp/Puper Koobface"));
    EXPECT_EQ(reports[0]->spyWareList->size(), 5U);
    EXPECT_GT(reports[0]->coverage.entriesWalked, 5);
    EXPECT_GT(reports[0]->coverage.signaturesTested, 500);
    EXPECT_EQ(notes.front(), "ScanStatusChange YES");
    EXPECT_EQ(notes[notes.size() - 2], "ScanStatusChange NO");
    EXPECT_TRUE(clock.pauses().empty());

    // The first folder of each pass is told: how much is counted, then where the walk is.
    ASSERT_GE(places.size(), 2U);
    EXPECT_GT(std::atoi(places.front().c_str()), 0);
    EXPECT_THAT(places.back(), testing::StartsWith("/"));
    EXPECT_THAT(labels, testing::Contains("/"));
    EXPECT_THAT(types, ElementsAre("Calculating Files:", "Scanning Entry:"));
    EXPECT_TRUE(stopOffered && !controller.display().stopButton);
    EXPECT_THAT(log.lines(), ElementsAre(testing::StartsWith("count time "),
                                         testing::StartsWith("scannig time "), "Done Scanning"));
}

TEST_F(DeepScanTest, ProgressStandsForEachHundredthAndNeverDividesByZero)
{
    scan(); // only the folders of the fixture
    EXPECT_EQ(stored().size(), 1U);
    for (int i = 0; i < 100; ++i)
        volume.file("/data/" + std::to_string(i));
    notes.clear();
    scan();
    EXPECT_EQ(std::ranges::count(notes, "UpdateThreat"),
              std::ranges::count(notes, "ScanningProgress"));
    EXPECT_GE(std::ranges::count(notes, "ScanningProgress"), 49);
}

TEST_F(DeepScanTest, TheFlatVariantLeavesNoReport)
{
    ASSERT_TRUE(defaults.set(preferences::kCheckSubDir, "n"));
    volume.file("/opt/Koobface/x");
    scan();
    EXPECT_TRUE(stored().empty());
    EXPECT_THAT(walkFindings(), ElementsAre("/opt/Koobface/x"));
    EXPECT_FALSE(controller.isScanning());
    EXPECT_EQ(notes.back(), "ScanStatusChange NO");
    EXPECT_EQ(state.totalCount, 0);
    EXPECT_EQ(state.totalScanCount, 0);
}

} // namespace
} // namespace pryvane
