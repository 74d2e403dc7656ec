#include "privacy/CleaningPreview.h"

#include "core/Texts.h"
#include "inventory/AdwareScan.h"
#include "privacy/DirectWay.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <set>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace pryvane {

namespace {

// Beyond these a folder stays one row: its parts would be more than anybody looks through.
constexpr std::size_t kMostParts = 1000; // of one folder
constexpr std::size_t kMostPartsInAll = 5000;
// What such a folder's largest are is found out up to so many, and so many are named.
constexpr std::size_t kMostPartsMeasured = 20'000;
constexpr std::size_t kMostPartsNamed = 5;

/// Whether one of the paths is the other or lies above it, whatever their letter case.
bool overlap(std::string_view a, std::string_view b)
{
    std::string one = lowerAscii(a), other = lowerAscii(b);
    for (std::string* path : {&one, &other}) {
        if (!path->ends_with('/'))
            *path += '/';
    }
    return one.starts_with(other) || other.starts_with(one);
}

/// The running application that keeps open what the row takes; empty: none.
std::string holderOf(const CleaningRow& row, std::span<const std::string> running)
{
    const auto runs = [&](std::string_view name) {
        return !name.empty() && std::ranges::find(running, name) != running.end();
    };
    if (runs(row.location.browser))
        return std::string(row.location.browser);
    const HomeFolder home(row.user);
    const std::string path = row.location.url.absolutePath();
    for (const tables::PrivacyGroup& group : tables::kPrivacyGroups) {
        if (runs(group.browser) &&
            std::ranges::any_of(tables::kBrowserPlaces, [&](const tables::BrowserPlace& place) {
                return place.browser == group.kind &&
                       overlap(path, home.at(place.path).absolutePath());
            }))
            return std::string(group.browser);
    }
    return {};
}

/// What of a folder's entries takes most, the largest first.
std::vector<CleaningRow::Part> largestOf(const std::string& folder,
                                         const std::vector<FolderEntry>& entries, FileSystem& disk,
                                         const StopFlag& stop)
{
    std::vector<CleaningRow::Part> parts;
    if (entries.size() > kMostPartsMeasured)
        return parts;
    for (const FolderEntry& entry : entries) {
        if (stop.requested())
            return {};
        const auto url = FileURL::fileURLWithPath(joinedPath(folder, entry.name));
        parts.push_back({entry.name, disk.allocatedSize(url)});
    }
    const auto end =
        parts.begin() + static_cast<std::ptrdiff_t>(std::min(parts.size(), kMostPartsNamed));
    std::ranges::partial_sort(parts, end, std::greater<>(), &CleaningRow::Part::bytes);
    parts.erase(end, parts.end());
    return parts;
}

/// Puts in place of a folder that is taken by its contents what it holds.
std::vector<CleaningRow> inParts(std::vector<CleaningRow> rows, FileSystem& disk,
                                 const StopFlag& stop)
{
    DirectWay way(disk);
    std::vector<CleaningRow> all;
    std::size_t parts = 0;
    for (CleaningRow& row : rows) {
        FolderListing listing;
        if (row.location.scope == RemovalScope::ContentsOf && !stop.requested())
            listing = way.list(row.location.url);
        const std::size_t count = listing.entries.size();
        if (listing.status != ListStatus::Listed || count == 0 || count > kMostParts ||
            parts + count > kMostPartsInAll) {
            if (count > 0)
                row.largest =
                    largestOf(row.location.url.absolutePath(), listing.entries, disk, stop);
            all.push_back(std::move(row));
            continue;
        }
        parts += count;
        const std::string folder = row.location.url.absolutePath();
        for (const FolderEntry& entry : listing.entries) {
            CleaningRow part = row;
            part.isPart = true;
            part.location.scope = RemovalScope::Item;
            part.location.url = FileURL::fileURLWithPath(joinedPath(folder, entry.name));
            part.location.kind = way.kind(part.location.url);
            part.location.bytes = 0;
            all.push_back(std::move(part));
        }
    }
    return all;
}

/// The parts of each folder, the largest first.
void sortParts(std::vector<CleaningRow>& rows)
{
    const auto folderOf = [](const CleaningRow& row) {
        const std::string path = row.location.url.absolutePath();
        return path.substr(0, path.rfind('/'));
    };
    for (auto first = rows.begin(); first != rows.end();) {
        auto last = std::next(first);
        if (first->isPart) {
            const std::string folder = folderOf(*first);
            last = std::find_if(last, rows.end(), [&](const CleaningRow& row) {
                return !row.isPart || row.item != first->item || folderOf(row) != folder;
            });
            std::stable_sort(first, last, [](const CleaningRow& a, const CleaningRow& b) {
                return a.forecast.bytes > b.forecast.bytes;
            });
        }
        first = last;
    }
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

/// What of an item is dear although the item is not stands as one of its own.
bool isOfOneItem(const CleaningRow& a, const CleaningRow& b)
{
    return a.user == b.user && a.group == b.group && a.item == b.item && a.cost == b.cost;
}

/// What the wanted rows take. A folder takes what lies below it along.
template <typename Wanted>
CleaningPreview::Totals totalsOf(std::span<const CleaningRow> rows, const Wanted& wanted)
{
    std::vector<const CleaningRow*> counted;
    for (const CleaningRow& row : rows) {
        if (wanted(row))
            counted.push_back(&row);
    }
    CleaningPreview::Totals totals;
    eachOnce(
        std::move(counted),
        [](const CleaningRow& row) -> const ToolLocation& { return row.location; },
        [&](const CleaningRow& row) {
            totals.entries += row.forecast.entries;
            totals.bytes += row.forecast.bytes;
        });
    return totals;
}

/// What the locations of those items take.
template <typename Wanted>
std::int64_t bytesOf(std::span<const ToolGroup> groups, const Wanted& wanted)
{
    std::vector<const ToolLocation*> all;
    for (const ToolGroup& group : groups) {
        for (const ToolItem& item : group.List) {
            for (const ToolLocation& location : item.AllList) {
                if (wanted(item, location))
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

RemovalItem CleaningRow::removalItem() const
{
    RemovalItem taken{location.url, {}, location.scope, location.kind};
    taken.purpose = group + "/" + item;
    return taken;
}

CleaningPreview::Totals CleaningPreview::totals() const
{
    return totalsOf(rows, [](const CleaningRow& row) { return row.willGo(); });
}

std::vector<CleaningPreview::Item> CleaningPreview::items() const
{
    std::vector<Item> items;
    for (std::size_t first = 0, last = 0; first < rows.size(); first = last) {
        Item item;
        item.first = first;
        for (; last < rows.size() && isOfOneItem(rows[first], rows[last]); ++last)
            item.ticked = item.ticked || rows[last].ticked;
        item.count = last - first;
        const ToolItem named = getDicForList({}, rows[first].item, rows[first].isExtension);
        item.meaning = rows[first].cost == named.cost ? meaningOf(named) : meaningOfDearLocations();
        item.totals = totalsOf(std::span(rows).subspan(first, item.count),
                               [](const CleaningRow&) { return true; });
        items.push_back(item);
    }
    return items;
}

void CleaningPreview::leaveDearOut()
{
    for (CleaningRow& row : rows)
        row.ticked = row.ticked && row.cost != Cost::Dear;
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

namespace {

CleaningRow rowOf(const ToolGroup& group, const ToolItem& item, const ToolLocation& location)
{
    return {.user = group.user,
            .kind = group.kind,
            .group = group.Name,
            .item = item.NameText,
            .cost = location.isDear ? Cost::Dear : item.cost,
            .isExtension = item.isExt,
            .location = location,
            .forecast = {},
            .blockedBy = {},
            .ticked = !location.isDear || item.isMeantWhole};
}

} // namespace

std::vector<CleaningRow> selectedRows(std::span<const ToolGroup> groups)
{
    std::vector<CleaningRow> rows;
    std::unordered_set<std::string> seen;
    for (const ToolGroup& group : groups) {
        for (const ToolItem& item : group.List) {
            if (!item.isChecked || item.isHeader)
                continue;
            for (const bool isDear : {false, true}) {
                for (const ToolLocation& location : item.AllList) {
                    // The same folder may go as a whole and by its contents; the whole is more.
                    std::string key(location.scope == RemovalScope::ContentsOf ? "in " : "");
                    if (location.isDear == isDear &&
                        seen.insert(key.append(location.url.identity())).second)
                        rows.push_back(rowOf(group, item, location));
                }
            }
        }
    }
    return rows;
}

std::int64_t allBytes(std::span<const ToolGroup> groups)
{
    return bytesOf(groups, [](const ToolItem&, const ToolLocation&) { return true; });
}

std::int64_t selectedBytes(std::span<const ToolGroup> groups)
{
    return bytesOf(groups, [](const ToolItem& item, const ToolLocation& location) {
        return item.isChecked && (!location.isDear || item.isMeantWhole);
    });
}

std::string largestText(const CleaningRow& row)
{
    std::string text;
    for (const CleaningRow::Part& part : row.largest)
        text += (text.empty() ? "largest: " : ", ") + part.name + " " + sizeText(part.bytes);
    return text;
}

CleaningPreview previewCleaning(std::vector<CleaningRow> rows, std::span<const std::string> running,
                                FileSystem& disk, Remover& remover, const StopFlag& stop)
{
    CleaningPreview preview;
    preview.rows = inParts(std::move(rows), disk, stop);
    std::vector<RemovalItem> items;
    items.reserve(preview.rows.size());
    for (const CleaningRow& row : preview.rows)
        items.push_back(row.removalItem());
    remover.plan(items, stop, [&](std::size_t item, const RemovalForecast& forecast) {
        preview.rows[item].forecast = forecast;
    });
    sortParts(preview.rows);
    blockOpen(preview, running);
    return preview;
}

void blockOpen(CleaningPreview& preview, std::span<const std::string> running)
{
    for (CleaningRow& row : preview.rows)
        row.blockedBy = holderOf(row, running);
}

} // namespace pryvane
