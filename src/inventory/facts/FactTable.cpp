#include "inventory/facts/FactTable.h"

#include "core/Escape.h"

#include <algorithm>

namespace pryvane {

namespace {

[[nodiscard]] std::string joined(const std::vector<std::string>& parts, const char* between)
{
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : between) + part;
    return text;
}

[[nodiscard]] std::string dateText(const std::optional<Date>& when)
{
    return when ? localDateText(*when) : std::string();
}

[[nodiscard]] FactRow rowOf(const Permission& permission)
{
    FactRow row;
    row.group = static_cast<std::size_t>(groupOf(permission.service));
    std::string what = serviceText(permission.service);
    if (!permission.target.empty())
        what += ": " + permission.target;
    row.cells = {permission.name.empty() ? permission.client : permission.name,
                 decisionText(permission.decision),
                 std::move(what),
                 decidedByText(permission),
                 dateText(permission.when),
                 whoseText(permission.origin.user),
                 whereaboutsText(permission.program),
                 permission.program.path.empty() ? permission.client : permission.program.path,
                 permission.origin.source};
    row.whereabouts = permission.program.whereabouts;
    row.user = permission.origin.user;
    row.path = permission.program.path.empty() ? permission.origin.source : permission.program.path;
    row.isDenied = permission.decision == Decision::Denied;
    return row;
}

/// Nothing is said where nothing is switched, as with a hook.
[[nodiscard]] std::string stateOf(const StartUpItem& item)
{
    const bool isSwitched =
        item.kind == StartUpKind::LaunchAgent || item.kind == StartUpKind::LaunchDaemon ||
        item.kind == StartUpKind::BackgroundItem || item.kind == StartUpKind::Extension;
    return isSwitched || item.state != OnOff::NotKnown ? onOffText(item.state) : "";
}

[[nodiscard]] FactRow rowOf(const StartUpItem& item)
{
    FactRow row;
    row.group = static_cast<std::size_t>(item.kind);
    std::string program = item.program.path.empty() ? item.programText : item.program.path;
    if (!item.arguments.empty())
        program += " " + joined(item.arguments, " ");
    row.cells = {item.hidden ? item.label + " (hidden)" : item.label,
                 stateOf(item),
                 joined(item.when, ", "),
                 item.runsAs,
                 whoseText(item.origin.user),
                 whereaboutsText(item.program),
                 std::move(program),
                 item.application,
                 item.origin.source};
    row.whereabouts = item.program.whereabouts;
    row.user = item.origin.user;
    row.path = item.program.path.empty() ? item.origin.source : item.program.path;
    return row;
}

[[nodiscard]] FactRow rowOf(const RemoteFact& fact)
{
    FactRow row;
    row.group = static_cast<std::size_t>(fact.kind);
    row.cells = {fact.what, fact.state ? onOffText(*fact.state) : "", fact.detail,
                 whoseText(fact.origin.user), fact.origin.source};
    // The fact is what the source says, and that is there.
    row.whereabouts = fact.origin.source.empty() ? Whereabouts::NotKnown : Whereabouts::There;
    row.user = fact.origin.user;
    row.path = fact.origin.source;
    return row;
}

template <typename Group, std::size_t Count>
[[nodiscard]] std::vector<GroupWords> allWords()
{
    std::vector<GroupWords> all;
    for (std::size_t group = 0; group < Count; ++group)
        all.push_back(words(static_cast<Group>(group)));
    return all;
}

[[nodiscard]] std::string csvCell(const std::string& cell)
{
    std::string text = forJson(cell);
    if (!text.empty() && std::string_view("=+-@").find(text.front()) != std::string_view::npos)
        text.insert(text.begin(), '\'');
    if (text.find_first_of(",\"'\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

} // namespace

FactTable factTable(const Facts& facts, FactKind kind)
{
    FactTable table;
    table.kind = kind;
    const auto add = [&](const auto& list) {
        table.rows.reserve(list.size());
        for (const auto& fact : list)
            table.rows.push_back(rowOf(fact));
    };
    switch (kind) {
    case FactKind::Permissions:
        table.columns = {"Program", "Decision",    "What for",           "Decided by", "Since",
                         "Whose",   "On the disk", "Path or identifier", "Source"};
        table.groups = allWords<PermissionGroup, kPermissionGroups>();
        add(facts.permissions);
        break;
    case FactKind::StartUp:
        table.columns = {"Name",        "State",   "When",        "As",    "Whose",
                         "On the disk", "Program", "Application", "Source"};
        table.groups = allWords<StartUpKind, kStartUpKinds>();
        add(facts.startUp);
        break;
    case FactKind::RemoteAccess:
        table.columns = {"What", "State", "Detail", "Whose", "Source"};
        table.groups = allWords<RemoteKind, kRemoteKinds>();
        add(facts.remoteAccess);
        break;
    }
    std::stable_sort(table.rows.begin(), table.rows.end(), [](const FactRow& a, const FactRow& b) {
        return a.group != b.group ? a.group < b.group : a.isDenied < b.isDenied;
    });
    return table;
}

std::string factsCsv(const FactTable& table)
{
    std::string text = "Group";
    for (const char* column : table.columns)
        text += std::string(",") + column;
    text += "\r\n";
    for (const FactRow& row : table.rows) {
        text += csvCell(table.groups[row.group].title);
        for (const std::string& cell : row.cells)
            text += "," + csvCell(cell);
        text += "\r\n";
    }
    return text;
}

std::string factsText(const FactTable& table)
{
    std::string text;
    std::optional<std::size_t> group;
    for (const FactRow& row : table.rows) {
        if (group != row.group) {
            group = row.group;
            text += std::string("  ") + table.groups[row.group].title + "\n";
        }
        // The name, then what there is to say of it.
        text += "    " + forTerminal(row.cells[0]) + "\n";
        for (std::size_t i = 1; i < row.cells.size(); ++i)
            if (!row.cells[i].empty())
                text += std::string("      ") + table.columns[i] + ": " +
                        forTerminal(row.cells[i]) + "\n";
    }
    return text;
}

} // namespace pryvane
