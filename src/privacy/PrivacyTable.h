#pragma once

#include "platform/Browsers.h"

#include <array>
#include <cstdint>
#include <string_view>

/// What the privacy tools can clean, as one table.
namespace pryvane {

enum class ToolGroupKind : std::uint8_t {
    Safari,
    Chrome,
    Firefox,
    BrowserExtensions,
    System,
    Mail,
    Flash
};

} // namespace pryvane

namespace pryvane::tables {

struct PrivacyGroup {
    ToolGroupKind kind;
    std::string_view name;
    std::string_view browser;     ///< the display name of the application that holds the data open
    std::string_view application; ///< the group is there when this is; empty: always
    std::string_view icon;
};

constexpr PrivacyGroup browserGroup(ToolGroupKind kind, const Browser& browser)
{
    return {kind, browser.displayName, browser.applicationName, browser.applicationPath,
            browser.applicationPath};
}

/// In the order in which they are shown.
inline constexpr PrivacyGroup kPrivacyGroups[] = {
    browserGroup(ToolGroupKind::Safari, kSafari),
    browserGroup(ToolGroupKind::Chrome, kChrome),
    browserGroup(ToolGroupKind::Firefox, kFirefox),
    // There when one of the three before is.
    {ToolGroupKind::BrowserExtensions, "Browser_ext", "", "", ""},
    {ToolGroupKind::System, "System", "", "", "/System/Library/CoreServices/Finder.app"},
    {ToolGroupKind::Mail, "Mail", "", "/Applications/Mail.app", "/Applications/Mail.app"},
    {ToolGroupKind::Flash, "Flash", "",
     "/Applications/Utilities/Adobe Flash Player Install Manager.app",
     "/Applications/Utilities/Adobe Flash Player Install Manager.app"},
};

/// Where a row's path begins.
enum class Anchor : std::uint8_t {
    Home,
    Safari,         ///< "Library/Safari"
    ChromeProfile,  ///< the item's profile, or every profile where the item is not one profile's
    FirefoxProfile, ///< every profile whose folder has "default" in its name
    Container,      ///< every folder of "Library/Containers"
};

/// What a row takes at its path.
enum class Take : std::uint8_t {
    Item,         ///< the file or folder itself
    Contents,     ///< what the folder holds, but not the folder
    FilesNamedSo, ///< the files whose name contains the path's last one, whatever its letter case
};

/// One location of an item. Rows of the same group and item stand together and make one item; an
/// item with "%@" in its name is made once for each Chrome profile, with the profile's name.
struct PrivacyRow {
    ToolGroupKind group;
    std::string_view item;
    Anchor anchor;
    std::string_view path;
    Take take = Take::Item;
};

// clang-format off
inline constexpr PrivacyRow kPrivacyRows[] = {
    {ToolGroupKind::Safari, "Cookies", Anchor::Home, "Library/Cookies/com.apple.Safari.SafeBrowsing.binarycookies"},
    {ToolGroupKind::Safari, "Cookies", Anchor::Home, "Library/Cookies/Cookies.binarycookies"},
    {ToolGroupKind::Safari, "Browser Caches", Anchor::Home, "Library/Caches/com.apple.Safari"},
    {ToolGroupKind::Safari, "History", Anchor::Safari, "History.db"},
    {ToolGroupKind::Safari, "History", Anchor::Safari, "HistoryIndex.sk"},
    {ToolGroupKind::Safari, "History", Anchor::Safari, "History.db-wal"},
    {ToolGroupKind::Safari, "Downloads", Anchor::Safari, "Downloads.plist"},
    {ToolGroupKind::Safari, "LastSession", Anchor::Safari, "LastSession.plist"},
    {ToolGroupKind::Safari, "User preferences", Anchor::Safari, "Configurations.plist.signed"},
    {ToolGroupKind::Safari, "Favicons", Anchor::Safari, "Touch Icons"},
    {ToolGroupKind::Safari, "Favicons", Anchor::Safari, "WebpageIcons"},
    {ToolGroupKind::Safari, "TopSites", Anchor::Safari, "TopSites.plist"},
    {ToolGroupKind::Safari, "Local Storage", Anchor::Safari, "LocalStorage"},
    {ToolGroupKind::Safari, "Local Storage", Anchor::Safari, "Databases"},
    {ToolGroupKind::Safari, "Reading List", Anchor::Safari, "ReadingListArchives"},
    {ToolGroupKind::Safari, "Form", Anchor::Safari, "Form Values"},
    {ToolGroupKind::Safari, "Recent Search", Anchor::Safari, "SearchDescriptions.plist"},
    {ToolGroupKind::Safari, "WebFeeds", Anchor::Safari, "WebFeedSources.plist"},

    {ToolGroupKind::Chrome, "Cookies (%@)", Anchor::ChromeProfile, "Cookies"},
    {ToolGroupKind::Chrome, "Cookies (%@)", Anchor::ChromeProfile, "Cookies-journal"},
    {ToolGroupKind::Chrome, "Visited Links (%@)", Anchor::ChromeProfile, "Visited Links"},
    {ToolGroupKind::Chrome, "History (%@)", Anchor::ChromeProfile, "History-journal"},
    {ToolGroupKind::Chrome, "History (%@)", Anchor::ChromeProfile, "History"},
    {ToolGroupKind::Chrome, "History (%@)", Anchor::ChromeProfile, "History Provider Cache"},
    {ToolGroupKind::Chrome, "Login Data (%@)", Anchor::ChromeProfile, "Login Data"},
    {ToolGroupKind::Chrome, "Login Data (%@)", Anchor::ChromeProfile, "Login Data-journal"},
    {ToolGroupKind::Chrome, "LastSession (%@)", Anchor::ChromeProfile, "Session Storage"},
    {ToolGroupKind::Chrome, "LastSession (%@)", Anchor::ChromeProfile, "Last Session"},
    {ToolGroupKind::Chrome, "LastSession (%@)", Anchor::ChromeProfile, "Last Tabs"},
    {ToolGroupKind::Chrome, "User preferences (%@)", Anchor::ChromeProfile, "Preferences"},
    {ToolGroupKind::Chrome, "Favicons (%@)", Anchor::ChromeProfile, "Favicons"},
    {ToolGroupKind::Chrome, "Favicons (%@)", Anchor::ChromeProfile, "Favicons-journal"},
    {ToolGroupKind::Chrome, "Top Sites (%@)", Anchor::ChromeProfile, "Top Sites"},
    {ToolGroupKind::Chrome, "Top Sites (%@)", Anchor::ChromeProfile, "Top Sites-journal"},
    {ToolGroupKind::Chrome, "Local Storage (%@)", Anchor::ChromeProfile, "databases"},
    {ToolGroupKind::Chrome, "Local Storage (%@)", Anchor::ChromeProfile, "File System"},
    {ToolGroupKind::Chrome, "Local Storage (%@)", Anchor::ChromeProfile, "IndexedDB"},
    {ToolGroupKind::Chrome, "Local Storage (%@)", Anchor::ChromeProfile, "Local Storage"},
    {ToolGroupKind::Chrome, "Local Storage (%@)", Anchor::ChromeProfile, "Storage"},
    {ToolGroupKind::Chrome, "Local Storage (%@)", Anchor::ChromeProfile, "Web Data"},
    {ToolGroupKind::Chrome, "Local Storage (%@)", Anchor::ChromeProfile, "Web Data-journal"},
    {ToolGroupKind::Chrome, "Browser Caches", Anchor::ChromeProfile, "Application Cache"},
    {ToolGroupKind::Chrome, "Browser Caches", Anchor::ChromeProfile, "GPUCache"},
    // What plug-ins kept for web pages; nothing that Chrome would miss.
    {ToolGroupKind::Chrome, "Browser Caches", Anchor::ChromeProfile, "Pepper Data"},
    {ToolGroupKind::Chrome, "Browser Caches", Anchor::Home, "Library/Caches/Google/Chrome"},

    {ToolGroupKind::Firefox, "Cookies", Anchor::FirefoxProfile, "cookies.sqlite"},
    {ToolGroupKind::Firefox, "Cookies", Anchor::FirefoxProfile, "webappsstore.sqlite"},
    {ToolGroupKind::Firefox, "Cookies", Anchor::FirefoxProfile, "chromeappsstore.sqlite"},
    {ToolGroupKind::Firefox, "Browser Caches", Anchor::Home, "Library/Caches/Mozilla/updates/Applications/Firefox"},
    {ToolGroupKind::Firefox, "Browser Caches", Anchor::Home, "Library/Caches/Firefox"},
    {ToolGroupKind::Firefox, "Login Data", Anchor::FirefoxProfile, "logins.json"},
    {ToolGroupKind::Firefox, "Login Data", Anchor::FirefoxProfile, "key3.db"},
    {ToolGroupKind::Firefox, "LastSession", Anchor::FirefoxProfile, "sessionstore-backups"},
    {ToolGroupKind::Firefox, "LastSession", Anchor::FirefoxProfile, "sessionCheckpoints.json"},
    {ToolGroupKind::Firefox, "LastSession", Anchor::FirefoxProfile, "sessionstore.bak"},
    {ToolGroupKind::Firefox, "User preferences", Anchor::FirefoxProfile, "user.js"},
    {ToolGroupKind::Firefox, "User preferences", Anchor::FirefoxProfile, "xulstore.json"},
    {ToolGroupKind::Firefox, "User preferences", Anchor::FirefoxProfile, "prefs.js"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "formhistory.sqlite"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "persdict.dat"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "search.sqlite"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "permissions.sqlite"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "content-prefs.sqlite"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "cert8.db"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "secmod.db"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "searchplugins"},
    {ToolGroupKind::Firefox, "Local Storage", Anchor::FirefoxProfile, "mimeTypes.rdf"},
    {ToolGroupKind::Firefox, "Crash Reports", Anchor::Home, "Library/Application Support/Firefox/Crash Reports"},

    // Behind the extensions themselves.
    {ToolGroupKind::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::ChromeProfile, "Preferences"},
    {ToolGroupKind::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::FirefoxProfile, "user.js"},
    {ToolGroupKind::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::FirefoxProfile, "xulstore.json"},
    {ToolGroupKind::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::FirefoxProfile, "prefs.js"},
    {ToolGroupKind::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::Safari, "Configurations.plist.signed"},

    {ToolGroupKind::System, "System Cache Files", Anchor::Home, "Library/Caches", Take::Contents},
    {ToolGroupKind::System, "Applications Cache Files", Anchor::Container, "Data/Library/Caches", Take::Contents},
    {ToolGroupKind::System, "System Log Files", Anchor::Home, "Library/Logs", Take::Contents},
    {ToolGroupKind::System, "Applications Log Files", Anchor::Container, "Data/Library/Logs", Take::Contents},
    {ToolGroupKind::System, "System Downloads Log", Anchor::Home, "Library/Preferences/com.apple.LaunchServices.QuarantineEventsV", Take::FilesNamedSo},
    {ToolGroupKind::System, "Trash Files", Anchor::Home, ".Trash", Take::Contents},

    {ToolGroupKind::Mail, "Mail Download", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/Mail Downloads"},
    {ToolGroupKind::Mail, "Mail Cache Files", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/Caches"},
    {ToolGroupKind::Mail, "Mail Cache Files", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/Logs"},
    {ToolGroupKind::Mail, "Mail Cache Files", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/WebKit"},
    {ToolGroupKind::Mail, "Mail Cache Files", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/Saved Application State"},

    {ToolGroupKind::Flash, "Flash Cookies", Anchor::Home, "Library/Preferences/Macromedia/Flash Player"},
    {ToolGroupKind::Flash, "Flash Cookies", Anchor::Home, "Library/Caches/Adobe/Flash Player"},
};
// clang-format on

} // namespace pryvane::tables
