#include "privacy/PrivacyCatalogue.h"

#include "core/Texts.h"

#include <algorithm>

namespace pryvane {

using tables::Anchor;
using tables::Take;

namespace {

const tables::PrivacyGroup& tableGroup(ToolGroupKind kind)
{
    return *std::find_if(std::begin(tables::kPrivacyGroups), std::end(tables::kPrivacyGroups),
                         [kind](const auto& group) { return group.kind == kind; });
}

/// The browser that keeps open what a row takes.
std::string_view browserOf(const tables::PrivacyRow& row)
{
    switch (row.anchor) {
    case Anchor::Safari:
        return kSafari.applicationName;
    case Anchor::ChromeProfile:
        return kChrome.applicationName;
    case Anchor::FirefoxProfile:
        return kFirefox.applicationName;
    case Anchor::Home:
    case Anchor::Container:
        break;
    }
    return tableGroup(row.group).browser;
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

} // namespace

std::vector<ToolGroup> PrivacyCatalogue::groups()
{
    m_way.forget();
    m_chromeProfiles.clear();
    if (m_way.isFolder(m_home.at(HomeFolder::kChrome)))
        m_chromeProfiles = m_inventory.chromeProfiles();
    m_firefoxProfiles = foldersIn(m_home.at(HomeFolder::kFirefoxProfiles));
    std::erase_if(m_firefoxProfiles, [](const std::string& path) {
        return path.find("default", path.rfind('/')) == path.npos;
    });
    m_containers = foldersIn(m_home.at("Library/Containers"));

    std::vector<ToolGroup> groups;
    for (const tables::PrivacyGroup& row : tables::kPrivacyGroups) {
        if (!isThere(row))
            continue;
        ToolGroup group;
        group.kind = row.kind;
        group.Name = row.name;
        group.Img = FileURL::fileURLWithPath(row.icon);
        group.isFromAdware = row.kind == ToolGroupKind::BrowserExtensions;
        if (group.isFromAdware)
            addExtensions(group.List);
        for (ToolItem& item : itemsOf(row))
            group.List.push_back(std::move(item));
        groups.push_back(std::move(group));
    }
    return groups;
}

/// The paths of the folders in a folder.
std::vector<std::string> PrivacyCatalogue::foldersIn(const FileURL& folder)
{
    std::vector<std::string> paths;
    for (const FolderEntry& entry : m_way.list(folder)) {
        std::string path = joinedPath(folder.absolutePath(), entry.name);
        if (m_way.isFolder(FileURL::fileURLWithPath(path)))
            paths.push_back(std::move(path));
    }
    return paths;
}

bool PrivacyCatalogue::isThere(const tables::PrivacyGroup& group) const
{
    if (group.kind == ToolGroupKind::BrowserExtensions) {
        return isThere(tableGroup(ToolGroupKind::Safari)) ||
               isThere(tableGroup(ToolGroupKind::Chrome)) ||
               isThere(tableGroup(ToolGroupKind::Firefox));
    }
    return group.application.empty() || m_disk.exists(FileURL::fileURLWithPath(group.application));
}

std::vector<ToolItem> PrivacyCatalogue::itemsOf(const tables::PrivacyGroup& group)
{
    std::vector<Rows> items;
    for (const tables::PrivacyRow& row : tables::kPrivacyRows) {
        if (row.group != group.kind)
            continue;
        if (items.empty() || items.back().front()->item != row.item)
            items.emplace_back();
        items.back().push_back(&row);
    }
    const auto isOfProfile = [](const Rows& rows) {
        return rows.front()->item.find("%@") != std::string_view::npos;
    };
    std::vector<ToolItem> list;
    for (const ChromeProfile& profile : m_chromeProfiles) {
        for (const Rows& rows : items) {
            if (isOfProfile(rows))
                list.push_back(item(rows, withName(rows.front()->item, profile.name), &profile));
        }
    }
    for (const Rows& rows : items) {
        if (!isOfProfile(rows))
            list.push_back(item(rows, std::string(rows.front()->item)));
    }
    return list;
}

ToolItem PrivacyCatalogue::item(const Rows& rows, std::string name,
                                const ChromeProfile* onlyProfile)
{
    ToolItem item = getDicForList({}, std::move(name), false);
    for (const tables::PrivacyRow* row : rows) {
        for (const std::string& folder : foldersOf(row->anchor, onlyProfile))
            addLocations(item, *row, folder);
    }
    return item;
}

std::vector<std::string> PrivacyCatalogue::foldersOf(Anchor anchor,
                                                     const ChromeProfile* onlyProfile) const
{
    const auto chromeFolder = [this](const ChromeProfile& profile) {
        return joinedPath(m_home.at(HomeFolder::kChrome).absolutePath(), profile.folder);
    };
    switch (anchor) {
    case Anchor::Home:
        return {m_home.path()};
    case Anchor::Safari:
        return {m_home.at(HomeFolder::kSafari).absolutePath()};
    case Anchor::FirefoxProfile:
        return m_firefoxProfiles;
    case Anchor::Container:
        return m_containers;
    case Anchor::ChromeProfile:
        break;
    }
    if (onlyProfile)
        return {chromeFolder(*onlyProfile)};
    std::vector<std::string> folders;
    for (const ChromeProfile& profile : m_chromeProfiles)
        folders.push_back(chromeFolder(profile));
    return folders;
}

void PrivacyCatalogue::addLocations(ToolItem& item, const tables::PrivacyRow& row,
                                    const std::string& folder)
{
    const std::string path = joinedPath(folder, row.path);
    if (row.take != Take::FilesNamedSo) {
        addLocation(item, path, row.take, browserOf(row));
        return;
    }
    const auto slash = path.rfind('/');
    const std::string parent = path.substr(0, slash);
    for (const FolderEntry& entry : m_way.list(FileURL::fileURLWithPath(parent))) {
        if (entry.kind != FileKind::Folder &&
            containsIgnoringCase(entry.name, std::string_view(path).substr(slash + 1)))
            addLocation(item, joinedPath(parent, entry.name), Take::Item, browserOf(row));
    }
}

/// Adds the location where something stands there; a link goes itself.
void PrivacyCatalogue::addLocation(ToolItem& item, const std::string& path, Take take,
                                   std::string_view browser)
{
    ToolLocation location;
    location.scope = take == Take::Contents ? RemovalScope::ContentsOf : RemovalScope::Item;
    location.url = FileURL::fileURLWithPath(take == Take::Contents ? path + "/" : path);
    location.kind = m_way.kind(location.url);
    if (location.kind == FileKind::Missing || location.kind == FileKind::Unknown)
        return;
    location.browser = browser;
    item.AllList.push_back(std::move(location));
}

void PrivacyCatalogue::addExtensions(std::vector<ToolItem>& items)
{
    const auto addHeader = [&](ToolGroupKind browser, const char* text) {
        if (!isThere(tableGroup(browser)))
            return false;
        ToolItem header = getDicForList({}, text, false);
        header.isHeader = true;
        items.push_back(std::move(header));
        return true;
    };
    if (addHeader(ToolGroupKind::Safari, "Safari Extensions")) {
        for (SafariExtension& extension : m_inventory.safariExtensions()) {
            if (m_way.kind(extension.url) != FileKind::Missing)
                addExtension(items, std::move(extension.name), extension.url,
                             kSafari.applicationName);
        }
    }
    if (addHeader(ToolGroupKind::Chrome, "Google Chrome Extensions")) {
        for (const ExtensionEntry& entry : m_inventory.chromeExtensions()) {
            if (!m_way.isFolder(entry.urlExt))
                continue;
            addExtension(items, entry.nameExt + " v" + entry.verExt + " (" + entry.PersonExt + ")",
                         entry.urlExt, kChrome.applicationName);
        }
    }
    if (addHeader(ToolGroupKind::Firefox, "Firefox Extensions")) {
        for (const ExtensionEntry& entry : m_inventory.firefoxAddOns()) {
            addExtension(items, entry.nameExt + " v" + entry.verExt,
                         isAddOnPlace(entry.urlExt) ? entry.urlExt : FileURL(),
                         kFirefox.applicationName);
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
