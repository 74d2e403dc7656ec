#include "inventory/ExtensionPermissions.h"

#include "inventory/ExtensionFiles.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace pryvane {

namespace {

struct Words {
    std::string_view permission;
    std::string_view text;
};

constexpr std::string_view kAllSites = "reads and changes all web sites";

// The gravest first.
constexpr Words kWords[] = {
    {"nativeMessaging", "talks to programs on this Mac"},
    {"debugger", "controls pages as a debugger does"},
    {"proxy", "redirects all traffic"},
    {"management", "switches other extensions on and off"},
    {"cookies", "reads and sets cookies"},
    {"history", "reads the history"},
    {"tabs", "sees the addresses and titles of all tabs"},
    {"webNavigation", "sees each page that is opened"},
    {"webRequest", "sees what pages load"},
    {"webRequestBlocking", "changes what pages load"},
    {"declarativeNetRequest", "blocks or redirects what pages load"},
    {"declarativeNetRequestWithHostAccess", "blocks or redirects what pages load"},
    {"scripting", "runs programs in pages"},
    {"userScripts", "runs programs in pages"},
    {"desktopCapture", "records the screen"},
    {"tabCapture", "records pages"},
    {"pageCapture", "saves pages"},
    {"clipboardRead", "reads the clipboard"},
    {"bookmarks", "reads and changes bookmarks"},
    {"downloads", "sees and starts downloads"},
    {"downloads.open", "opens downloaded files"},
    {"topSites", "sees the pages visited most often"},
    {"sessions", "sees closed tabs and those of other devices"},
    {"browsingData", "clears the browser's data"},
    {"privacy", "changes privacy settings"},
    {"contentSettings", "changes what sites are allowed"},
    {"browserSettings", "changes the browser's settings"},
    {"geolocation", "sees where this Mac is"},
    {"identity", "sees the account of the browser"},
    {"identity.email", "sees the account's address"},
    {"notifications", "shows notifications"},
};

bool isSite(std::string_view permission)
{
    return permission.find("://") != permission.npos || permission == "<all_urls>" ||
           permission.starts_with("file:");
}

bool isAnySite(std::string_view permission)
{
    const auto scheme = permission.find("://");
    return permission == "<all_urls>" ||
           (scheme != permission.npos && permission.substr(scheme + 3).starts_with("*/"));
}

void keep(std::vector<std::string>& list, const std::string& text)
{
    if (list.size() < kMostPermissions && text.size() <= kLongestShown)
        list.push_back(text);
}

/// As the browsers made from Chromium number it.
ExtensionSource chromeSource(std::optional<std::int64_t> location, bool fromStore)
{
    switch (location.value_or(0)) {
    case 1:
    case 2: // by a file of another program
    case 3:
    case 6:
        return fromStore ? ExtensionSource::Store : ExtensionSource::SideLoaded;
    case 4:
    case 8: // on the command line
        return ExtensionSource::Unpacked;
    case 5:
    case 10:
        return ExtensionSource::BuiltIn;
    case 7:
    case 9:
        return ExtensionSource::Policy;
    default:
        return ExtensionSource::NotKnown;
    }
}

/// An element of Firefox's list, as far as it was read.
struct AddOnFacts {
    std::size_t index = 0;
    std::optional<std::string> descriptor, path, location, source;
    bool foreign = false;
    std::vector<std::string> permissions;

    [[nodiscard]] ExtensionSource whence() const
    {
        const std::string place = location.value_or(""), telemetry = source.value_or("");
        if (place == "app-builtin" || place == "app-system-defaults" ||
            place == "app-builtin-addons" || place == "app-system-addons")
            return ExtensionSource::BuiltIn;
        if (place == "app-temporary" || telemetry == "temporary-addon")
            return ExtensionSource::Unpacked;
        if (telemetry == "enterprise-policy")
            return ExtensionSource::Policy;
        if (foreign || telemetry == "file-url" || telemetry == "sideload" ||
            telemetry == "install-from-file" || place.starts_with("app-global") ||
            place.starts_with("winreg"))
            return ExtensionSource::SideLoaded;
        if (telemetry == "amo" || telemetry == "about:addons" || telemetry == "disco")
            return ExtensionSource::Store;
        return ExtensionSource::NotKnown;
    }
};

} // namespace

const char* sourceText(ExtensionSource source)
{
    switch (source) {
    case ExtensionSource::Store:
        return "from the browser's store";
    case ExtensionSource::SideLoaded:
        return "put there by another program or from a file";
    case ExtensionSource::Policy:
        return "put there by a policy";
    case ExtensionSource::Unpacked:
        return "loaded from a folder";
    case ExtensionSource::BuiltIn:
        return "came with the browser";
    case ExtensionSource::NotKnown:
        break;
    }
    return "where it came from is not known";
}

