#include "cli/InventoryFacts.h"

#include "core/Escape.h"
#include "inventory/facts/FactJson.h"
#include "inventory/facts/FactTable.h"

#include <algorithm>
#include <array>
#include <optional>
#include <ostream>

namespace pryvane::cli {

namespace {

constexpr std::array kAllKinds = {FactKind::Permissions, FactKind::StartUp, FactKind::RemoteAccess};

[[nodiscard]] bool isWanted(const FactKinds& kinds, FactKind kind)
{
    return kind == FactKind::Permissions ? kinds.permissions
           : kind == FactKind::StartUp   ? kinds.startUp
                                         : kinds.remoteAccess;
}

} // namespace

std::vector<std::string> factKindNames()
{
    std::vector<std::string> names;
    names.reserve(std::size(kAllKinds));
    for (const FactKind kind : kAllKinds)
        names.emplace_back(words(kind).option);
    return names;
}

FactKinds factKindsOf(const std::vector<std::string>& kinds)
{
    if (kinds.empty())
        return FactKinds::all();
    const auto has = [&](FactKind kind) {
        return std::find(kinds.begin(), kinds.end(), words(kind).option) != kinds.end();
    };
    return {has(FactKind::Permissions), has(FactKind::StartUp), has(FactKind::RemoteAccess)};
}

void addFactsJson(nlohmann::ordered_json& document, const Facts& facts, const FactKinds& kinds)
{
    if (!kinds.any())
        return;
    for (const FactKind kind : kAllKinds)
        if (isWanted(kinds, kind))
            document[words(kind).key] = factsJson(facts, kind);
    document["factSources"] = sourcesJson(facts);
}

void printFacts(const Console& console, const Facts& facts, const FactKinds& kinds)
{
    for (const FactKind kind : kAllKinds) {
        if (!isWanted(kinds, kind))
            continue;
        const FactTable table = factTable(facts, kind);
        console.out << words(kind).title << ": " << table.rows.size() << "\n" << factsText(table);
    }
}

bool sayUnreadSources(const Console& console, const Facts& facts)
{
    bool whole = facts.whole;
    if (!facts.whole)
        console.say("the lists of facts are not whole: this disk holds more than any Mac's, and "
                    "what goes beyond was left out");
    for (const SourceNote& note : facts.sources) {
        if (note.state == SourceNote::State::Read)
            continue;
        whole = false;
        console.say(std::string(stateText(note.state)) + ": " + forTerminal(note.path) + ": " +
                    forTerminal(note.reason));
    }
    return whole;
}

ReportAppendix factsAppendix(FileSystem& disk, const UserChoice& whose, const StopFlag& stop)
{
    constexpr std::size_t kMostRows = 10'000; // of one list on a page
    const Facts facts = gatherFacts(disk, factHomes(disk, whose), FactKinds::all(), stop);
    ReportAppendix appendix;
    appendix.title = "What this disk says of itself";
    appendix.introduction =
        "Facts as the disk's own files had them when this was written. They are no findings: "
        "nothing here is judged.";
    for (const FactKind kind : kAllKinds) {
        const FactTable table = factTable(facts, kind);
        ReportAppendix::List list;
        list.title = words(kind).title;
        list.columns.assign(table.columns.begin(), table.columns.end());
        std::optional<std::size_t> group;
        for (std::size_t i = 0; i < std::min(table.rows.size(), kMostRows); ++i) {
            const FactRow& row = table.rows[i];
            if (group != row.group) {
                group = row.group;
                const GroupWords& about = table.groups[row.group];
                list.groups.push_back({about.title, about.meaning, {}});
            }
            list.groups.back().rows.push_back({row.cells});
        }
        if (table.rows.size() > kMostRows)
            appendix.missing.push_back(list.title + ": " +
                                       std::to_string(table.rows.size() - kMostRows) +
                                       " more; pryvane-cli inventory lists all");
        appendix.lists.push_back(std::move(list));
    }
    for (const SourceNote& note : facts.sources)
        if (note.state != SourceNote::State::Read)
            appendix.missing.push_back(note.path + ": " + stateText(note.state) + ", " +
                                       note.reason);
    if (!facts.whole)
        appendix.missing.emplace_back("This disk holds more than any Mac's: not all is listed.");
    auto document = nlohmann::ordered_json::object();
    addFactsJson(document, facts, FactKinds::all());
    appendix.json = document.dump();
    return appendix;
}

void printAppendix(const Console& console, const ReportAppendix& appendix)
{
    console.out << "\n" << appendix.title << "\n" << appendix.introduction << "\n";
    for (const ReportAppendix::List& list : appendix.lists) {
        console.out << "\n" << list.title << "\n";
        for (const ReportAppendix::Group& group : list.groups) {
            console.out << "  " << group.title << "\n";
            for (const ReportAppendix::Row& row : group.rows) {
                console.out << "    " << forTerminal(row.cells.front()) << "\n";
                for (const std::string& detail : detailsOf(list, row))
                    console.out << "      " << forTerminal(detail) << "\n";
            }
        }
    }
    for (const std::string& missing : appendix.missing)
        console.say("the facts are not whole: " + forTerminal(missing));
}

std::string factSourcesText()
{
    std::string text;
    for (const FactKind kind : kAllKinds) {
        text += std::string("\nRead for ") + words(kind).option + ":\n";
        for (const FactSource& source : factSources())
            if (source.kind == kind)
                text += std::string("  ") + source.place + " (" + source.systems + ")\n";
    }
    return text;
}

} // namespace pryvane::cli
