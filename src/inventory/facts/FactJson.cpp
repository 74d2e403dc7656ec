#include "inventory/facts/FactJson.h"

#include "core/Escape.h"
#include "inventory/facts/FactTexts.h"

namespace pryvane {

namespace {

using Json = nlohmann::ordered_json;

[[nodiscard]] Json textOrNull(const std::string& text)
{
    return text.empty() ? Json() : Json(forJson(text));
}

[[nodiscard]] Json listOf(const std::vector<std::string>& texts)
{
    Json list = Json::array();
    for (const std::string& text : texts)
        list.push_back(forJson(text));
    return list;
}

[[nodiscard]] const char* placeText(PlaceKind place)
{
    constexpr std::array<const char*, 6> kTexts = {"not known",        "usual",  "hidden folder",
                                                   "temporary folder", "shared", "home"};
    return kTexts.at(static_cast<std::size_t>(place));
}

void addProgram(Json& row, const ProgramOnDisk& program)
{
    constexpr std::array<const char*, 3> kTexts = {"not known", "there", "missing"};
    row["path"] = textOrNull(program.path);
    row["whereabouts"] = kTexts.at(static_cast<std::size_t>(program.whereabouts));
    row["place"] = placeText(program.place);
}

void addOrigin(Json& row, const FactOrigin& origin)
{
    row["user"] = textOrNull(origin.user);
    row["source"] = textOrNull(origin.source);
}

[[nodiscard]] Json rowOf(const Permission& permission)
{
    // Not made by the first row[…]: the library does not survive a want of memory there.
    Json row = Json::object();
    row["group"] = words(groupOf(permission.service)).title;
    row["service"] = forJson(permission.service);
    row["program"] = forJson(permission.client);
    row["isPath"] = permission.clientIsPath;
    row["name"] = textOrNull(permission.name);
    row["target"] = textOrNull(permission.target);
    row["decision"] = decisionText(permission.decision);
    row["decidedBy"] = textOrNull(decidedByText(permission));
    row["reason"] = permission.reason ? Json(*permission.reason) : Json();
    row["when"] = permission.when ? Json(iso8601(*permission.when)) : Json();
    addProgram(row, permission.program);
    addOrigin(row, permission.origin);
    return row;
}

[[nodiscard]] Json rowOf(const StartUpItem& item)
{
    Json row = Json::object();
    row["group"] = words(item.kind).title;
    row["label"] = forJson(item.label);
    row["program"] = textOrNull(item.programText);
    row["arguments"] = listOf(item.arguments);
    row["when"] = listOf(item.when);
    row["runsAs"] = textOrNull(item.runsAs);
    row["state"] = onOffText(item.state);
    row["hidden"] = item.hidden;
    row["application"] = textOrNull(item.application);
    row["developer"] = textOrNull(item.developer);
    addProgram(row, item.program);
    addOrigin(row, item.origin);
    return row;
}

[[nodiscard]] Json rowOf(const RemoteFact& fact)
{
    Json row = Json::object();
    row["group"] = words(fact.kind).title;
    row["what"] = forJson(fact.what);
    row["state"] = fact.state ? Json(onOffText(*fact.state)) : Json();
    row["detail"] = textOrNull(fact.detail);
    addOrigin(row, fact.origin);
    return row;
}

template <typename Fact>
[[nodiscard]] Json rowsOf(const std::vector<Fact>& facts)
{
    Json rows = Json::array();
    for (const Fact& fact : facts)
        rows.push_back(rowOf(fact));
    return rows;
}

} // namespace

Json factsJson(const Facts& facts, FactKind kind)
{
    switch (kind) {
    case FactKind::Permissions:
        return rowsOf(facts.permissions);
    case FactKind::StartUp:
        return rowsOf(facts.startUp);
    case FactKind::RemoteAccess:
        break;
    }
    return rowsOf(facts.remoteAccess);
}

Json sourcesJson(const Facts& facts)
{
    Json list = Json::array();
    for (const SourceNote& note : facts.sources) {
        const std::string state = stateText(note.state);
        list.push_back({{"path", forJson(note.path)},
                        {"kind", words(note.kind).key},
                        {"state", state.empty() ? "read" : state},
                        {"reason", textOrNull(note.reason)}});
    }
    return list;
}

} // namespace pryvane
