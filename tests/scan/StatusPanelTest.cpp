#include "scan/StatusPanel.h"

#include <gtest/gtest.h>

namespace pryvane {
namespace {

constexpr Date kNow{std::chrono::seconds(1'700'000'000)};
constexpr auto kDay = std::chrono::hours(24);

TEST(StatusPanel, DecidesFromTheLastScan)
{
    const auto facts = [](std::optional<Date> lastScan, std::optional<Verdict> verdict = {},
                          bool running = false, bool writable = true) {
        return StatusFacts{
            writable, running, verdict, "why", lastScan, kNow - std::chrono::hours(1), kNow};
    };
    const auto ended = kNow - std::chrono::minutes(1);
    const struct {
        const char* name;
        StatusFacts facts;
        const char* status;
        const char* background;
        bool scanNow, remove, last3Days, today;
    } rows[] = {
        {"home not writable", facts(kNow - kDay, {}, false, false),
         "The Home Folder Cannot Be Written To", "", true, false, false, false},
        {"home not writable, scanned", facts(ended, Verdict::Clean, false, false),
         "No Potential Threats Detected", "no_threats_bg", false, false, true, true},
        {"running", facts(kNow - kDay, {}, true), "", "threats_bg", false, false, false, false},
        {"never", facts({}), "A scan has never been run on your system", "threats_bg", true, false,
         false, false},
        {"five days ago", facts(kNow - 5 * kDay), "Not scan yet, please scan your mac",
         "threats_bg", true, false, true, false},
        {"four days ahead, before this launch by the clock",
         StatusFacts{true, false, {}, {}, kNow + 4 * kDay, kNow + 9 * kDay, kNow},
         "A scan has not been run on your system for 4 days", "threats_bg", true, false, false,
         false},
        {"by another program during this run", facts(ended), "Not scan yet, please scan your mac",
         "threats_bg", true, false, true, true},
        {"clean", facts(ended, Verdict::Clean), "No Potential Threats Detected", "no_threats_bg",
         false, false, true, true},
        {"found", facts(ended, Verdict::Found), "Potential Threats Detected", "threats_bg", false,
         true, true, true},
        {"attention", facts(ended, Verdict::Attention), "An Application Needs Your Attention",
         "attention_bg", true, false, true, true},
        {"stopped", facts(ended, Verdict::Stopped), "Stopped Before All Was Looked At",
         "attention_bg", true, false, true, true},
        {"incomplete", facts(ended, Verdict::Incomplete), "Not Everything Could Be Looked At",
         "attention_bg", true, false, true, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const StatusPanel panel = makeStatusPanel(row.facts);
        EXPECT_EQ(panel.statusText, row.status);
        EXPECT_EQ(panel.background, row.background);
        EXPECT_EQ(panel.badge == "icn_white_check", panel.background == "no_threats_bg");
        EXPECT_EQ(panel.showsScanNow, row.scanNow);
        EXPECT_EQ(panel.showsRemove, row.remove);
        EXPECT_EQ(panel.isScanLast3Days, row.last3Days);
        EXPECT_EQ(panel.isTodayScan, row.today);
        EXPECT_EQ(panel.logLine, row.facts.homeWritable ? "" : "Please restart your app");
    }
}

} // namespace
} // namespace pryvane
