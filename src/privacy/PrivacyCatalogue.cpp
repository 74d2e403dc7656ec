#include "privacy/PrivacyCatalogue.h"

#include "core/Files.h"
#include "core/Texts.h"

#include <algorithm>
#include <sys/stat.h>

namespace pryvane {

using tables::Anchor;
using tables::Take;

namespace {

/// More than any folder of a Mac holds in which the tables look for names.
constexpr std::size_t kMostEntries = 20'000;

constexpr std::string_view kSafariContainer = "Library/Containers/com.apple.Safari/Data/Library";

const tables::PrivacyGroup& tableGroup(ToolGroupKind kind)
{
    return *std::find_if(std::begin(tables::kPrivacyGroups), std::end(tables::kPrivacyGroups),
                         [kind](const auto& group) { return group.kind == kind; });
}

std::string withName(std::string_view pattern, std::string_view name)
{
    std::string text(pattern);
    const auto at = text.find("%@");
    return at == text.npos ? text : text.replace(at, 2, name);
}

/// Whether the name contains the ASCII text, whatever the letter case.
bool containsIgnoringCase(std::string_view name, std::string_view text)
{
    return lowerAscii(name).find(lowerAscii(text)) != std::string::npos;
}

/// "V" and a number, as Mail names the folder of each of its versions.
bool isMailVersion(std::string_view name)
{
    return name.size() > 1 && name.size() <= 4 && name.front() == 'V' &&
           name.find_first_not_of("0123456789", 1) == name.npos;
}

/// The owner of a folder; none where that cannot be told.
std::optional<uid_t> ownerOf(FileSystem& disk, const std::string& folder)
{
    const UniqueFd opened(disk.openFolder(FileURL::fileURLWithPath(folder)));
    struct stat data {};
    return opened && fstat(opened.get(), &data) == 0 ? std::optional(data.st_uid) : std::nullopt;
}

} // namespace

std::vector<ToolGroup> PrivacyCatalogue::groups()
{
    lookAround();
    std::vector<ToolGroup> groups;
    std::vector<ToolGroupKind> browsers;
    for (const tables::PrivacyGroup& row : tables::kPrivacyGroups) {
        if (m_stop.requested())
            break;
        ToolGroup group = groupOf(row);
        if (row.kind == ToolGroupKind::BrowserExtensions) {
            if (browsers.empty())
                continue;
            std::vector<ToolItem> extensions;
            addExtensions(browsers, extensions);
            group.List.insert(group.List.begin(), std::make_move_iterator(extensions.begin()),
                              std::make_move_iterator(extensions.end()));
        } else if (!isThere(row, group)) {
            continue;
        } else if (!row.browser.empty()) {
            browsers.push_back(row.kind);
        }
        groups.push_back(std::move(group));
    }
    return groups;
}

/// Finds the folders on which several items' rows stand.
void PrivacyCatalogue::lookAround()
{
    m_way.forget();
    m_whole = true;
    m_allSeen = true;
    findChromiumProfiles();
    findFirefoxProfiles();
    m_safariProfiles = foldersIn(m_home.at(joinedPath(kSafariContainer, "Safari/Profiles")));
    m_containers = foldersIn(m_home.at("Library/Containers"));
    m_mailVersions = foldersIn(m_home.at("Library/Mail"));
    std::erase_if(m_mailVersions, [](const std::string& path) {
        return !isMailVersion(std::string_view(path).substr(path.rfind('/') + 1));
    });
    findOwnCaches();
}

void PrivacyCatalogue::findChromiumProfiles()
{
    m_chromiumProfiles.clear();
    for (const tables::BrowserPlace& place : tables::kBrowserPlaces) {
        if (place.holds != tables::Holds::Profiles || !m_way.isFolder(m_home.at(place.path)))
            continue;
        const std::string folder = m_home.at(place.path).absolutePath();
        for (ChromeProfile& profile : m_inventory.chromeProfiles(place.path))
            m_chromiumProfiles.push_back(
                {place.browser, joinedPath(folder, profile.folder), std::move(profile.name)});
        // Older versions of Opera have one profile, which is the folder itself.
        if (place.browser == ToolGroupKind::Opera &&
            m_way.kind(m_home.at(joinedPath(place.path, "Preferences"))) == FileKind::RegularFile)
            m_chromiumProfiles.push_back({place.browser, folder, std::string(kOpera.displayName)});
    }
}

void PrivacyCatalogue::findFirefoxProfiles()
{
    std::vector<std::string> listed;
    if (m_way.isFolder(m_home.at(HomeFolder::kFirefox)))
        listed = m_inventory.firefoxProfileFolders();
    m_firefoxProfiles = foldersIn(m_home.at(HomeFolder::kFirefoxProfiles));
    std::erase_if(m_firefoxProfiles, [&](const std::string& path) {
        const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
        return name.find("default") == name.npos && std::ranges::find(listed, name) == listed.end();
    });
}

/// The user's folder of caches outside the home. Its name says nothing of whose it is, so its owner
/// must be the home's, and no other home's.
void PrivacyCatalogue::findOwnCaches()
{
    m_ownCaches.clear();
    const auto owner = ownerOf(m_disk, m_home.path());
    const auto homes = owner ? m_disk.homes() : std::vector<std::string>();
    if (!owner || std::ranges::any_of(homes, [&](const std::string& home) {
            return home != m_user && ownerOf(m_disk, "/Users/" + home) == owner;
        }))
        return;
    for (const std::string& first : foldersIn(FileURL::fileURLWithPath("/private/var/folders"))) {
        for (const std::string& second : foldersIn(FileURL::fileURLWithPath(first))) {
            std::string caches = second + "/C";
            if (m_way.isFolder(FileURL::fileURLWithPath(caches)) &&
                ownerOf(m_disk, caches) == owner)
                m_ownCaches.push_back(std::move(caches));
        }
    }
}

/// What a folder holds, up to a bound.
std::vector<FolderEntry> PrivacyCatalogue::entriesOf(const FileURL& folder, ToolItem* item)
{
    FolderListing listing = m_way.list(folder);
    if (listing.status == ListStatus::Refused)
        noteNotSeen(item, listing.reason);
    if (listing.entries.size() > kMostEntries) {
        listing.entries.resize(kMostEntries);
        m_whole = false;
    }
    return std::move(listing.entries);
}

void PrivacyCatalogue::noteNotSeen(ToolItem* item, const std::string& reason)
{
    m_allSeen = false;
    if (item)
        item->notSeen = reason;
}

/// The paths of the folders in a folder.
std::vector<std::string> PrivacyCatalogue::foldersIn(const FileURL& folder)
{
    std::vector<std::string> paths;
    for (const FolderEntry& entry : entriesOf(folder)) {
        std::string path = joinedPath(folder.absolutePath(), entry.name);
        if (m_way.isFolder(FileURL::fileURLWithPath(path)))
            paths.push_back(std::move(path));
    }
    return paths;
}

ToolGroup PrivacyCatalogue::groupOf(const tables::PrivacyGroup& row)
{
    ToolGroup group;
    group.kind = row.kind;
    group.Name = row.name;
    group.user = m_user;
    group.Img = FileURL::fileURLWithPath(row.icon);
    group.isFromAdware = row.kind == ToolGroupKind::BrowserExtensions;
    group.List = itemsOf(row);
    return group;
}

bool PrivacyCatalogue::isThere(const tables::PrivacyGroup& row, const ToolGroup& group) const
{
    return row.application.empty() || m_disk.exists(FileURL::fileURLWithPath(row.application)) ||
           std::ranges::any_of(group.List,
                               [](const ToolItem& item) { return !item.AllList.empty(); });
}

std::vector<ToolItem> PrivacyCatalogue::itemsOf(const tables::PrivacyGroup& group)
{
    std::vector<Rows> items;
    for (const tables::PrivacyRow& row : tables::kPrivacyRows) {
        if (row.set != group.rows)
            continue;
        if (items.empty() || items.back().front()->item != row.item)
            items.emplace_back();
        items.back().push_back(&row);
    }
    const auto isOfProfile = [](const Rows& rows) {
        return rows.front()->item.find("%@") != std::string_view::npos;
    };
    std::vector<ToolItem> list;
    for (const Profile& profile : m_chromiumProfiles) {
        for (const Rows& rows : items) {
            if (profile.browser == group.kind && isOfProfile(rows))
                list.push_back(
                    item(group, rows, withName(rows.front()->item, profile.name), &profile));
        }
    }
    for (const Rows& rows : items) {
        if (!isOfProfile(rows))
            list.push_back(item(group, rows, std::string(rows.front()->item)));
    }
    return list;
}

ToolItem PrivacyCatalogue::item(const tables::PrivacyGroup& group, const Rows& rows,
                                std::string name, const Profile* onlyProfile)
{
    ToolItem item = getDicForList({}, std::move(name), false);
    for (const tables::PrivacyRow* row : rows) {
        for (const std::string& folder : foldersOf(row->anchor, group, onlyProfile))
            addLocations(item, *row, folder);
    }
    return item;
}

std::vector<std::string> PrivacyCatalogue::foldersOf(Anchor anchor,
                                                     const tables::PrivacyGroup& group,
                                                     const Profile* onlyProfile) const
{
    std::vector<std::string> folders;
    const auto addPlaces = [&](tables::Holds held) {
        for (const tables::BrowserPlace& place : tables::kBrowserPlaces) {
            if (place.browser == group.kind && place.holds == held)
                folders.push_back(m_home.at(place.path).absolutePath());
        }
    };
    switch (anchor) {
    case Anchor::Home:
        return {m_home.path()};
    case Anchor::Safari:
        return {m_home.at(HomeFolder::kSafari).absolutePath()};
    case Anchor::SafariContainer:
        return {m_home.at(kSafariContainer).absolutePath()};
    case Anchor::SafariProfile:
        return m_safariProfiles;
    case Anchor::FirefoxProfile:
        return m_firefoxProfiles;
    case Anchor::Container:
        return m_containers;
    case Anchor::MailVersion:
        return m_mailVersions;
    case Anchor::OwnCaches:
        return m_ownCaches;
    case Anchor::ChromiumData:
        addPlaces(tables::Holds::Profiles);
        return folders;
    case Anchor::BrowserCaches:
        addPlaces(tables::Holds::Caches);
        return folders;
    case Anchor::ChromiumProfile:
        break;
    }
    if (onlyProfile)
        return {onlyProfile->path};
    const bool isOfAll = group.rows == tables::RowSet::BrowserExtensions;
    for (const Profile& profile : m_chromiumProfiles) {
        if (isOfAll || profile.browser == group.kind)
            folders.push_back(profile.path);
    }
    return folders;
}

void PrivacyCatalogue::addLocations(ToolItem& item, const tables::PrivacyRow& row,
                                    const std::string& folder)
{
    const std::string path = row.path.empty() ? folder : joinedPath(folder, row.path);
    if (row.take == Take::Item || row.take == Take::Contents) {
        addLocation(item, path, row.take, {}, row.isDear);
        return;
    }
    const auto slash = path.rfind('/');
    const std::string parent = path.substr(0, slash);
    const std::string_view name = std::string_view(path).substr(slash + 1);
    for (const FolderEntry& entry : entriesOf(FileURL::fileURLWithPath(parent), &item)) {
        const bool isMeant =
            row.take == Take::NamedFrom
                ? entry.name.starts_with(name)
                : entry.kind != FileKind::Folder && containsIgnoringCase(entry.name, name);
        if (isMeant)
            addLocation(item, joinedPath(parent, entry.name), Take::Item, {});
    }
}

/// Adds the location where something stands there; a link goes itself.
void PrivacyCatalogue::addLocation(ToolItem& item, const std::string& path, Take take,
                                   std::string_view browser, bool isDear)
{
    ToolLocation location;
    location.scope = take == Take::Contents ? RemovalScope::ContentsOf : RemovalScope::Item;
    location.url = FileURL::fileURLWithPath(take == Take::Contents ? path + "/" : path);
    location.kind = m_way.kind(location.url);
    if (location.kind == FileKind::Unknown)
        noteNotSeen(&item, "a folder on the way cannot be searched");
    if (location.kind == FileKind::Missing || location.kind == FileKind::Unknown)
        return;
    location.browser = browser;
    location.isDear = isDear;
    item.AllList.push_back(std::move(location));
}

void PrivacyCatalogue::addExtensions(const std::vector<ToolGroupKind>& browsers,
                                     std::vector<ToolItem>& items)
{
    for (const ToolGroupKind kind : browsers) {
        const tables::PrivacyGroup& browser = tableGroup(kind);
        ToolItem header = getDicForList({}, std::string(browser.browser) + " Extensions", false);
        header.isHeader = true;
        items.push_back(std::move(header));
        addExtensionsOf(browser, items);
    }
}

void PrivacyCatalogue::addExtensionsOf(const tables::PrivacyGroup& browser,
                                       std::vector<ToolItem>& items)
{
    if (browser.kind == ToolGroupKind::Safari) {
        for (SafariExtension& extension : m_inventory.safariExtensions()) {
            if (m_way.kind(extension.url) != FileKind::Missing)
                addExtension(items, std::move(extension.name), extension.url, browser.browser);
        }
        return;
    }
    if (browser.kind == ToolGroupKind::Firefox) {
        for (const ExtensionEntry& entry : m_inventory.firefoxAddOns()) {
            addExtension(items, entry.nameExt + " v" + entry.verExt,
                         isAddOnPlace(entry.urlExt) ? entry.urlExt : FileURL(), browser.browser);
        }
        return;
    }
    for (const tables::BrowserPlace& place : tables::kBrowserPlaces) {
        if (place.browser != browser.kind || place.holds != tables::Holds::Profiles)
            continue;
        for (const ExtensionEntry& entry : m_inventory.chromeExtensions(place.path)) {
            if (m_way.isFolder(entry.urlExt))
                addExtension(items,
                             entry.nameExt + " v" + entry.verExt + " (" + entry.PersonExt + ")",
                             entry.urlExt, browser.browser);
        }
    }
}

/// Adds the extension at that location; an empty one gives an item with nothing to clean.
void PrivacyCatalogue::addExtension(std::vector<ToolItem>& items, std::string name,
                                    const FileURL& url, std::string_view browser)
{
    ToolItem item = getDicForList({}, std::move(name), true);
    if (!url.relativePath().empty())
        addLocation(item, url.absolutePath(), Take::Item, browser);
    items.push_back(std::move(item));
}

/// Whether Firefox keeps add-ons there, by the path. Its list is a file that anybody may have
/// written: what it calls an add-on might be the user's documents, or a whole profile. A link that
/// leads from such a place to another is met when the location is added.
bool PrivacyCatalogue::isAddOnPlace(const FileURL& url) const
{
    const std::string path = url.absolutePath();
    const FileURL parent = FileURL::fileURLWithPath(path.substr(0, path.rfind('/')));
    const std::string_view parentName = parent.lastPathComponent();
    const bool amongAddOns = parentName == "extensions" || parentName == "features";
    const std::string mozilla = "Library/Application Support/Mozilla/Extensions";
    const auto isIn = [&parent](const std::string& folder) {
        return parent.absolutePath().starts_with(folder + "/");
    };
    return (amongAddOns && isIn(m_home.at(HomeFolder::kFirefoxProfiles).absolutePath())) ||
           (amongAddOns && isIn(std::string(tableGroup(ToolGroupKind::Firefox).application))) ||
           isIn(m_home.at(mozilla).absolutePath()) || isIn("/" + mozilla);
}

} // namespace pryvane
