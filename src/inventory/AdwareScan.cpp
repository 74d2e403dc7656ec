#include "inventory/AdwareScan.h"

#include "core/Texts.h"
#include "formats/PropertyList.h"
#include "inventory/FirefoxProfiles.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace pryvane {

namespace {

/// The package types that a Mac knows by itself or from its usual applications.
constexpr auto kPackageExtensions = std::to_array<std::string_view>({
    "action",
    "app",
    "appex",
    "aplibrary",
    "band",
    "bundle",
    "caction",
    "colorpicker",
    "component",
    "definition",
    "dictionary",
    "download",
    "driver",
    "dSYM",
    "fcpbundle",
    "fbproj",
    "imovielibrary",
    "kext",
    "key",
    "logicx",
    "mailbundle",
    "mdimporter",
    "menu",
    "migratedphotolibrary",
    "mpkg",
    "musiclibrary",
    "numbers",
    "pages",
    "photoboothlibrary",
    "photolibrary",
    "photoslibrary",
    "pkg",
    "playground",
    "plugin",
    "prefPane",
    "qlgenerator",
    "rtfd",
    "safariextension",
    "saver",
    "scptd",
    "service",
    "slideSaver",
    "sparsebundle",
    "spreporter",
    "systemextension",
    "tvlibrary",
    "vst",
    "wdgt",
    "workflow",
    "xcarchive",
    "xcodeproj",
    "xcdatamodeld",
    "xcworkspace",
    "xpc",
});

} // namespace

bool isPackage(const FileURL& folder)
{
    const std::string extension = lowerAscii(folder.pathExtension());
    return std::any_of(kPackageExtensions.begin(), kPackageExtensions.end(),
                       [&](std::string_view known) { return lowerAscii(known) == extension; });
}

namespace {

constexpr std::size_t kDeepestFolder = 512; // below which no application is looked for

FileURL in(const FileURL& folder, std::string_view name)
{
    return FileURL::fileURLWithPath(joinedPath(folder.absolutePath(), name));
}

/// Many elements of a list may refer to the same long text.
bool isFileName(std::string_view text)
{
    constexpr std::size_t kLongest = 1024;
    return text.size() <= kLongest;
}

void append(std::vector<FileURL>& list, std::vector<FileURL> more)
{
    list.insert(list.end(), std::make_move_iterator(more.begin()),
                std::make_move_iterator(more.end()));
}

} // namespace

std::optional<std::string> AdwareScan::read(const FileURL& file) const
{
    auto content = m_disk.readSmallFile(file, kLongestListedFile);
    return content ? std::optional(std::move(content).value()) : std::nullopt;
}

std::vector<ChromeProfile> AdwareScan::chromeProfiles(std::string_view place) const
{
    const auto content = read(m_home.at(joinedPath(place, "Local State")));
    return content ? noted(pryvane::chromeProfiles(*content)) : std::vector<ChromeProfile>();
}

std::vector<std::string> AdwareScan::firefoxProfileFolders() const
{
    const auto content = read(m_home.at(joinedPath(HomeFolder::kFirefox, "profiles.ini")));
    return content ? noted(pryvane::firefoxProfileFolders(*content)) : std::vector<std::string>();
}

std::vector<ExtensionEntry> AdwareScan::getChromeExtantionList() const
{
    return measured(chromeExtensions());
}

std::vector<ExtensionEntry> AdwareScan::chromeExtensions(std::string_view place) const
{
    if (m_part == Part::Shared)
        return {};
    ChromeExtensions extensions(m_disk, m_stop);
    for (const ChromeProfile& profile : chromeProfiles(place))
        extensions.add(in(m_home.at(place), profile.folder), profile.name);
    return noted(extensions.take());
}

std::vector<ExtensionEntry> AdwareScan::getFirefoxExtantionList() const
{
    return measured(firefoxAddOns());
}

std::vector<ExtensionEntry> AdwareScan::firefoxAddOns() const
{
    if (m_part == Part::Shared)
        return {};
    BoundedList<ExtensionEntry> found;
    std::size_t profiles = 0;
    std::size_t bytes = ListingBounds().bytesRead;
    std::set<FileIdentity> read;
    for (const FileURL& profile : getUrlListAt(m_home.at(HomeFolder::kFirefoxProfiles))) {
        if (m_stop.requested())
            break;
        const FileURL list = in(profile, "extensions.json");
        const auto identity = m_disk.fileIdentity(list);
        // Another name of a profile adds nothing: what it lists are paths.
        if (!identity || !read.insert(*identity).second)
            continue;
        if (++profiles > kMostProfiles || bytes == 0 || found.entries.size() > kMostAddOns) {
            found.whole = false;
            break;
        }
        const auto content = this->read(list);
        if (!content)
            continue;
        bytes -= std::min(content->size(), bytes);
        auto addOns = pryvane::firefoxAddOns(*content);
        found.whole = found.whole && addOns.whole;
        for (FirefoxAddOn& addOn : addOns.entries) {
            found.entries.push_back({FileURL::fileURLWithPath(addOn.location),
                                     std::move(addOn.version), std::move(addOn.name), 0,
                                     "Default"});
        }
    }
    return noted(std::move(found));
}

