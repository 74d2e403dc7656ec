#include "inventory/facts/SystemFiles.h"

#include "formats/PropertyList.h"

#include <algorithm>
#include <array>

namespace pryvane {

namespace {

constexpr std::size_t kMostKeys = 4096;
constexpr std::string_view kBlanks = " \t\r";

/// The next line, without its end; the text loses it.
[[nodiscard]] std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

/// The next word of a line; the line loses it.
[[nodiscard]] std::string_view takeWord(std::string_view& line)
{
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(end);
    return word;
}

[[nodiscard]] std::string_view trimmed(std::string_view line)
{
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    const std::size_t last = line.find_last_not_of(kBlanks);
    return last == std::string_view::npos ? std::string_view() : line.substr(0, last + 1);
}

/// Whether a line of a crontab sets a variable: NAME = value.
[[nodiscard]] bool isSetting(std::string_view line)
{
    const std::size_t end = line.find_first_of(" \t=");
    if (end == 0 || end == std::string_view::npos)
        return false;
    const auto isNameByte = [](char c) {
        return lowerAscii(c) != c || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
    };
    const std::string_view rest = trimmed(line.substr(end));
    return std::all_of(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(end), isNameByte) &&
           rest.starts_with('=');
}

/// The program that a command line begins with.
[[nodiscard]] std::string programOf(std::string_view command)
{
    std::string_view rest = command;
    const std::string_view word = takeWord(rest);
    return word.starts_with('/') ? boundedText(word) : std::string();
}

[[nodiscard]] std::string textIn(const PropertyValue& dictionary, std::string_view key)
{
    if (dictionary.size() > kMostKeys)
        return {};
    return boundedText(dictionary[key].text().value_or(std::string_view()));
}

[[nodiscard]] std::string joined(const PropertyValue& texts)
{
    std::string all;
    for (const PropertyEntry& text : texts) {
        all +=
            (all.empty() ? "" : ", ") + boundedText(text.value.text().value_or(std::string_view()));
        if (all.size() > kLongestFactText)
            break;
    }
    return boundedText(all);
}

[[nodiscard]] RemoteFact fact(RemoteKind kind, std::string what, std::string detail,
                              std::optional<OnOff> state = std::nullopt)
{
    RemoteFact made;
    made.kind = kind;
    made.what = std::move(what);
    made.detail = std::move(detail);
    made.state = state;
    return made;
}

struct ProxyKeys {
    const char* name;
    const char* enabled;
    const char* host;
    const char* port;
};
constexpr auto kProxies = std::to_array<ProxyKeys>({
    {"Proxy for web pages", "HTTPEnable", "HTTPProxy", "HTTPPort"},
    {"Proxy for secure web pages", "HTTPSEnable", "HTTPSProxy", "HTTPSPort"},
    {"Proxy for all connections (SOCKS)", "SOCKSEnable", "SOCKSProxy", "SOCKSPort"},
    {"Proxy settings from a file", "ProxyAutoConfigEnable", "ProxyAutoConfigURLString", ""},
});

[[nodiscard]] bool addProxies(const PropertyValue& proxies, const std::string& of,
                              ReadFacts<RemoteFact>& found)
{
    if (proxies.size() > kMostKeys)
        return true;
    for (const ProxyKeys& keys : kProxies) {
        std::string place = textIn(proxies, keys.host);
        const bool on = proxies[keys.enabled].integer().value_or(0) != 0;
        if (place.empty() && !on)
            continue;
        if (const auto port = proxies[keys.port].integer())
            place += ":" + std::to_string(*port);
        if (!addBounded(found, fact(RemoteKind::Network, keys.name, place + of,
                                    on ? OnOff::On : OnOff::Off)))
            return false;
    }
    return true;
}

} // namespace

Result<ReadFacts<StartUpItem>> readCrontab(std::string_view text, Crontab form)
{
    ReadFacts<StartUpItem> found;
    for (std::size_t number = 1; !text.empty(); ++number) {
        std::string_view line = trimmed(takeLine(text));
        if (line.empty() || line.starts_with('#') || isSetting(line))
            continue;
        const std::string_view whole = line;
        const int fields = line.starts_with('@') ? 1 : 5;
        for (int i = 0; i < fields; ++i)
            static_cast<void>(takeWord(line));
        const std::string_view times = trimmed(whole.substr(0, whole.size() - line.size()));
        StartUpItem item;
        item.kind = StartUpKind::Scheduled;
        if (form == Crontab::OfSystem)
            item.runsAs = boundedText(takeWord(line));
        const std::string_view command = trimmed(line);
        if (command.empty()) {
            found.problem = "line " + std::to_string(number) + " is not understood";
            continue;
        }
        item.label = boundedText(command);
        item.programText = programOf(command);
        item.when.push_back(boundedText(times));
        if (!addBounded(found, std::move(item)))
            break;
    }
    return found;
}

Result<ReadFacts<RemoteFact>> readAuthorisedKeys(std::string_view text)
{
    std::size_t keys = 0;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        keys += !line.empty() && !line.starts_with('#');
    }
    ReadFacts<RemoteFact> found;
    if (keys > 0)
        found.entries.push_back(
            fact(RemoteKind::Access, "Keys that may log in", countedText(keys, "key", "keys")));
    return found;
}

