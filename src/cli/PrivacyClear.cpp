#include "cli/PrivacyClear.h"

#include "cli/Console.h"
#include "cli/Host.h"
#include "cli/RemoveText.h"
#include "core/Escape.h"
#include "core/Result.h"
#include "core/Texts.h"
#include "privacy/PrivacyCatalogue.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <ostream>

namespace pryvane::cli {

namespace {

std::string noteOf(const CleaningRow& row)
{
    if (!row.blockedBy.empty())
        return row.blockedBy + " is running";
    if (!row.largest.empty() && row.forecast.obstacle == RemovalObstacle::None)
        return largestText(row);
    return obstacleText(row.forecast.obstacle, row.forecast.detail);
}

std::string previewText(const CleaningPreview& preview)
{
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Right, Align::Right, Align::Left});
    for (const CleaningRow& row : preview.rows) {
        table.addRow({forTerminal(row.group + "/" + row.item), std::to_string(row.forecast.entries),
                      sizeText(row.forecast.bytes),
                      plannedText(row.location.url, row.forecast, noteOf(row))});
    }
    return table.text("  ");
}

nlohmann::ordered_json locationJson(const FileURL& url)
{
    return {{"path", forJson(url.relativePath())}, {"url", url.urlText()}};
}

nlohmann::ordered_json previewJson(const CleaningPreview& preview)
{
    auto rows = nlohmann::ordered_json::array();
    for (const CleaningRow& row : preview.rows) {
        nlohmann::ordered_json one{{"user", forJson(row.user)},
                                   {"group", row.group},
                                   {"item", forJson(row.item)},
                                   {"dear", row.cost == Cost::Dear}};
        one.update(locationJson(row.location.url));
        const std::string& place = row.forecast.place;
        one.update({{"place", forJson(place.empty() ? row.location.url.absolutePath() : place)},
                    {"entries", row.forecast.entries},
                    {"bytes", row.forecast.bytes},
                    {"blockedBy", row.blockedBy},
                    {"note", forJson(noteOf(row))}});
        rows.push_back(std::move(one));
    }
    const auto totals = preview.totals();
    return {{"entries", totals.entries},
            {"bytes", totals.bytes},
            {"openBrowsers", preview.openBrowsers()},
            {"locations", std::move(rows)}};
}

void writeOutcome(const CleaningOutcome& outcome, bool json, const Console& console)
{
    if (!json) {
        console.out << (outcome.stayed.empty() ? cleanedText(outcome)
                                               : "Not all of the selected data was cleared.")
                    << "\nRemoved: " << amountText(outcome.entriesRemoved, outcome.bytesRemoved)
                    << "\n";
        for (const CleanedItem& item : outcome.items) {
            console.out << "  " << forTerminal(item.group + "/" + item.item) << ": "
                        << amountText(item.entries, item.bytes) << "\n";
        }
        for (const LeftOver& left : outcome.stayed) {
            console.out << "  stayed: " << forTerminal(left.url.relativePath()) << " ("
                        << forTerminal(left.reason) << ")\n";
        }
        return;
    }
    auto stayed = nlohmann::ordered_json::array();
    for (const LeftOver& left : outcome.stayed) {
        nlohmann::ordered_json one{{"item", forJson(left.item)}};
        one.update(locationJson(left.url));
        one["reason"] = forJson(left.reason);
        stayed.push_back(std::move(one));
    }
    auto items = nlohmann::ordered_json::array();
    for (const CleanedItem& item : outcome.items) {
        auto gone = nlohmann::ordered_json::array();
        for (const FileURL& url : item.gone)
            gone.push_back(locationJson(url));
        items.push_back({{"user", forJson(item.user)},
                         {"group", item.group},
                         {"item", forJson(item.item)},
                         {"entries", item.entries},
                         {"bytes", item.bytes},
                         {"stayed", item.stayed},
                         {"alreadyGone", item.alreadyGone},
                         {"gone", std::move(gone)}});
    }
    console.out << nlohmann::ordered_json{{"entriesRemoved", outcome.entriesRemoved},
                                          {"bytesRemoved", outcome.bytesRemoved},
                                          {"items", std::move(items)},
                                          {"stayed", std::move(stayed)}}
                       .dump(2)
                << "\n";
}

