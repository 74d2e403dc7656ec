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
        std::vector<std::string> paths;
        for (const auto& record : state.arrSpywareList.records()) {
            if (record->infections == "Spyware")
                paths.push_back(record->url.relativePath());
        }
        return paths;
    }
    long count(std::string_view note) { return std::count(notes.begin(), notes.end(), note); }
    void fill(int files)
    {
        for (int i = 0; i < files; ++i)
            volume.file("/data/" + std::to_string(i));
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
    const auto& walked = *std::find_if(
        reports[0]->spyWareList->begin(), reports[0]->spyWareList->end(),
        [](const auto& record) { return record->url.relativePath() == "/tmp/Puper Koobface"; });
    EXPECT_EQ(walked->name(), "Puper Koobface");
    EXPECT_EQ(walked->risk, "High Risk");
    EXPECT_EQ(walked->size, 0);
    EXPECT_GT(reports[0]->coverage.entriesWalked, 5);
    EXPECT_GT(reports[0]->coverage.signaturesTested, 500);
    EXPECT_EQ(notes.front(), "ScanStatusChange YES");
    EXPECT_EQ(notes[notes.size() - 2], "ScanStatusChange NO");
    EXPECT_TRUE(clock.pauses().empty());
    EXPECT_EQ(state.totalCount, 0);
    EXPECT_EQ(state.totalScanCount, 0);

    // The first folder of each pass is told: how much is counted, then where the walk is.
    ASSERT_GE(places.size(), 2U);
    EXPECT_GT(std::atoi(places.front().c_str()), 0);
    EXPECT_THAT(places.back(), testing::StartsWith("/"));
    EXPECT_THAT(labels, testing::Contains("/"));
    EXPECT_THAT(types, ElementsAre("Calculating Files:", "Scanning Entry:"));
    EXPECT_TRUE(stopOffered);
    EXPECT_FALSE(controller.display().stopButton);
    EXPECT_THAT(log.lines(), ElementsAre(testing::StartsWith("count time "),
                                         testing::StartsWith("scannig time "), "Done Scanning"));
}

TEST_F(DeepScanTest, ProgressStandsForEachHundredthAndNeverDividesByZero)
{
    scan(); // only the folders of the fixture
    EXPECT_EQ(stored().size(), 1U);

    for (const int files : {99, 100, 1000}) {
        SCOPED_TRACE(files);
        volume.remove("/data");
        fill(files);
        notes.clear();
        scan();
        EXPECT_EQ(count("UpdateThreat"), count("ScanningProgress"));
        EXPECT_GE(count("ScanningProgress"), 49);
        EXPECT_LE(count("ScanningProgress"), 101);
    }
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

/// Stops when that notification comes for the n-th time, on whatever thread it is posted.
TEST_F(DeepScanTest, AStopAnywhereEndsInOneStoppedReport)
{
    fill(3000);
    struct Row {
        const char* when;
        NotificationName name;
        int nth;
    };
    const Row rows[] = {
        {"counting", NotificationName::ScanningProgressURL, 1},
        {"walking", NotificationName::ScanningProgress, 2},
        {"at once", NotificationName::ScanStatusChange, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.when);
        const std::size_t before = stored().size();
        std::atomic<int> seen{0};
        const auto stopping = notifications.observe(row.name, [&](const Notification&) {
            if (++seen == row.nth) {
                notifications.post(NotificationName::StopScan);
                notifications.post(NotificationName::StopScan);
            }
        });
        scan();
        ASSERT_EQ(stored().size(), before + 1);
        EXPECT_EQ(stored().front()->scanDuration, "Stopped");
        EXPECT_FALSE(state.isScanStop.requested());
        EXPECT_FALSE(controller.isScanning());
    }
    scan();
    EXPECT_NE(stored().front()->scanDuration, "Stopped");
}

} // namespace
} // namespace pryvane
