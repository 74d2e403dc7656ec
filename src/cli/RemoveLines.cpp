#include "cli/RemoveLines.h"

#include "cli/LinesHead.h"
#include "cli/RemoveText.h"
#include "reports/JsonPieces.h"

#include <algorithm>

namespace pryvane::cli {

namespace {

Json lineOf(const char* type, std::size_t number, const Spyware& record)
{
    Json line = {{"type", type}, {"item", number}, {"family", forJson(record.infections)}};
    addLocation(line, record.url);
    return line;
}

} // namespace

void writeRemovalHead(const TextSink& sink, Host& host, const SpywareScanReport& report,
                      bool dryRun)
{
    Json head = headOf("remove", host, report.labels);
    head["report"] = forJson(report.reportId);
    head["dryRun"] = dryRun;
    writeLine(sink, head);
}

void writePlanLines(const TextSink& sink, const RemovalPlan& plan,
                    std::span<const std::size_t> numbers)
{
    for (std::size_t i = 0; i < plan.rows.size(); ++i) {
        const PlannedRecord& row = plan.rows[i];
        Json line = lineOf("planned", numbers[i], *row.record);
        line["evidence"] = evidenceText(row.flaggedBy.evidence);
        line["weak"] = isWeak(row.flaggedBy.evidence);
        line["kind"] = kindWord(row.forecast.kind);
        line["entries"] = row.forecast.entries;
        line["size"] = row.forecast.bytes;
        line["whole"] = row.forecast.countedWhole;
        line["stays"] = textOrNull(obstacleText(row.forecast.obstacle, row.forecast.detail));
        writeLine(sink, line);
    }
}

void writeOutcomeLines(const TextSink& sink, const SpywareList& records,
                       std::span<const RemovalResult> results, std::span<const std::size_t> numbers)
{
    for (std::size_t i = 0; i < records.size(); ++i) {
        Json line = lineOf("outcome", numbers[i], *records[i]);
        line["outcome"] = outcomeWord(results[i].outcome);
        line["entries"] = results[i].entriesRemoved;
        line["size"] = results[i].bytesRemoved;
        line["note"] = textOrNull(results[i].note());
        writeLine(sink, line);
    }
}

void writeRemovalEnd(const TextSink& sink, std::span<const RemovalResult> results, std::size_t left,
                     Date end)
{
    const auto count = [&](RemovalOutcome outcome) {
        return std::ranges::count(results, outcome, &RemovalResult::outcome);
    };
    writeLine(sink, {{"type", "end"},
                     {"removed", count(RemovalOutcome::Removed)},
                     {"gone", count(RemovalOutcome::AlreadyGone)},
                     {"failed", count(RemovalOutcome::Failed)},
                     {"left", left},
                     {"end", iso8601(end)}});
}

} // namespace pryvane::cli