/// The items that a name may stand for.
struct Candidates {
    std::vector<ToolItem*> whole;    ///< by group and item
    std::vector<ToolItem*> alone;    ///< by the item's name only
    std::vector<std::string> groups; ///< of those
};

Candidates candidates(std::span<ToolGroup> groups, const std::string& name)
{
    // An item may be given as a terminal shows it.
    const auto is = [&name](const std::string& text) {
        return name == text || name == forTerminal(text);
    };
    Candidates found;
    for (ToolGroup& group : groups) {
        for (ToolItem& item : group.List) {
            if (item.isHeader)
                continue;
            if (is(group.Name + "/" + item.NameText) ||
                is(shownName(group) + "/" + item.NameText)) {
                found.whole.push_back(&item);
            } else if (is(item.NameText)) {
                found.alone.push_back(&item);
                if (found.groups.empty() || found.groups.back() != group.Name)
                    found.groups.push_back(group.Name);
            }
        }
    }
    return found;
}

/// What a name came to among one user's groups; an error where it could mean several things.
using Named = Result<bool>;

/// Ticks what of the named group is there and not dear.
Named tickGroup(std::span<ToolGroup> groups, const std::string& name)
{
    const auto group = std::ranges::find_if(groups, [&name](const ToolGroup& each) {
        return name == each.Name || name == shownName(each);
    });
    if (group == groups.end())
        return false;
    for (ToolItem& item : group->List)
        item.isChecked = item.isChecked || (!item.AllList.empty() && item.cost != Cost::Dear);
    return true;
}

/// Leaves the named item out.
Named untickItem(std::span<ToolGroup> groups, const std::string& name)
{
    const Candidates found = candidates(groups, name);
    for (ToolItem* item : found.whole.empty() ? found.alone : found.whole)
        item->isChecked = false;
    return !found.whole.empty() || !found.alone.empty();
}

/// Ticks the named item, with all of it that is dear.
Named tickItem(std::span<ToolGroup> groups, const std::string& name)
{
    const Candidates found = candidates(groups, name);
    if (found.whole.empty() && found.groups.size() > 1) {
        const std::string shown = forTerminal(name);
        std::string message = "several groups have an item \"" + shown + "\"; give one of ";
        for (std::size_t i = 0; i < found.groups.size(); ++i)
            message.append(i ? ", \"" : "\"").append(found.groups[i]).append("/" + shown + "\"");
        return Error{std::move(message)};
    }
    for (ToolItem* item : found.whole.empty() ? found.alone : found.whole)
        item->isChecked = item->isMeantWhole = true;
    return !found.whole.empty() || !found.alone.empty();
}

/// The groups of one user.
struct Owned {
    std::string user;
    std::vector<ToolGroup> groups;
};

/// Does with each name what is to be done with it, for every user. What one user has another need
/// not have, and then that is said; what nobody has is an error.
Result<Done> tickAll(std::vector<Owned>& all, const ClearArguments& arguments,
                     const Console& console)
{
    const struct {
        const std::vector<std::string>& names;
        Named (*tick)(std::span<ToolGroup>, const std::string&);
        const char* what;
        const char* why;
    } kinds[] = {{arguments.groups, tickGroup, "group", " on this volume"},
                 {arguments.items, tickItem, "item", " on this volume"},
                 {arguments.except, untickItem, "item", " to leave out"}};
    for (const auto& kind : kinds) {
        for (const std::string& name : kind.names) {
            std::vector<std::string> without;
            for (Owned& each : all) {
                const Named named = kind.tick(each.groups, name);
                if (!named)
                    return named.error();
                if (!*named)
                    without.push_back(each.user);
            }
            const std::string missing =
                std::string("no ") + kind.what + " \"" + forTerminal(name) + "\"";
            if (without.size() == all.size())
                return Error{"there is " + missing + kind.why +
                             "; pryvane-cli privacy list shows those there are"};
            for (const std::string& user : without)
                console.say(forTerminal(user) + " has " + missing);
        }
    }
    return Done{};
}

