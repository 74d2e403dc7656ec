#include "cli/InventoryFacts.h"

#include "core/Escape.h"
#include "inventory/facts/FactJson.h"
#include "inventory/facts/FactTable.h"

#include <algorithm>
#include <array>
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
