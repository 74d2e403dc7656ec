#include "cleaner/PrivacyCleaning.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace pryvane {

namespace {

std::vector<RemovalItem> removalItems(std::span<const CleaningRow* const> rows)
{
    std::vector<RemovalItem> items;
    items.reserve(rows.size());
    for (const CleaningRow* row : rows)
        items.push_back({row->location.url, row->location.seen, row->location.scope});
    return items;
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

} // namespace

CleaningPreview::Totals CleaningPreview::totals() const
{
    // A location is taken once, and a folder takes what lies below it along.
    std::set<std::string_view> going;
    std::vector<const CleaningRow*> order;
    for (const CleaningRow& row : rows) {
        if (row.willGo())
            order.push_back(&row);
    }
    std::stable_sort(order.begin(), order.end(), [](const CleaningRow* a, const CleaningRow* b) {
        return a->location.url.identity().size() < b->location.url.identity().size();
    });
    Totals totals;
    for (const CleaningRow* row : order) {
        const std::string_view path = row->location.url.identity();
        if (isCovered(path, going))
            continue;
        going.insert(path);
        totals.entries += row->forecast.entries;
        totals.bytes += row->forecast.bytes;
    }
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

std::int64_t selectedBytes(std::span<const ToolGroup> groups)
{
    std::int64_t bytes = 0;
    for (const CleaningRow& row : selectedRows(groups))
        bytes += row.location.bytes;
    return bytes;
}

CleaningPreview previewCleaning(std::vector<CleaningRow> rows, std::span<const std::string> running,
                                Remover& remover, const StopFlag& stop)
{
    CleaningPreview preview;
    preview.rows = std::move(rows);
    std::vector<const CleaningRow*> all;
    for (CleaningRow& row : preview.rows) {
        all.push_back(&row);
        row.blockedBy.clear();
        if (!row.location.browser.empty() &&
            std::find(running.begin(), running.end(), row.location.browser) != running.end())
            row.blockedBy = row.location.browser;
    }
    remover.plan(removalItems(all), stop, [&](std::size_t item, const RemovalForecast& forecast) {
        preview.rows[item].forecast = forecast;
    });
    return preview;
}

CleaningOutcome cleanSelected(const CleaningPreview& preview, Remover& remover,
                              const StopFlag& stop)
{
    CleaningOutcome outcome;
    std::vector<const CleaningRow*> going;
    for (const CleaningRow& row : preview.rows) {
        if (row.willGo())
            going.push_back(&row);
        else if (row.ticked)
            outcome.stayed.push_back({row.item, row.location.url,
                                      row.blockedBy + " is running; close it and try again"});
    }
    remover.remove(removalItems(going), stop, [&](std::size_t item, const RemovalResult& result) {
        outcome.entriesRemoved += result.entriesRemoved;
        outcome.bytesRemoved += result.bytesRemoved;
        if (result.outcome == RemovalOutcome::Failed)
            outcome.stayed.push_back(
                {going[item]->item, going[item]->location.url, result.reason()});
    });
    return outcome;
}

} // namespace pryvane
