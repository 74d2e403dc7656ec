#include "privacy/PrivacyCleaning.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace pryvane {

namespace {

RemovalItem removalItem(const CleaningRow& row)
{
    return {row.location.url, {}, row.location.scope, row.location.kind};
}

/// Whether the path or one above it is in the set.
bool isCovered(std::string_view path, const std::set<std::string_view>& above)
{
    for (auto end = path.size(); end != path.npos && end > 0; end = path.rfind('/', end - 1)) {
        if (above.contains(path.substr(0, end)))
            return true;
    }
    return false;
}

/// Calls `told` with the locations of which no other takes all along, each once.
template <typename Each, typename LocationOf, typename Told>
void eachOnce(std::vector<const Each*> all, const LocationOf& locationOf, const Told& told)
{
    std::stable_sort(all.begin(), all.end(), [&](const Each* a, const Each* b) {
        return locationOf(*a).url.identity().size() < locationOf(*b).url.identity().size();
    });
    std::set<std::string_view> taken;
    for (const Each* each : all) {
        const std::string_view path = locationOf(*each).url.identity();
        if (isCovered(path, taken))
            continue;
        taken.insert(path);
        told(*each);
    }
}

/// What the locations of those items take.
template <typename Wanted>
std::int64_t bytesOf(std::span<const ToolGroup> groups, const Wanted& wanted)
{
    std::vector<const ToolLocation*> all;
    for (const ToolGroup& group : groups) {
        for (const ToolItem& item : group.List) {
            for (const ToolLocation& location : item.AllList) {
                if (wanted(item))
                    all.push_back(&location);
            }
        }
    }
    std::int64_t bytes = 0;
    eachOnce(
        std::move(all), [](const ToolLocation& each) -> const ToolLocation& { return each; },
        [&](const ToolLocation& location) { bytes += location.bytes; });
    return bytes;
}

} // namespace

CleaningPreview::Totals CleaningPreview::totals() const
{
    // A folder takes what lies below it along.
    std::vector<const CleaningRow*> going;
    for (const CleaningRow& row : rows) {
        if (row.willGo())
            going.push_back(&row);
    }
    Totals totals;
    eachOnce(
        std::move(going),
        [](const CleaningRow& row) -> const ToolLocation& { return row.location; },
        [&](const CleaningRow& row) {
            totals.entries += row.forecast.entries;
            totals.bytes += row.forecast.bytes;
        });
    return totals;
}

std::vector<std::string> CleaningPreview::openBrowsers() const
{
    std::vector<std::string> browsers;
    for (const CleaningRow& row : rows) {
        if (row.ticked && !row.blockedBy.empty() &&
            std::find(browsers.begin(), browsers.end(), row.blockedBy) == browsers.end())
            browsers.push_back(row.blockedBy);
    }
    return browsers;
}

std::vector<CleaningRow> selectedRows(std::span<const ToolGroup> groups)
{
    std::vector<CleaningRow> rows;
    std::unordered_set<std::string> seen;
    for (const ToolGroup& group : groups) {
        for (const ToolItem& item : group.List) {
            if (!item.isChecked || item.isHeader)
                continue;
            for (const ToolLocation& location : item.AllList) {
                // The same folder may go as a whole and by its contents; the whole is more.
                std::string key(location.scope == RemovalScope::ContentsOf ? "in " : "");
                if (seen.insert(key.append(location.url.identity())).second)
                    rows.push_back({group.Name, item.NameText, location, {}, {}, true});
            }
        }
    }
    return rows;
}

std::int64_t allBytes(std::span<const ToolGroup> groups)
{
    return bytesOf(groups, [](const ToolItem&) { return true; });
}

std::int64_t selectedBytes(std::span<const ToolGroup> groups)
{
    return bytesOf(groups, [](const ToolItem& item) { return item.isChecked; });
}

CleaningPreview previewCleaning(std::vector<CleaningRow> rows, std::span<const std::string> running,
                                Remover& remover, const StopFlag& stop)
{
    CleaningPreview preview;
    preview.rows = std::move(rows);
    std::vector<RemovalItem> items;
    for (CleaningRow& row : preview.rows) {
        items.push_back(removalItem(row));
        row.blockedBy.clear();
        if (!row.location.browser.empty() &&
            std::find(running.begin(), running.end(), row.location.browser) != running.end())
            row.blockedBy = row.location.browser;
    }
    remover.plan(items, stop, [&](std::size_t item, const RemovalForecast& forecast) {
        preview.rows[item].forecast = forecast;
    });
    return preview;
}

std::size_t countGoing(const CleaningPreview& preview)
{
    return static_cast<std::size_t>(std::ranges::count_if(preview.rows, &CleaningRow::willGo));
}

void removeGoing(const CleaningPreview& preview, Remover& remover, const StopFlag& stop,
                 const RemovalResults& told)
{
    std::vector<RemovalItem> items;
    for (const CleaningRow& row : preview.rows) {
        if (row.willGo())
            items.push_back(removalItem(row));
    }
    remover.remove(items, stop, told);
}

CleaningOutcome outcomeOf(const CleaningPreview& preview, std::span<const RemovalResult> results)
{
    CleaningOutcome outcome;
    std::vector<LeftOver> failed; // told behind what was not even tried
    auto result = results.begin();
    for (const CleaningRow& row : preview.rows) {
        if (row.willGo()) {
            outcome.entriesRemoved += result->entriesRemoved;
            outcome.bytesRemoved += result->bytesRemoved;
            if (result->outcome == RemovalOutcome::Failed)
                failed.push_back({row.item, row.location.url, result->reason()});
            ++result;
        } else if (row.ticked) {
            outcome.stayed.push_back({row.item, row.location.url,
                                      row.blockedBy + " is running; close it and try again"});
        }
    }
    std::ranges::move(failed, std::back_inserter(outcome.stayed));
    return outcome;
}

CleaningOutcome cleanSelected(const CleaningPreview& preview, Remover& remover,
                              const StopFlag& stop)
{
    std::vector<RemovalResult> results(countGoing(preview));
    removeGoing(preview, remover, stop,
                [&](std::size_t item, const RemovalResult& result) { results[item] = result; });
    return outcomeOf(preview, results);
}

} // namespace pryvane
