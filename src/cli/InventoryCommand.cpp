#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "cli/InventoryFacts.h"
#include "cli/LinesHead.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "inventory/AdwareScan.h"
#include "reports/JsonPieces.h"

#include <algorithm>
#include <ostream>
#include <variant>

namespace pryvane::cli {

namespace {

using ExtensionList = std::vector<ExtensionEntry>;
using UrlList = std::vector<FileURL>;
using FactList = std::vector<ExtensionFact>;

/// One list of the inventory.
struct Kind {
    const char* name; ///< as --kind takes it
    const char* key;  ///< in JSON
    InventoryKind kind;
    std::variant<ExtensionList (AdwareScan::*)() const, UrlList (AdwareScan::*)() const,
                 FactList (AdwareScan::*)() const>
        list;
};

const Kind kKinds[] = {
    {"chrome", "chrome", InventoryKind::ChromeExtensions, &AdwareScan::getChromeExtantionList},
    {"firefox", "firefox", InventoryKind::FirefoxAddOns, &AdwareScan::getFirefoxExtantionList},
    {"safari", "safari", InventoryKind::SafariExtensions, &AdwareScan::getSafariExtantionList},
    {"launch-agents", "launchAgents", InventoryKind::LaunchAgents,
     &AdwareScan::getLaunchAgentsList},
    {"launch-daemons", "launchDaemons", InventoryKind::LaunchDaemons,
     &AdwareScan::getLaunchDaemonsList},
    {"application-support", "applicationSupport", InventoryKind::ApplicationSupport,
     &AdwareScan::getApplicationSupportList},
    {"applications", "applications", InventoryKind::Applications, &AdwareScan::getAppList},
    {"extensions", "extensions", InventoryKind::AllExtensions, &AdwareScan::extensionFacts},
};

struct InventoryArguments {
    VolumeArguments volume;
    CaseLabels labels;
    std::vector<std::string> kinds; ///< empty: all
    std::string format = "text";
};

struct Listed {
    const Kind* kind;
    std::variant<ExtensionList, UrlList, FactList> entries;
};

nlohmann::ordered_json asJson(const ExtensionList& entries)
{
    auto list = nlohmann::ordered_json::array();
    for (const ExtensionEntry& entry : entries) {
        list.push_back({{"urlExt", forJson(entry.urlExt.absolutePath())},
                        {"verExt", forJson(entry.verExt)},
                        {"nameExt", forJson(entry.nameExt)},
                        {"sizeExt", entry.sizeExt},
                        {"PersonExt", forJson(entry.PersonExt)}});
    }
    return list;
}

nlohmann::ordered_json asJson(const UrlList& entries)
{
    auto list = nlohmann::ordered_json::array();
    for (const FileURL& url : entries)
        list.push_back(forJson(url.absolutePath()));
    return list;
}

nlohmann::ordered_json asJson(const FactList& facts)
{
    auto list = nlohmann::ordered_json::array();
    for (const ExtensionFact& fact : facts) {
        auto permissions = nlohmann::ordered_json::array();
        for (const std::string& permission : fact.permissions)
            permissions.push_back(forJson(permission));
        list.push_back({{"browser", fact.browser},
                        {"profile", forJson(fact.entry.PersonExt)},
                        {"id", forJson(fact.id)},
                        {"name", forJson(fact.entry.nameExt)},
                        {"version", forJson(fact.entry.verExt)},
                        {"path", forJson(fact.entry.urlExt.absolutePath())},
                        {"bytes", fact.entry.sizeExt},
                        {"source", sourceText(fact.source)},
                        {"permissions", std::move(permissions)}});
    }
    return list;
}

std::string asText(const ExtensionList& entries)
{
    using Align = TextTable::Align;
    TextTable table({Align::Left, Align::Left, Align::Left, Align::Right, Align::Left});
    for (const ExtensionEntry& entry : entries) {
        table.addRow({forTerminal(entry.nameExt), forTerminal(entry.verExt),
                      forTerminal(entry.PersonExt), sizeText(entry.sizeExt),
                      forTerminal(entry.urlExt.absolutePath())});
    }
    return table.text("  ");
}

std::string asText(const FactList& facts)
{
    std::string text;
    for (const ExtensionFact& fact : facts) {
        text += "  " + forTerminal(fact.entry.nameExt + " " + fact.entry.verExt) + "  (" +
                forTerminal(fact.browser + ", " + fact.entry.PersonExt) + "; " +
                sourceText(fact.source) + ")\n";
        for (const std::string& permission : fact.permissions)
            text += "      " + forTerminal(permission) + "\n";
    }
    return text;
}

std::string asText(const UrlList& entries)
{
    std::string text;
    for (const FileURL& url : entries)
        text += "  " + forTerminal(url.absolutePath()) + "\n";
    return text;
}

/// Whether a list was asked for; all are where none was named.
bool isWanted(const InventoryArguments& arguments, std::string_view name)
{
    const auto& wanted = arguments.kinds;
    return wanted.empty() || std::find(wanted.begin(), wanted.end(), name) != wanted.end();
}

/// Whether what all users share has a part in that list.
bool isShared(const Kind& kind)
{
    return std::holds_alternative<UrlList (AdwareScan::*)() const>(kind.list) &&
           kind.kind != InventoryKind::SafariExtensions;
}

std::vector<Listed> gather(const AdwareScan& scan, AdwareScan::Part part,
                           const InventoryArguments& arguments, const StopFlag& stop)
{
    std::vector<Listed> lists;
    for (const Kind& kind : kKinds) {
        if (!isWanted(arguments, kind.name))
            continue;
        if (part == AdwareScan::Part::Shared && !isShared(kind))
            continue;
        if (stop.requested())
            break;
        std::visit([&](auto list) { lists.push_back({&kind, (scan.*list)()}); }, kind.list);
    }
    return lists;
}

/// What is listed for one user, or for all of them together.
struct Section {
    AdwareScan::Part part = AdwareScan::Part::Both;
    std::string user; ///< empty: what all share
    std::vector<Listed> lists = {};
};

std::vector<Section> sectionsFor(const Host& host, const InventoryArguments& arguments)
{
    if (std::ranges::none_of(kKinds,
                             [&](const Kind& kind) { return isWanted(arguments, kind.name); }))
        return {};
    if (const std::string user = host.user(); !user.empty())
        return {{AdwareScan::Part::Both, user}};
    std::vector<Section> sections{{AdwareScan::Part::Shared, {}}};
    for (const std::string& user : host.homes().users)
        sections.push_back({AdwareScan::Part::Own, user});
    return sections;
}

nlohmann::ordered_json asJson(const std::vector<Listed>& lists)
{
    auto object = nlohmann::ordered_json::object();
    for (const Listed& list : lists)
        std::visit([&](const auto& entries) { object[list.kind->key] = asJson(entries); },
                   list.entries);
    return object;
}

/// Of one user the lists by themselves; of several what they share, then each user's.
nlohmann::ordered_json asJson(const std::vector<Section>& sections)
{
    if (sections.empty())
        return nlohmann::ordered_json::object();
    if (sections.front().part == AdwareScan::Part::Both)
        return asJson(sections.front().lists);
    auto users = nlohmann::ordered_json::array();
    for (const Section& section : sections) {
        if (section.part != AdwareScan::Part::Own)
            continue;
        nlohmann::ordered_json user{{"user", forJson(section.user)}};
        user.update(asJson(section.lists));
        users.push_back(std::move(user));
    }
    return {{"shared", asJson(sections.front().lists)}, {"users", std::move(users)}};
}

nlohmann::ordered_json lineOf(const ExtensionEntry& entry)
{
    nlohmann::ordered_json line = {{"name", forJson(entry.nameExt)},
                                   {"version", forJson(entry.verExt)},
                                   {"profile", forJson(entry.PersonExt)},
                                   {"size", entry.sizeExt}};
    addLocation(line, entry.urlExt);
    return line;
}

nlohmann::ordered_json lineOf(const ExtensionFact& fact)
{
    auto line = lineOf(fact.entry);
    line["browser"] = fact.browser;
    line["id"] = forJson(fact.id);
    line["source"] = sourceText(fact.source);
    line["permissions"] = namesJson(fact.permissions);
    return line;
}

nlohmann::ordered_json lineOf(const FileURL& url)
{
    auto line = nlohmann::ordered_json::object();
    addLocation(line, url);
    return line;
}

/// One line an entry.
void writeLines(const std::vector<Section>& sections, const TextSink& sink,
                const nlohmann::ordered_json& head)
{
    writeLine(sink, head);
    for (const Section& section : sections) {
        for (const Listed& list : section.lists) {
            nlohmann::ordered_json line = {
                {"type", "item"}, {"list", list.kind->key}, {"user", textOrNull(section.user)}};
            std::visit(
                [&](const auto& entries) {
                    for (const auto& entry : entries) {
                        auto whole = line;
                        whole.update(lineOf(entry));
                        writeLine(sink, whole);
                    }
                },
                list.entries);
        }
    }
}

void writeText(const std::vector<Section>& sections, const Console& console)
{
    for (const Section& section : sections) {
        if (section.part == AdwareScan::Part::Shared)
            console.out << "Shared by all users\n";
        else if (section.part == AdwareScan::Part::Own)
            console.out << "\nUser " << forTerminal(section.user) << "\n";
        for (const Listed& list : section.lists)
            std::visit(
                [&](const auto& entries) {
                    console.out << heading(list.kind->kind) << ": " << entries.size() << "\n"
                                << asText(entries);
                },
                list.entries);
    }
}

/// Facts alone are told of all homes that there are, unless users are named.
bool asksForOneHome(const InventoryArguments& arguments)
{
    return !arguments.volume.users.empty() ||
           std::any_of(std::begin(kKinds), std::end(kKinds),
                       [&](const Kind& kind) { return isWanted(arguments, kind.name); });
}

int runInventory(const InventoryArguments& arguments, const Console& console)
{
    auto host = Host::open(console, arguments.volume, StoreUse::None);
    if (!host)
        return console.fail(host.error().message);
    if (const auto holds = (*host)->mustHoldMac(); !holds)
        return console.fail(holds.error().message);
    CleanerHost cleaner(**host);
    if (asksForOneHome(arguments))
        cleaner.sayHomes(console);
    std::vector<Section> sections = sectionsFor(**host, arguments);
    bool whole = true;
    const FactKinds factKinds = factKindsOf(arguments.kinds);
    Facts facts;
    withProgress(
        console, [] { return std::string("listing"); },
        [&] {
            for (Section& section : sections) {
                const AdwareScan scan(cleaner.services(), section.user, console.interrupted,
                                      section.part);
                section.lists = gather(scan, section.part, arguments, console.interrupted);
                whole = whole && scan.whole();
            }
            if (factKinds.any())
                facts = gatherFacts((*host)->disk(),
                                    factHomes((*host)->disk(), UserChoice(arguments.volume.users)),
                                    factKinds, console.interrupted);
        });
    if (console.interrupted.requested()) {
        console.say("interrupted; nothing was listed");
        return kInterrupted;
    }
    if (arguments.format == "jsonl") {
        const auto head = headOf("inventory", **host, arguments.labels);
        writeLines(sections, console.sink(), head);
        auto document = nlohmann::ordered_json::object();
        addFactsJson(document, facts, factKinds);
        writeFactLines(console.sink(), document);
        writeEndLine(console.sink(), whole && facts.whole, (*host)->clock().now());
    } else if (arguments.format == "json") {
        auto document = asJson(sections);
        addFactsJson(document, facts, factKinds);
        console.out << document.dump(2) << "\n";
    } else {
        writeText(sections, console);
        printFacts(console, facts, factKinds);
    }
    const bool factsAreWhole = sayUnreadSources(console, facts);
    if (!whole) {
        console.say(
            "the list of extensions is not whole: this disk names more profiles, folders or "
            "data than any browser makes, and what goes beyond was left out");
        return kFindings;
    }
    // Who asks for all that there is asked for the lists that hardly any account may read whole,
    // too.
    return factsAreWhole || arguments.kinds.empty() ? kDone : kIncomplete;
}

} // namespace

void addInventoryCommand(CommandLine& line, CLI::App& app)
{
    const auto arguments = std::make_shared<InventoryArguments>();
    CLI::App* command = line.addCommand(
        app, "inventory",
        "Browser extensions, applications, what starts, who may watch; judges nothing",
        [arguments](const Console& console) { return runInventory(*arguments, console); });
    std::vector<std::string> names;
    for (const Kind& kind : kKinds)
        names.emplace_back(kind.name);
    for (std::string& name : factKindNames())
        names.push_back(std::move(name));
    command
        ->add_option("--kind", arguments->kinds,
                     "Only this list; may be given several times (default: all)")
        ->check(CLI::IsMember(names))
        ->type_name("KIND");
    addVolumeOptions(*command, arguments->volume);
    addLabelOptions(*command, arguments->labels);
    addFormatOption(*command, arguments->format, {"text", "json", "jsonl"});
    command->footer("Example: pryvane-cli inventory --kind permissions --volume /mnt/mac\n\n"
                    "Permissions, start-up and remote access are told for every home of the disk, "
                    "or for the --user that is named. Where one of them is asked for by name and "
                    "could not be read whole, the command ends with 3. \"~\" is each home, \"*\" "
                    "any name, and the "
                    "numbers are versions of macOS.\n" +
                    factSourcesText());
}

} // namespace pryvane::cli