/// Each place is measured once, however many paths lead to it.
std::vector<ExtensionEntry> AdwareScan::measured(std::vector<ExtensionEntry> entries) const
{
    std::vector<FileURL> locations;
    std::vector<std::size_t> placeOf;
    std::map<FileIdentity, std::size_t> places;
    for (const ExtensionEntry& entry : entries) {
        const auto identity = m_disk.fileIdentity(entry.urlExt);
        const auto place =
            identity ? places.emplace(*identity, locations.size()).first->second : locations.size();
        if (place == locations.size())
            locations.push_back(entry.urlExt);
        placeOf.push_back(place);
    }
    SizeProgress progress;
    std::vector<std::int64_t> sizes(locations.size());
    m_services.sizes.measure(
        locations, m_stop, progress,
        [&](std::size_t location, std::int64_t bytes) { sizes[location] = bytes; });
    for (std::size_t i = 0; i < entries.size(); ++i)
        entries[i].sizeExt = sizes[placeOf[i]];
    return entries;
}

std::vector<FileURL> AdwareScan::getSafariExtantionList() const
{
    if (m_part == Part::Shared)
        return {};
    return getUrlListAt(m_home.at(joinedPath(HomeFolder::kSafari, "Extensions")));
}

/// Safari's own list knows under which name it unpacked an extension's archive.
std::vector<SafariExtension> AdwareScan::safariExtensions() const
{
    const FileURL folder = m_home.at(joinedPath(HomeFolder::kSafari, "Extensions"));
    std::map<std::string, std::string, std::less<>> bundles;
    if (auto content = read(in(folder, "Extensions.plist"))) {
        const auto list = PropertyList::read(std::move(*content));
        const auto installed = list ? list->root()["Installed Extensions"] : PropertyValue();
        for (const PropertyEntry& extension : installed) {
            const auto archive = extension.value["Archive File Name"].text();
            const auto bundle = extension.value["Bundle Directory Name"].text();
            if (archive && bundle && isFileName(*archive) && isFileName(*bundle))
                bundles.insert_or_assign(std::string(*archive), std::string(*bundle));
        }
    }
    std::vector<SafariExtension> extensions;
    for (FileURL& url : getSafariExtantionList()) {
        const std::string_view file = url.lastPathComponent();
        if (file == ".DS_Store" || file == "Extensions.plist")
            continue;
        const auto bundle = bundles.find(file);
        const FileURL named =
            bundle == bundles.end() ? url : FileURL::fileURLWithPath(bundle->second);
        std::string name(named.lastPathComponent());
        if (!named.pathExtension().empty())
            name.resize(name.size() - named.pathExtension().size() - 1);
        extensions.push_back({std::move(url), std::move(name)});
    }
    return extensions;
}

std::vector<FileURL> AdwareScan::getLaunchAgentsList() const
{
    return inBothLibraries("Library/LaunchAgents");
}

std::vector<FileURL> AdwareScan::getLaunchDaemonsList() const
{
    return inBothLibraries("Library/LaunchDaemons");
}

std::vector<FileURL> AdwareScan::getApplicationSupportList() const
{
    return inBothLibraries("Library/Application Support");
}

std::vector<FileURL> AdwareScan::inBothLibraries(std::string_view folder) const
{
    std::vector<FileURL> urls;
    if (m_part != Part::Own)
        urls = getUrlListAt(FileURL::fileURLWithPath(joinedPath("/", folder)));
    if (m_part != Part::Shared)
        append(urls, getUrlListAt(m_home.at(folder)));
    return urls;
}

std::vector<FileURL> AdwareScan::getAppList() const
{
    std::vector<FileURL> urls;
    if (m_part != Part::Own)
        urls = getApplicationList(FileURL::fileURLWithPath("/Applications"));
    if (m_part != Part::Shared)
        append(urls, getApplicationList(FileURL::fileURLWithPath(m_home.path())));
    return urls;
}

std::vector<FileURL> AdwareScan::getUrlListAt(const FileURL& folder) const
{
    std::vector<FileURL> urls;
    for (const FolderEntry& entry : m_disk.list(folder).entries)
        urls.push_back(in(folder, entry.name));
    return urls;
}

std::vector<FileURL> AdwareScan::getApplicationList(const FileURL& folder) const
{
    /// The folders on the way down, each with the entries still to be visited, the last first.
    struct Level {
        FileURL folder;
        std::vector<FolderEntry> entries;
    };
    std::vector<FileURL> applications;
    std::vector<Level> levels;
    const auto enter = [&](FileURL at) {
        auto entries = m_disk.list(at).entries;
        std::erase_if(entries, [](const FolderEntry& entry) {
            return entry.kind != FileKind::Folder || entry.name.starts_with('.');
        });
        levels.push_back(
            {std::move(at),
             {std::make_move_iterator(entries.rbegin()), std::make_move_iterator(entries.rend())}});
    };
    enter(folder);
    while (!levels.empty() && !m_stop.requested()) {
        Level& level = levels.back();
        if (level.entries.empty()) {
            levels.pop_back();
            continue;
        }
        FileURL url = in(level.folder, level.entries.back().name);
        level.entries.pop_back();
        if (isApplication(url))
            applications.push_back(std::move(url));
        else if (!isPackage(url) && levels.size() <= kDeepestFolder)
            enter(std::move(url));
    }
    return applications;
}

} // namespace pryvane
