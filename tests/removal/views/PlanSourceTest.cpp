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
    PlannedRecord row{record, flaggedBy({path, "al", {}, threat}), {}};
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
        const QModelIndex index = model.index(row, PlanSource::Location);
        const auto text = index.data().toString().toStdString();
        lines.push_back(model.isHeading(index) ? text : "- " + text);
    }
    return lines;
}

TEST(PlanSource, SetsWeakEvidenceApartHoweverItIsGrouped)
{
    RemovalPlan plan;
    plan.rows = {planned("/tmp/Koobface", "Spyware"),
                 planned("/Library/LaunchAgents/com.refog.agent.plist", "Refog Personal Monitor"),
                 planned("/tmp/.mdworker", "Revir"),
                 planned("/Library/LaunchAgents/com.refog.x.plist", "Refog Personal Monitor",
                         RemovalObstacle::ReadOnlyVolume)};
    PlanSource source([](const SpywareList& records, bool on) {
        for (const auto& record : records)
            record->isChecked = on;
    });
    source.setPlan(plan);
    EXPECT_THAT(shown(source, PlanSource::ByFolder),
                ElementsAre("/Library/LaunchAgents",
                            "- /Library/LaunchAgents/com.refog.agent.plist",
                            "- /Library/LaunchAgents/com.refog.x.plist", "/tmp", "- /tmp/.mdworker",
                            "Look twice: /tmp", "- /tmp/Koobface"));
    EXPECT_THAT(shown(source, PlanSource::ByRule),
                ElementsAre("Refog Personal Monitor, name touching a dot in a default location",
                            "- /Library/LaunchAgents/com.refog.agent.plist",
                            "- /Library/LaunchAgents/com.refog.x.plist", "Revir, exact path",
                            "- /tmp/.mdworker", testing::StartsWith("Look twice: Spyware, "),
                            "- /tmp/Koobface"));

    source.tick(source.weakTicked(), false);
    EXPECT_TRUE(source.weakTicked().empty());
    const RemovalPlan::Totals totals = source.totals();
    EXPECT_EQ(totals.rows, 3U);
    EXPECT_EQ(totals.entries, 2U);
    EXPECT_EQ(totals.bytes, 2 * 512);
    EXPECT_EQ(totals.hindered, 1U);
}

} // namespace
} // namespace pryvane
