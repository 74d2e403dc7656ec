#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Host.h"
#include "core/Escape.h"
#include "core/Texts.h"
#include "inventory/AdwareScan.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>
#include <variant>

namespace pryvane::cli {

namespace {

using ExtensionList = std::vector<ExtensionEntry>;
using UrlList = std::vector<FileURL>;

/// One list of the inventory.
struct Kind {
    const char* name; ///< as --kind takes it
    const char* key;  ///< in JSON
    InventoryKind kind;
    std::variant<ExtensionList (AdwareScan::*)() const, UrlList (AdwareScan::*)() const> list;
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
};

struct InventoryArguments {
    VolumeArguments volume;
    std::vector<std::string> kinds; ///< empty: all
    std::string format = "text";
};

struct Listed {
    const Kind* kind;
    std::variant<ExtensionList, UrlList> entries;
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

std::string asText(const UrlList& entries)
{
    std::string text;
    for (const FileURL& url : entries)
        text += "  " + forTerminal(url.absolutePath()) + "\n";
    return text;
}

std::vector<Listed> gather(const AdwareScan& scan, const InventoryArguments& arguments,
                           const StopFlag& stop)
{
    std::vector<Listed> lists;
    for (const Kind& kind : kKinds) {
        const auto& wanted = arguments.kinds;
        if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), kind.name) == wanted.end())
            continue;
        if (stop.requested())
            break;
        std::visit([&](auto list) { lists.push_back({&kind, (scan.*list)()}); }, kind.list);
    }
    return lists;
}

int runInventory(const InventoryArguments& arguments, const Console& console)
{
    auto host = Host::open(console, arguments.volume, StoreUse::None);
    if (!host)
        return console.fail(host.error().message);
    CleanerHost cleaner(**host);
    cleaner.sayMissingHome(console);
    const AdwareScan scan(cleaner.services(), (*host)->user(), console.interrupted);
    std::vector<Listed> lists;
    withProgress(
        console, [] { return std::string("listing"); },
        [&] { lists = gather(scan, arguments, console.interrupted); });
    if (console.interrupted.requested()) {
        console.say("interrupted; nothing was listed");
        return kInterrupted;
    }
    auto document = nlohmann::ordered_json::object();
    for (const Listed& list : lists) {
        std::visit(
            [&](const auto& entries) {
                if (arguments.format == "json")
                    document[list.kind->key] = asJson(entries);
                else
                    console.out << heading(list.kind->kind) << ": " << entries.size() << "\n"
                                << asText(entries);
            },
            list.entries);
    }
    if (arguments.format == "json")
        console.out << document.dump(2) << "\n";
    if (!scan.whole()) {
        console.say(
            "the list of extensions is not whole: this disk names more profiles, folders or "
            "data than any browser makes, and what goes beyond was left out");
        return kFindings;
    }
    return kDone;
}

} // namespace

void addInventoryCommand(CommandLine& line, CLI::App& app)
{
    const auto arguments = std::make_shared<InventoryArguments>();
    CLI::App* command = line.addCommand(
        app, "inventory", "Browser extensions, start-up items and applications; judges nothing",
        [arguments](const Console& console) { return runInventory(*arguments, console); });
    std::vector<std::string> names;
    for (const Kind& kind : kKinds)
        names.emplace_back(kind.name);
    command
        ->add_option("--kind", arguments->kinds,
                     "Only this list; may be given several times (default: all)")
        ->check(CLI::IsMember(names))
        ->type_name("KIND");
    addVolumeOptions(*command, arguments->volume);
    command->add_option("--format", arguments->format, "text or json")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT");
    command->footer("Example: pryvane-cli inventory --kind chrome --volume /mnt/mac --user alice");
}

} // namespace pryvane::cli
