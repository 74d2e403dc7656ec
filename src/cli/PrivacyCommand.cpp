#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "cli/LinesHead.h"
#include "cli/PrivacyClear.h"
#include "core/Escape.h"
#include "platform/Machine.h"
#include "platform/Remover.h"
#include "privacy/PrivacyScan.h"
#include "reports/JsonPieces.h"

#include <ostream>

namespace pryvane::cli {

namespace {

struct PrivacyArguments {
    VolumeArguments volume;
    ClearArguments clear;
    CaseLabels labels;
    std::string format;
};

using Arguments = std::shared_ptr<PrivacyArguments>;

nlohmann::ordered_json asJson(const ToolItem& item)
{
    auto paths = nlohmann::ordered_json::array();
    for (const ToolLocation& location : item.AllList)
        paths.push_back(forJson(location.url.relativePath()));
    return {{"NameText", forJson(item.NameText)}, {"bytes", item.bytes},
            {"sizeText", item.sizeText},          {"isExt", item.isExt},
            {"isHeader", item.isHeader},          {"AllList", std::move(paths)}};
}

nlohmann::ordered_json asJson(const std::vector<ToolGroup>& groups)
{
    auto list = nlohmann::ordered_json::array();
    for (const ToolGroup& group : groups) {
        auto items = nlohmann::ordered_json::array();
        for (const ToolItem& item : group.List)
            items.push_back(asJson(item));
        list.push_back({{"Name", group.Name},
                        {"Size", group.Size},
                        {"bytes", group.bytes},
                        {"isEnabled", group.isEnabled},
                        {"items", std::move(items)}});
    }
    return list;
}

/// The groups of one user.
struct UsersGroups {
    std::string user;
    std::vector<ToolGroup> groups = {};
};

/// Of one user the groups by themselves.
void writeJson(const std::vector<UsersGroups>& users, bool one, const Console& console)
{
    auto list = nlohmann::ordered_json::array();
    for (const UsersGroups& user : users)
        list.push_back({{"user", forJson(user.user)}, {"groups", asJson(user.groups)}});
    const auto document =
        one ? asJson(users.front().groups) : nlohmann::ordered_json{{"users", std::move(list)}};
    console.out << document.dump(2) << "\n";
}

/// One line an item.
void writeLines(const std::vector<UsersGroups>& users, const TextSink& sink)
{
    for (const UsersGroups& user : users)
        for (const ToolGroup& group : user.groups)
            for (const ToolItem& item : group.List) {
                auto paths = nlohmann::ordered_json::array();
                auto urls = nlohmann::ordered_json::array();
                for (const ToolLocation& location : item.AllList) {
                    paths.push_back(forJson(location.url.relativePath()));
                    urls.push_back(location.url.urlText());
                }
                writeLine(sink, {{"type", "data"},
                                 {"user", forJson(user.user)},
                                 {"group", shownName(group)},
                                 {"item", forJson(item.NameText)},
                                 {"size", item.bytes},
                                 {"header", item.isHeader},
                                 {"extension", item.isExt},
                                 {"dear", item.cost == Cost::Dear},
                                 {"whole", item.notSeen.empty()},
                                 {"paths", std::move(paths)},
                                 {"urls", std::move(urls)}});
            }
}

void writeText(const std::vector<ToolGroup>& groups, const Console& console)
{
    using Align = TextTable::Align;
    for (const ToolGroup& group : groups) {
        console.out << shownName(group) << "  " << group.Size << "\n";
        TextTable table({Align::Left, Align::Right, Align::Left});
        for (const ToolItem& item : group.List) {
            const std::string indent = group.isFromAdware && item.isExt ? "  " : "";
            const char* const note = !item.notSeen.empty()     ? "not all could be looked at"
                                     : item.cost == Cost::Dear ? "cannot be had back"
                                                               : "";
            table.addRow({indent + forTerminal(item.NameText), item.sizeText, note});
        }
        console.out << table.text("  ");
    }
}

int listPrivacy(const PrivacyArguments& arguments, const Console& console)
{
    auto host = Host::open(console, arguments.volume, StoreUse::None);
    if (!host)
        return console.fail(host.error().message);
    if (const auto holds = (*host)->mustHoldMac(); !holds)
        return console.fail(holds.error().message);
    CleanerHost cleaner(**host);
    cleaner.sayHomes(console);
    std::vector<UsersGroups> users;
    for (const std::string& user : (*host)->homes().users)
        users.push_back({user});
    const bool one = !(*host)->user().empty();
    PrivacyProgress progress;
    withProgress(
        console,
        [&] {
            return "measuring: " + std::to_string(progress.measured) + " of " +
                   std::to_string(progress.locations) + " locations, " +
                   std::to_string(progress.sizes.entries) + " entries";
        },
        [&] {
            for (UsersGroups& user : users)
                scanPrivacy(cleaner.services(), user.user, console.interrupted, progress,
                            [&](ToolGroup group) { user.groups.push_back(std::move(group)); });
        });
    if (console.interrupted.requested()) {
        console.say("interrupted; nothing was listed");
        return kInterrupted;
    }
    if (arguments.format == "jsonl") {
        writeLine(console.sink(), headOf("privacy", **host, arguments.labels));
        writeLines(users, console.sink());
        writeEndLine(console.sink(), progress.whole && progress.allSeen, (*host)->clock().now());
    } else if (arguments.format == "json")
        writeJson(users, one, console);
    else
        for (const UsersGroups& user : users) {
            if (!one)
                console.out << (&user == &users.front() ? "User " : "\nUser ")
                            << forTerminal(user.user) << "\n";
            writeText(user.groups, console);
        }
    if (!progress.allSeen)
        console.say("not every folder could be looked at, so there may be more than is listed");
    if (!progress.whole)
        console.say("the list is not whole: this disk names more profiles or folders than any Mac "
                    "has, or profiles in other places; what goes beyond was left out");
    return progress.whole ? kDone : kFindings;
}

int clearPrivacy(const PrivacyArguments& arguments, const Console& console)
{
    if (!canChange(arguments.volume, console))
        return kFailed;
    if (arguments.volume.allUsers)
        return console.fail("private data is cleared for users that are named: give --user NAME "
                            "for each");
    if (arguments.clear.items.empty() && arguments.clear.groups.empty())
        return console.fail("name what to clear: --item ITEM or --group GROUP, each as often as "
                            "needed; pryvane-cli privacy list shows what there is");
    auto host = Host::open(console, arguments.volume, StoreUse::None);
    if (!host)
        return console.fail(host.error().message);
    if (const auto holds = (*host)->mustHoldMac(); !holds)
        return console.fail(holds.error().message);
    CleanerHost cleaner(**host);
    cleaner.sayHomes(console);
    if ((*host)->whose().isEveryone())
        return console.fail("name whose private data to clear: --user NAME, which may be repeated; "
                            "users of this disk: " +
                            namesText((*host)->homes().users));
    const auto running = (*host)->workspace().runningApplications();
    const auto remover = (*host)->remover();
    if (!remover)
        return console.fail(remover.error().message);
    return clearItems(cleaner, running, **remover, arguments.clear, console);
}

} // namespace

void addPrivacyCommand(CommandLine& line, CLI::App& app)
{
    CLI::App* parent = app.add_subcommand(
        "privacy", "Measure and clear private data of browsers, mail and system");
    parent->require_subcommand(1);
    const auto arguments = std::make_shared<PrivacyArguments>();
    CLI::App* list = line.addCommand(
        *parent, "list", "What there is to be cleaned, by application, with its size",
        [arguments](const Console& console) { return listPrivacy(*arguments, console); });
    addVolumeOptions(*list, arguments->volume);
    addLabelOptions(*list, arguments->labels);
    addFormatOption(*list, arguments->format, {"text", "json", "jsonl"});

    CLI::App* clear = line.addCommand(
        *parent, "clear", "Remove the data of some items for good, after a preview",
        [arguments](const Console& console) { return clearPrivacy(*arguments, console); });
    clear
        ->add_option("--item", arguments->clear.items,
                     "GROUP/ITEM as privacy list names them, or ITEM where one group has it")
        ->type_name("NAME");
    clear
        ->add_option("--group", arguments->clear.groups,
                     "All of a group but passwords, preferences and bookmarks")
        ->type_name("NAME");
    clear->add_option("--except", arguments->clear.except, "Leave this item out")
        ->type_name("NAME");
    clear->add_flag("--dry-run", arguments->clear.dryRun, "Only show what would be removed");
    clear->add_flag("--yes", arguments->clear.yes, "Do not ask");
    addVolumeOptions(*clear, arguments->volume);
    addFormatOption(*clear, arguments->clear.format, {"text", "json"});
    clear->footer("Exit code: 0 done, 1 something stayed, 2 error, 130 interrupted.\n"
                  "Example: pryvane-cli privacy clear --group Safari --except Safari/Cookies");
}

} // namespace pryvane::cli
