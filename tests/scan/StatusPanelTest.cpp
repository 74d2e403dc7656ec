#include "scan/StatusPanel.h"

#include <gtest/gtest.h>

namespace pryvane {
namespace {

constexpr Date kNow{std::chrono::seconds(1'700'000'000)};
constexpr auto kDay = std::chrono::hours(24);

TEST(StatusPanel, DecidesFromTheLastScan)
{
    struct Row {
        const char* name;
        StatusFacts facts;
        const char* status;
        const char* badge;
        bool scanNow, remove, last3Days, today;
    };
    const auto facts = [](std::optional<Date> lastScan, bool threat = false, bool running = false,
                          bool writable = true) {
        return StatusFacts{writable, running, threat, lastScan, kNow - std::chrono::hours(1), kNow};
    };
    const Row rows[] = {
        {"home not writable", facts(kNow - kDay, false, false, false), "", "icn_white_cross", false,
         false, false, false},
        {"running", facts(kNow - kDay, false, true), "", "icn_white_cross", false, false, false,
         false},
        {"never", facts({}), "A scan has never been run on your system", "icn_white_cross", true,
         false, false, false},
        {"five days ago", facts(kNow - 5 * kDay), "Not scan yet, please scan your mac",
         "icn_white_cross", true, false, true, false},
        {"four days ahead, before this launch by the clock",
         StatusFacts{true, false, false, kNow + 4 * kDay, kNow + 9 * kDay, kNow},
         "A scan has not been run on your system for 4 days", "icn_white_cross", true, false, false,
         false},
        {"clean in this run", facts(kNow - std::chrono::minutes(1)),
         "No Potential Threats Detected", "icn_white_check", false, false, true, true},
        {"threats in this run", facts(kNow - std::chrono::minutes(1), true),
         "Potential Threats Detected", "icn_white_cross", false, true, true, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const StatusPanel panel = makeStatusPanel(row.facts);
        EXPECT_EQ(panel.statusText, row.status);
        EXPECT_EQ(panel.badge, row.badge);
        EXPECT_EQ(panel.showsScanNow, row.scanNow);
        EXPECT_EQ(panel.showsRemove, row.remove);
        EXPECT_EQ(panel.isScanLast3Days, row.last3Days);
        EXPECT_EQ(panel.isTodayScan, row.today);
        EXPECT_EQ(panel.logLine, row.facts.homeWritable ? "" : "Please restart your app");
    }
}

TEST(StatusPanel, ACleanResultHasItsOwnLook)
{
    const StatusPanel panel =
        makeStatusPanel({true, false, false, kNow, kNow - std::chrono::hours(1), kNow});
    EXPECT_EQ(panel.background, "no_threats_bg");
    EXPECT_EQ(panel.bottomIcon, "icn_white_question");
    EXPECT_EQ(panel.bottomText, "Do you still think you are infected\nwith spyware?");
    EXPECT_TRUE(panel.showsInfoBox);
    EXPECT_EQ(panel.headerHeight, 112);
}

} // namespace
} // namespace pryvane
