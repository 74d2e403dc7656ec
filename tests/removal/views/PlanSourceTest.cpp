#include "removal/views/PlanSource.h"

#include <gmock/gmock.h>

namespace pryvane {
namespace {

using testing::ElementsAre;

PlannedRecord planned(const char* path, const char* threat, RemovalObstacle obstacle = {})
{
    const auto record =
        Spyware::SpyWareSeen("x", threat, 0, FileURL::fileURLWithPath(path), kHighRisk);
    record->isChecked = true;
    PlannedRecord row{record, FindingRules().flaggedBy(*record), {}};
    row.forecast.kind = FileKind::RegularFile;
    row.forecast.entries = 1;
    row.forecast.bytes = 512;
    row.forecast.obstacle = obstacle;
    return row;
}

/// What a table shows of it: headings as they are, rows behind a dash.
std::vector<std::string> shown(PlanSource& source, int grouping)
{
    ui::RowModel model(source, PlanSource::columns());
    model.setGrouping(grouping);
    std::vector<std::string> lines;
    for (int row = 0; row < model.rowCount(); ++row) {
        const bool isHeading = model.isHeading(model.index(row, 0));
        const QModelIndex index =
            model.index(row, isHeading ? PlanSource::Name : PlanSource::Location);
        const auto text = index.data().toString().toStdString();
        lines.push_back(isHeading ? text : "- " + text);
    }
    return lines;
}

struct PlanSourceTest : testing::Test {
    PlanSourceTest() { source.setPlan(plan); }

    RemovalPlan plan{
        {planned("/Library/Preferences/com.okaz.x", "Okaz Installer"),
         planned("/tmp/Koobface", "Spyware"), planned("/tmp/TypeRecorder.txt", "Spyware"),
         planned("/Library/LaunchAgents/com.refog.agent.plist", "Refog Personal Monitor"),
         planned("/tmp/.mdworker", "Revir"),
         planned("/Library/LaunchAgents/com.refog.x.plist", "Refog Personal Monitor",
                 RemovalObstacle::ReadOnlyVolume)}};
    PlanSource source{[](const SpywareList& records, bool on) {
        for (const auto& record : records)
            record->isChecked = on;
    }};
};

TEST_F(PlanSourceTest, SetsWeakEvidenceApartHoweverItIsGrouped)
{
    EXPECT_THAT(shown(source, PlanSource::ByFolder),
                testing::Contains("Look twice: /Library/Preferences"));
    EXPECT_THAT(
        shown(source, PlanSource::ByRule),
        ElementsAre(
            "Refog Personal Monitor, part of a name in a folder where such programs settle",
            "- /Library/LaunchAgents/com.refog.agent.plist",
            "- /Library/LaunchAgents/com.refog.x.plist", "Revir, this exact place is on the list",
            "- /tmp/.mdworker",
            "Look twice: Okaz Installer, part of a name in a folder where such programs settle "
            "\"Okaz\"",
            "- /Library/Preferences/com.okaz.x",
            "Look twice: Spyware, a text anywhere in a path, which a deep scan alone looks for "
            "\"Koobface\"",
            "- /tmp/Koobface",
            "Look twice: Spyware, a text anywhere in a path, which a deep scan alone looks for "
            "\"TypeRecorder\"",
            "- /tmp/TypeRecorder.txt"));
}

TEST_F(PlanSourceTest, StartsWithWeakEvidenceUntickedAndKeepsItsTicksUntilTheyAreWanted)
{
    EXPECT_EQ(source.weakCount(), 3U);
    EXPECT_THAT(source.weakTicked(), ElementsAre());
    const RemovalPlan::Totals totals = source.totals();
    EXPECT_EQ(totals.rows, 3U);
    EXPECT_EQ(totals.entries, 2U);
    EXPECT_EQ(totals.bytes, 2 * 512);
    EXPECT_EQ(totals.hindered, 1U);

    source.tick({3}, true); // rows on weak evidence come last
    source.tick({0}, false);
    EXPECT_THAT(source.weakTicked(), ElementsAre(3));
    const auto selected = [&] {
        std::vector<bool> ticks;
        for (const PlannedRecord& row : plan.rows)
            ticks.push_back(row.record->isChecked);
        return ticks;
    };
    EXPECT_THAT(selected(), testing::Each(true)) << "a plan is cancelled";
    source.handOnTicks();
    EXPECT_THAT(selected(), ElementsAre(true, false, false, false, true, true));
}

} // namespace
} // namespace pryvane