/// Says what the named groups hold that only goes by its own name.
void sayDear(std::span<const ToolGroup> groups, const ClearArguments& arguments,
             const Console& console)
{
    for (const ToolGroup& group : groups) {
        if (std::ranges::find(arguments.groups, group.Name) == arguments.groups.end() &&
            std::ranges::find(arguments.groups, shownName(group)) == arguments.groups.end())
            continue;
        for (const ToolItem& item : group.List) {
            const std::string name = forTerminal(group.Name + "/" + item.NameText);
            if (item.cost == Cost::Dear && !item.isChecked && !item.AllList.empty())
                console.say("left out, as it cannot be had back: " + name + " (--item clears it)");
            for (const ToolLocation& location : item.AllList) {
                if (location.isDear && item.isChecked && !item.isMeantWhole)
                    console.say("left out, as it cannot be had back: " +
                                forTerminal(location.url.relativePath()) + " (--item \"" + name +
                                "\" clears it)");
            }
        }
    }
}

void showPreview(const CleaningPreview& preview, const ClearArguments& arguments,
                 const Console& console)
{
    const auto totals = preview.totals();
    for (const std::string& browser : preview.openBrowsers())
        console.say(forTerminal(browser) + " is running and keeps its data open; close it first");
    if (arguments.format != "json")
        console.out << previewText(preview)
                    << (arguments.dryRun ? "Would remove: " : "To be removed: ")
                    << amountText(totals.entries, totals.bytes) << "\n";
    else if (arguments.dryRun)
        console.out << previewJson(preview).dump(2) << "\n";
}

} // namespace

int clearItems(CleanerHost& cleaner, std::span<const std::string> running, Remover& remover,
               const ClearArguments& arguments, const Console& console)
{
    std::vector<Owned> all;
    for (const std::string& user : cleaner.users())
        all.push_back(
            {user, PrivacyCatalogue(cleaner.services(), user, console.interrupted).groups()});
    if (all.empty())
        return console.fail("there is no home to clear");
    if (const auto ticked = tickAll(all, arguments, console); !ticked)
        return console.fail(ticked.error().message);
    std::vector<ToolGroup> groups;
    for (Owned& each : all)
        std::ranges::move(each.groups, std::back_inserter(groups));
    sayDear(groups, arguments, console);
    CleaningPreview preview;
    withProgress(
        console, [] { return std::string("looking"); },
        [&] {
            auto rows = selectedRows(groups);
            std::erase_if(rows, [](const CleaningRow& row) { return !row.ticked; });
            preview = previewCleaning(std::move(rows), running, cleaner.services().disk, remover,
                                      console.interrupted);
        });
    if (console.interrupted.requested()) {
        console.say("interrupted; nothing was removed");
        return kInterrupted;
    }
    showPreview(preview, arguments, console);
    if (arguments.dryRun)
        return kDone;
    const auto totals = preview.totals();
    if (totals.entries > 0 &&
        !console.confirmed("Remove " + amountText(totals.entries, totals.bytes) + " of " +
                               namesText(cleaner.users()) + " for good?",
                           arguments.yes))
        return kFailed;
    CleaningOutcome outcome;
    withProgress(
        console, [] { return std::string("removing"); },
        [&] { outcome = cleanSelected(preview, remover, console.interrupted); });
    writeOutcome(outcome, arguments.format == "json", console);
    if (console.interrupted.requested())
        return kInterrupted;
    return outcome.stayed.empty() ? kDone : kFindings;
}

} // namespace pryvane::cli