std::vector<std::string> manifestPermissions(std::string_view manifest)
{
    std::vector<std::string> found;
    const auto any = JsonPlace::kAnyKey;
    const bool read = readJsonTexts(manifest, [&](const JsonPlace& at, const std::string& text) {
        if (at.is({"permissions", any}) || at.is({"host_permissions", any}) ||
            at.is({"content_scripts", any, "matches", any}))
            keep(found, text);
    });
    return read ? found : std::vector<std::string>();
}

std::vector<std::string> plainPermissions(const std::vector<std::string>& raw)
{
    const std::set<std::string_view> permissions(raw.begin(), raw.end());
    std::vector<std::string> words;
    const auto add = [&words](std::string_view text) {
        if (std::ranges::find(words, text) == words.end())
            words.emplace_back(text);
    };
    if (std::ranges::any_of(permissions, isAnySite))
        add(kAllSites);
    for (const Words& row : kWords) {
        if (permissions.contains(row.permission))
            add(row.text);
    }
    std::size_t sites = 0, others = 0;
    for (const std::string_view permission : permissions) {
        if (isSite(permission))
            ++sites;
        else if (std::ranges::find(kWords, permission, &Words::permission) == std::end(kWords))
            ++others;
    }
    if (sites > 0 && (words.empty() || words.front() != kAllSites))
        add("reads and changes " + std::to_string(sites) +
            (sites == 1 ? " web site" : " web sites"));
    if (others > 0)
        add(std::to_string(others) + (others == 1 ? " other permission" : " other permissions"));
    return words;
}

std::map<std::string, ChromeInstall> chromeInstalls(std::string_view preferences)
{
    struct Found {
        std::string path;
        std::optional<std::int64_t> location;
        bool fromStore = false;
    };
    std::map<std::string, Found> found;
    const auto entry = [&found](const JsonPlace& at, std::string_view key) -> Found* {
        if (!at.is({"extensions", "settings", JsonPlace::kAnyKey, key}) || at.inArray(2) ||
            at.key(2).empty() || at.key(2).size() > 255)
            return nullptr;
        const auto known = found.find(at.key(2));
        if (known != found.end())
            return &known->second;
        return found.size() < kMostAddOns ? &found[at.key(2)] : nullptr;
    };
    const bool read = readJsonTexts(
        preferences,
        [&](const JsonPlace& at, const std::string& text) {
            if (Found* const of = entry(at, "path"); of && text.size() <= 4096)
                of->path = text;
        },
        [&](const JsonPlace& at, std::int64_t number) {
            if (Found* const of = entry(at, "location"))
                of->location = number;
            if (Found* const of = entry(at, "from_webstore"))
                of->fromStore = number != 0;
        });
    std::map<std::string, ChromeInstall> installs;
    for (const auto& [id, of] : found) {
        if (read)
            installs.emplace(id, ChromeInstall{of.path, chromeSource(of.location, of.fromStore)});
    }
    return installs;
}

std::map<std::string, FirefoxInstall> firefoxInstalls(std::string_view extensions)
{
    std::map<std::string, FirefoxInstall> installs;
    AddOnFacts current;
    const auto finish = [&] {
        const auto& place = current.descriptor ? current.descriptor : current.path;
        if (place && !place->empty() && installs.size() < kMostAddOns)
            installs.insert_or_assign(
                *place, FirefoxInstall{current.whence(), std::move(current.permissions)});
    };
    const auto enter = [&](const JsonPlace& at) {
        if (at.index(1) == current.index)
            return;
        finish();
        current = {};
        current.index = at.index(1);
    };
    const auto any = JsonPlace::kAnyKey;
    const bool read = readJsonTexts(
        extensions,
        [&](const JsonPlace& at, const std::string& text) {
            const std::pair<std::string_view, std::optional<std::string> AddOnFacts::*> texts[] = {
                {"descriptor", &AddOnFacts::descriptor},
                {"path", &AddOnFacts::path},
                {"location", &AddOnFacts::location}};
            for (const auto& [key, member] : texts) {
                if (at.is({"addons", any, key}) && at.inArray(1)) {
                    enter(at);
                    current.*member = text;
                }
            }
            if (at.is({"addons", any, "installTelemetryInfo", "source"}) && at.inArray(1)) {
                enter(at);
                current.source = text;
            }
            if ((at.is({"addons", any, "userPermissions", "permissions", any}) ||
                 at.is({"addons", any, "userPermissions", "origins", any})) &&
                at.inArray(1)) {
                enter(at);
                keep(current.permissions, text);
            }
        },
        [&](const JsonPlace& at, std::int64_t number) {
            if (at.is({"addons", any, "foreignInstall"}) && at.inArray(1)) {
                enter(at);
                current.foreign = number != 0;
            }
        });
    finish();
    return read ? installs : std::map<std::string, FirefoxInstall>();
}

} // namespace pryvane
