#include "privacy/PrivacyCleaning.h"

#include "core/Texts.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace pryvane {

void removeGoing(const CleaningPreview& preview, Remover& remover, const StopFlag& stop,
                 const RemovalResults& told)
{
    std::vector<RemovalItem> items;
    std::vector<std::size_t> rowOf;
    for (std::size_t row = 0; row < preview.rows.size(); ++row) {
        if (!preview.rows[row].willGo())
            continue;
        items.push_back(preview.rows[row].removalItem());
        rowOf.push_back(row);
    }
    remover.remove(items, stop, [&](std::size_t item, const RemovalResult& result) {
        told(rowOf[item], result);
    });
}

CleaningOutcome outcomeOf(const CleaningPreview& preview, std::span<const RemovalResult> results)
{
    CleaningOutcome outcome;
    std::vector<LeftOver> failed; // told behind what was not even tried
    for (std::size_t i = 0; i < preview.rows.size(); ++i) {
        const CleaningRow& row = preview.rows[i];
        if (!row.ticked)
            continue;
        auto& items = outcome.items;
        if (items.empty() || items.back().user != row.user || items.back().group != row.group ||
            items.back().item != row.item)
            items.push_back({row.user, row.kind, row.group, row.item, 0, 0, 0, 0, {}});
        CleanedItem& item = items.back();
        if (!row.willGo()) {
            ++item.stayed;
            outcome.stayed.push_back({row.item, row.location.url,
                                      row.blockedBy + " is running; close it and try again"});
            continue;
        }
        const RemovalResult& result = results[i];
        item.entries += result.entriesRemoved;
        item.bytes += result.bytesRemoved;
        if (result.outcome == RemovalOutcome::Failed) {
            ++item.stayed;
            failed.push_back({row.item, row.location.url, result.reason()});
        } else if (result.outcome == RemovalOutcome::Removed) {
            item.gone.push_back(row.location.url);
        } else {
            ++item.alreadyGone;
        }
        outcome.entriesRemoved += result.entriesRemoved;
        outcome.bytesRemoved += result.bytesRemoved;
    }
    std::ranges::move(failed, std::back_inserter(outcome.stayed));
    return outcome;
}

std::string cleanedText(const CleaningOutcome& outcome)
{
    if (outcome.stayed.empty())
        return outcome.entriesRemoved > 0 ? kCleanedText
                                          : "Nothing of the selected data was there any more.";
    std::string text = outcome.entriesRemoved > 0 ? "Not all of the selected data was cleared."
                                                  : "None of the selected data was cleared.";
    text += "\nCleared: " + countedText(outcome.entriesRemoved, "entry", "entries") + ", " +
            sizeText(outcome.bytesRemoved) + ".";
    text += "\nStayed: " + countedText(outcome.stayed.size(), "location", "locations") + ".";
    std::vector<std::pair<std::string_view, std::size_t>> reasons; // in the order of the first
    for (const LeftOver& left : outcome.stayed) {
        const auto known = std::ranges::find(reasons, std::string_view(left.reason),
                                             &decltype(reasons)::value_type::first);
        if (known == reasons.end())
            reasons.emplace_back(left.reason, 1);
        else
            ++known->second;
    }
    constexpr std::size_t kMostReasons = 5; // the list of what stayed has them all
    for (std::size_t i = 0; i < std::min(reasons.size(), kMostReasons); ++i)
        text.append("\n  ")
            .append(std::to_string(reasons[i].second))
            .append(": ")
            .append(reasons[i].first);
    return text;
}

CleaningOutcome cleanSelected(const CleaningPreview& preview, Remover& remover,
                              const StopFlag& stop)
{
    std::vector<RemovalResult> results(preview.rows.size());
    removeGoing(preview, remover, stop,
                [&](std::size_t row, const RemovalResult& result) { results[row] = result; });
    return outcomeOf(preview, results);
}

} // namespace pryvane