Result<ReadFacts<RemoteFact>> readHosts(std::string_view text)
{
    constexpr std::size_t kMostLines = 1000;
    constexpr auto kDefault = std::to_array<std::pair<std::string_view, std::string_view>>({
        {"127.0.0.1", "localhost"},
        {"255.255.255.255", "broadcasthost"},
        {"::1", "localhost"},
        {"fe80::1%lo0", "localhost"},
    });
    ReadFacts<RemoteFact> found;
    std::size_t more = 0;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeLine(text));
        std::string_view rest = line.substr(0, std::min(line.find('#'), line.size()));
        const std::string_view address = takeWord(rest);
        if (address.empty())
            continue;
        const bool isDefault = std::find(kDefault.begin(), kDefault.end(),
                                         std::pair(address, trimmed(rest))) != kDefault.end();
        if (isDefault)
            continue;
        std::string shown = boundedText(line);
        std::replace(shown.begin(), shown.end(), '\t', ' ');
        if (found.entries.size() < kMostLines)
            found.entries.push_back(
                fact(RemoteKind::Network, "Line of the hosts file", std::move(shown)));
        else
            ++more;
    }
    if (more > 0)
        found.entries.push_back(fact(RemoteKind::Network, "Lines of the hosts file",
                                     countedText(more, "more line", "more lines")));
    return found;
}

Result<ReadFacts<RemoteFact>> readNetworkSettings(std::string bytes)
{
    const auto list = PropertyList::read(std::move(bytes));
    if (!list)
        return list.error();
    if (list->root().kind() != PropertyKind::Dictionary || list->root().size() > kMostKeys)
        return Error{"it is not understood: it is no dictionary"};
    ReadFacts<RemoteFact> found;
    for (const PropertyEntry& service : list->root()["NetworkServices"]) {
        if (service.value.size() > kMostKeys)
            return Error{"it is not understood: a service has more keys than any Mac's"};
        const std::string name = textIn(service.value, "UserDefinedName");
        const std::string of = name.empty() ? std::string() : " (" + name + ")";
        const PropertyValue names = service.value["DNS"];
        const PropertyValue servers =
            names.size() <= kMostKeys ? names["ServerAddresses"] : PropertyValue();
        if (servers.size() > 0 &&
            !addBounded(found, fact(RemoteKind::Network, "Name servers (DNS) set by hand",
                                    joined(servers) + of)))
            break;
        if (!addProxies(service.value["Proxies"], of, found))
            break;
    }
    return found;
}

Result<ReadFacts<RemoteFact>> readRemoteManagement(std::string bytes)
{
    constexpr auto kSwitches = std::to_array<std::pair<const char*, const char*>>({
        {"ARD_AllLocalUsers", "Remote management: every account may be used"},
        {"VNCLegacyConnectionsEnabled", "Remote management: viewers with a password of their own"},
        {"ScreenSharingReqPermEnabled", "Remote management: asking for leave to share the screen"},
        {"LoadRemoteManagementMenuExtra", "Remote management: shown in the menu bar"},
    });
    const auto list = PropertyList::read(std::move(bytes));
    if (!list)
        return list.error();
    if (list->root().kind() != PropertyKind::Dictionary || list->root().size() > kMostKeys)
        return Error{"it is not understood: it is no dictionary"};
    ReadFacts<RemoteFact> found;
    for (const auto& [key, what] : kSwitches) {
        const PropertyValue value = list->root()[key];
        if (!value.boolean() && !value.integer())
            continue;
        const bool on = value.boolean().value_or(value.integer().value_or(0) != 0);
        found.entries.push_back(fact(RemoteKind::Access, what, {}, on ? OnOff::On : OnOff::Off));
    }
    return found;
}

Result<ApplicationNames> readApplicationNames(std::string bytes)
{
    const auto list = PropertyList::read(std::move(bytes));
    if (!list)
        return list.error();
    const PropertyValue root = list->root();
    std::string name = textIn(root, "CFBundleDisplayName");
    return ApplicationNames{textIn(root, "CFBundleIdentifier"),
                            name.empty() ? textIn(root, "CFBundleName") : std::move(name)};
}

} // namespace pryvane
