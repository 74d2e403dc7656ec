// What extensions may do, and where they came from.
#include "inventory/AdwareScan.h"
#include "platform/Browsers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pryvane {

namespace {

constexpr std::array kLikeChrome{kChrome, kEdge, kBrave, kChromium, kVivaldi, kOpera, kArc};

FileURL in(const FileURL& folder, std::string_view name)
{
    return FileURL::fileURLWithPath(joinedPath(folder.absolutePath(), name));
}

/// The browser's folder, below the home.
std::string_view placeOf(const Browser& browser)
{
    return browser.profileLocation.substr(std::string_view("/Users/%@/").size());
}

/// The folder's name, two above the version's: the identifier.
std::string identifierOf(const FileURL& version)
{
    const std::string path = version.absolutePath();
    const std::string above = path.substr(0, path.rfind('/'));
    return above.substr(above.rfind('/') + 1);
}

} // namespace

std::vector<ExtensionFact> AdwareScan::extensionFacts() const
{
    FactsSoFar soFar{.extensions = ChromeExtensions(m_disk, m_stop)};
    for (const Browser& browser : kLikeChrome) {
        for (const ChromeProfile& profile : chromeProfiles(placeOf(browser))) {
            if (!m_stop.requested())
                addFactsOf(profile, placeOf(browser), browser.displayName, soFar);
        }
    }
    addFirefoxFacts(soFar);
    std::vector<ExtensionEntry> entries;
    entries.reserve(soFar.facts.size());
    for (ExtensionFact& fact : soFar.facts)
        entries.push_back(std::move(fact.entry));
    entries = measured(std::move(entries));
    for (std::size_t i = 0; i < entries.size(); ++i)
        soFar.facts[i].entry = std::move(entries[i]);
    return std::move(soFar.facts);
}

/// Within a bound for all files: links can make any number of profiles of a few.
std::optional<std::string> AdwareScan::read(const FileURL& file, FactsSoFar& soFar) const
{
    auto content = soFar.bytesLeft > 0 ? read(file) : std::nullopt;
    if (content)
        soFar.bytesLeft -= std::min(content->size(), soFar.bytesLeft);
    if (soFar.bytesLeft == 0)
        m_whole = false;
    return content;
}

void AdwareScan::addFactsOf(const ChromeProfile& profile, std::string_view place,
                            std::string_view browser, FactsSoFar& soFar) const
{
    const FileURL folder = in(m_home.at(place), profile.folder);
    std::map<std::string, ChromeInstall> installs;
    for (const char* file : {"Secure Preferences", "Preferences"}) {
        if (const auto content = read(in(folder, file), soFar))
            installs.merge(chromeInstalls(*content));
    }
    const auto add = [&](ExtensionEntry entry, std::string id, ExtensionSource source) {
        const auto manifest = read(in(entry.urlExt, "manifest.json"), soFar);
        soFar.facts.push_back({std::move(entry), std::string(browser), std::move(id), source,
                               plainPermissions(manifest ? manifestPermissions(*manifest)
                                                         : std::vector<std::string>())});
    };
    soFar.extensions.add(folder, profile.name);
    for (ExtensionEntry& entry : noted(soFar.extensions.take())) {
        std::string id = identifierOf(entry.urlExt);
        const auto install = installs.find(id);
        const auto source =
            install == installs.end() ? ExtensionSource::NotKnown : install->second.source;
        add(std::move(entry), std::move(id), source);
    }
    // Those in a folder of their own, which stays where it was.
    for (const auto& [id, install] : installs) {
        if (!install.path.starts_with('/') || install.source == ExtensionSource::BuiltIn)
            continue;
        soFar.extensions.addOne(FileURL::fileURLWithPath(install.path), profile.name);
        for (ExtensionEntry& entry : noted(soFar.extensions.take()))
            add(std::move(entry), id, install.source);
    }
}

void AdwareScan::addFirefoxFacts(FactsSoFar& soFar) const
{
    std::map<std::string, FirefoxInstall> installs;
    for (const FileURL& profile : getUrlListAt(m_home.at(HomeFolder::kFirefoxProfiles))) {
        if (m_stop.requested() || installs.size() > kMostAddOns)
            break;
        if (const auto content = read(in(profile, "extensions.json"), soFar))
            installs.merge(firefoxInstalls(*content));
    }
    for (ExtensionEntry& entry : firefoxAddOns()) {
        const auto install = installs.find(entry.urlExt.relativePath());
        ExtensionFact fact{std::move(entry), std::string(kFirefox.displayName), {}, {}, {}};
        if (install != installs.end()) {
            fact.source = install->second.source;
            fact.permissions = plainPermissions(install->second.permissions);
        }
        soFar.facts.push_back(std::move(fact));
    }
}

} // namespace pryvane
