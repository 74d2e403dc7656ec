#include "cli/RemoveText.h"

#include "cli/Console.h"
#include "core/Escape.h"
#include "core/Texts.h"

#include <algorithm>

namespace pryvane::cli {

namespace {

using Align = TextTable::Align;

} // namespace

const char* outcomeWord(RemovalOutcome outcome)
{
    switch (outcome) {
    case RemovalOutcome::Removed:
        return "removed";
    case RemovalOutcome::AlreadyGone:
        return "gone";
    case RemovalOutcome::Failed:
        break;
    }
    return "failed";
}

std::string amountText(std::uint64_t entries, std::int64_t bytes)
{
    return countedText(entries, "entry", "entries") + ", " + sizeText(bytes);
}

std::string withNote(const std::string& location, const std::string& note)
{
    return forTerminal(location) + (note.empty() ? "" : "  (" + forTerminal(note) + ")");
}

std::string plannedText(const FileURL& url, const RemovalForecast& forecast,
                        const std::string& obstacle)
{
    return withNote(plannedLocation(url, forecast), obstacle.empty() ? "" : "stays: " + obstacle);
}

std::string planText(const RemovalPlan& plan, std::span<const std::size_t> numbers)
{
    TextTable table({Align::Right, Align::Left, Align::Right, Align::Right, Align::Left,
                     Align::Left, Align::Left});
    table.addRow({"#", "Kind", "Entries", "Size", "Threat", "Evidence", "Location"});
    for (std::size_t i = 0; i < plan.rows.size(); ++i) {
        const PlannedRecord& row = plan.rows[i];
        const RemovalForecast& forecast = row.forecast;
        const char* more = forecast.countedWhole ? "" : "+";
        table.addRow({std::to_string(numbers[i]), kindWord(forecast.kind),
                      std::to_string(forecast.entries) + more, sizeText(forecast.bytes) + more,
                      forTerminal(row.record->infections), forTerminal(evidenceText(row.flaggedBy)),
                      plannedText(row.record->url, forecast,
                                  obstacleText(forecast.obstacle, forecast.detail))});
    }
    return table.text("  ");
}

std::string planTotalText(const RemovalPlan& plan)
{
    const auto totals = plan.totals();
    const std::size_t going = plan.rows.size() - totals.gone - totals.hindered;
    std::string text = countedText(going, "finding", "findings") + " with " +
                       (totals.countedWhole ? "" : "at least ") +
                       amountText(totals.entries, totals.bytes);
    if (totals.gone > 0)
        text += "; " + std::to_string(totals.gone) + (totals.gone == 1 ? " is" : " are") +
                " gone already";
    if (totals.hindered > 0)
        text +=
            "; " + std::to_string(totals.hindered) + (totals.hindered == 1 ? " stays" : " stay");
    return text;
}

std::string outcomeText(const SpywareList& records, std::span<const RemovalResult> results,
                        std::span<const std::size_t> numbers)
{
    TextTable table({Align::Right, Align::Left, Align::Right, Align::Right, Align::Left});
    table.addRow({"#", "Outcome", "Entries", "Size", "Location"});
    std::size_t counts[3] = {};
    std::uint64_t entries = 0;
    std::int64_t bytes = 0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const RemovalResult& result = results[i];
        ++counts[static_cast<std::size_t>(result.outcome)];
        entries += result.entriesRemoved;
        bytes += result.bytesRemoved;
        table.addRow({std::to_string(numbers[i]), outcomeWord(result.outcome),
                      std::to_string(result.entriesRemoved), sizeText(result.bytesRemoved),
                      withNote(records[i]->url.relativePath(), result.note())});
    }
    const auto of = [&](RemovalOutcome outcome) {
        return counts[static_cast<std::size_t>(outcome)];
    };
    const std::size_t gone = of(RemovalOutcome::AlreadyGone);
    const std::size_t failed = of(RemovalOutcome::Failed);
    std::string text = table.text("  ") + "Removed: " +
                       countedText(of(RemovalOutcome::Removed), "finding", "findings") + ", " +
                       amountText(entries, bytes) + " in all";
    if (gone > 0)
        text += "; " + std::to_string(gone) + (gone == 1 ? " was" : " were") + " gone already";
    if (failed > 0)
        text += "; " + std::to_string(failed) + " failed";
    return text + "\n";
}

} // namespace pryvane::cli
