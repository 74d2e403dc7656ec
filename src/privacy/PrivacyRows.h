#pragma once

#include "privacy/PrivacyTable.h"

#include <cstdint>
#include <string_view>

/// Which files make which item of the privacy tools.
namespace pryvane::tables {

/// Where a row's path begins.
enum class Anchor : std::uint8_t {
    Home,
    Safari,          ///< "Library/Safari"
    SafariContainer, ///< "Data/Library" of Safari's container
    SafariProfile,   ///< every profile but the first, in Safari's container
    ChromiumProfile, ///< the item's profile, or every profile where the item is not one profile's
    ChromiumData,    ///< the folder in which the browser's profiles are
    BrowserCaches,   ///< the places of the browser's caches
    FirefoxProfile,  ///< every profile in "profiles.ini" or with "default" in its folder's name
    Container,       ///< every folder of "Library/Containers"
    MailVersion,     ///< every folder "V" and a number of "Library/Mail"
    OwnCaches,       ///< the user's folder of caches in /private/var/folders, by its owner
};

/// What a row takes at its path.
enum class Take : std::uint8_t {
    Item,         ///< the file or folder itself
    Contents,     ///< what the folder holds, but not the folder
    FilesNamedSo, ///< the files whose name contains the path's last one, whatever its letter case
    NamedFrom,    ///< what has a name that begins with the path's last one
};

/// One location of an item. Rows of the same set and item stand together and make one item; an item
/// with "%@" in its name is made once for each profile of the browser, with the profile's name.
struct PrivacyRow {
    RowSet set;
    std::string_view item;
    Anchor anchor;
    std::string_view path; ///< empty: the anchor itself
    Take take = Take::Item;
    bool isDear = false; ///< cannot be had back, though the rest of the item can
};

// clang-format off
inline constexpr PrivacyRow kPrivacyRows[] = {
    {RowSet::Safari, "Cookies", Anchor::Home, "Library/Cookies/com.apple.Safari.SafeBrowsing.binarycookies"},
    {RowSet::Safari, "Cookies", Anchor::Home, "Library/Cookies/Cookies.binarycookies"},
    // Not checked on a Mac.
    {RowSet::Safari, "Cookies", Anchor::SafariContainer, "Cookies/Cookies.binarycookies"},
    {RowSet::Safari, "Browser Caches", Anchor::Home, "Library/Caches/com.apple.Safari"},
    // Not checked on a Mac.
    {RowSet::Safari, "Browser Caches", Anchor::SafariContainer, "Caches/com.apple.Safari"},
    {RowSet::Safari, "Browser Caches", Anchor::SafariContainer, "Caches/WebKit"},
    {RowSet::Safari, "History", Anchor::Safari, "History.db"},
    {RowSet::Safari, "History", Anchor::Safari, "HistoryIndex.sk"},
    {RowSet::Safari, "History", Anchor::Safari, "History.db-wal"},
    {RowSet::Safari, "History", Anchor::Safari, "History.db-shm"},
    // Not checked on a Mac.
    {RowSet::Safari, "History", Anchor::SafariProfile, "History.db"},
    {RowSet::Safari, "History", Anchor::SafariProfile, "History.db-wal"},
    {RowSet::Safari, "History", Anchor::SafariProfile, "History.db-shm"},
    {RowSet::Safari, "Downloads", Anchor::Safari, "Downloads.plist"},
    {RowSet::Safari, "LastSession", Anchor::Safari, "LastSession.plist"},
    {RowSet::Safari, "LastSession", Anchor::Safari, "RecentlyClosedTabs.plist"},
    // Not checked on a Mac.
    {RowSet::Safari, "LastSession", Anchor::SafariContainer, "Safari/RecentlyClosedTabs.plist"},
    {RowSet::Safari, "User preferences", Anchor::Safari, "Configurations.plist.signed"},
    {RowSet::Safari, "Favicons", Anchor::Safari, "Touch Icons"},
    {RowSet::Safari, "Favicons", Anchor::Safari, "WebpageIcons"},
    // Not checked on a Mac.
    {RowSet::Safari, "Favicons", Anchor::Safari, "Touch Icons Cache"},
    {RowSet::Safari, "Favicons", Anchor::Safari, "Favicon Cache"},
    {RowSet::Safari, "Favicons", Anchor::SafariProfile, "Touch Icons Cache"},
    {RowSet::Safari, "Favicons", Anchor::SafariProfile, "Favicon Cache"},
    {RowSet::Safari, "TopSites", Anchor::Safari, "TopSites.plist"},
    {RowSet::Safari, "Local Storage", Anchor::Safari, "LocalStorage"},
    {RowSet::Safari, "Local Storage", Anchor::Safari, "Databases"},
    // Not checked on a Mac. The second holds what sites keep for each profile.
    {RowSet::Safari, "Local Storage", Anchor::SafariContainer, "WebKit/WebsiteData"},
    {RowSet::Safari, "Local Storage", Anchor::SafariContainer, "WebKit/WebsiteDataStore"},
    {RowSet::Safari, "Reading List", Anchor::Safari, "ReadingListArchives"},
    {RowSet::Safari, "Form", Anchor::Safari, "Form Values"},
    {RowSet::Safari, "Recent Search", Anchor::Safari, "SearchDescriptions.plist"},
    {RowSet::Safari, "WebFeeds", Anchor::Safari, "WebFeedSources.plist"},
    // Not checked on a Mac. One file with open tabs, tab groups and the list of profiles.
    {RowSet::Safari, "Tabs and Tab Groups", Anchor::Safari, "SafariTabs.db"},
    {RowSet::Safari, "Tabs and Tab Groups", Anchor::Safari, "SafariTabs.db-wal"},
    {RowSet::Safari, "Tabs and Tab Groups", Anchor::Safari, "SafariTabs.db-shm"},
    {RowSet::Safari, "Tabs and Tab Groups", Anchor::SafariContainer, "Safari/SafariTabs.db"},
    {RowSet::Safari, "Tabs and Tab Groups", Anchor::SafariContainer, "Safari/SafariTabs.db-wal"},
    {RowSet::Safari, "Tabs and Tab Groups", Anchor::SafariContainer, "Safari/SafariTabs.db-shm"},

    {RowSet::Chromium, "Cookies (%@)", Anchor::ChromiumProfile, "Cookies"},
    {RowSet::Chromium, "Cookies (%@)", Anchor::ChromiumProfile, "Cookies-journal"},
    {RowSet::Chromium, "Cookies (%@)", Anchor::ChromiumProfile, "Network/Cookies"},
    {RowSet::Chromium, "Cookies (%@)", Anchor::ChromiumProfile, "Network/Cookies-journal"},
    {RowSet::Chromium, "Visited Links (%@)", Anchor::ChromiumProfile, "Visited Links"},
    {RowSet::Chromium, "History (%@)", Anchor::ChromiumProfile, "History-journal"},
    {RowSet::Chromium, "History (%@)", Anchor::ChromiumProfile, "History"},
    {RowSet::Chromium, "History (%@)", Anchor::ChromiumProfile, "History Provider Cache"},
    {RowSet::Chromium, "Login Data (%@)", Anchor::ChromiumProfile, "Login Data"},
    {RowSet::Chromium, "Login Data (%@)", Anchor::ChromiumProfile, "Login Data-journal"},
    {RowSet::Chromium, "Login Data (%@)", Anchor::ChromiumProfile, "Login Data For Account"},
    {RowSet::Chromium, "Login Data (%@)", Anchor::ChromiumProfile, "Login Data For Account-journal"},
    {RowSet::Chromium, "LastSession (%@)", Anchor::ChromiumProfile, "Session Storage"},
    {RowSet::Chromium, "LastSession (%@)", Anchor::ChromiumProfile, "Last Session"},
    {RowSet::Chromium, "LastSession (%@)", Anchor::ChromiumProfile, "Last Tabs"},
    {RowSet::Chromium, "LastSession (%@)", Anchor::ChromiumProfile, "Sessions"},
    {RowSet::Chromium, "LastSession (%@)", Anchor::ChromiumProfile, "Current Session"},
    {RowSet::Chromium, "LastSession (%@)", Anchor::ChromiumProfile, "Current Tabs"},
    {RowSet::Chromium, "User preferences (%@)", Anchor::ChromiumProfile, "Preferences"},
    {RowSet::Chromium, "User preferences (%@)", Anchor::ChromiumProfile, "Secure Preferences"},
    {RowSet::Chromium, "Favicons (%@)", Anchor::ChromiumProfile, "Favicons"},
    {RowSet::Chromium, "Favicons (%@)", Anchor::ChromiumProfile, "Favicons-journal"},
    {RowSet::Chromium, "Top Sites (%@)", Anchor::ChromiumProfile, "Top Sites"},
    {RowSet::Chromium, "Top Sites (%@)", Anchor::ChromiumProfile, "Top Sites-journal"},
    {RowSet::Chromium, "Local Storage (%@)", Anchor::ChromiumProfile, "databases"},
    {RowSet::Chromium, "Local Storage (%@)", Anchor::ChromiumProfile, "File System"},
    {RowSet::Chromium, "Local Storage (%@)", Anchor::ChromiumProfile, "IndexedDB"},
    {RowSet::Chromium, "Local Storage (%@)", Anchor::ChromiumProfile, "Local Storage"},
    {RowSet::Chromium, "Local Storage (%@)", Anchor::ChromiumProfile, "Storage"},
    {RowSet::Chromium, "Local Storage (%@)", Anchor::ChromiumProfile, "Web Data"},
    {RowSet::Chromium, "Local Storage (%@)", Anchor::ChromiumProfile, "Web Data-journal"},
    {RowSet::Chromium, "Local Storage (%@)", Anchor::ChromiumProfile, "Service Worker/Database"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "Application Cache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "GPUCache"},
    // What plug-ins kept for web pages; nothing that the browser would miss.
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "Pepper Data"},
    {RowSet::Chromium, "Browser Caches", Anchor::BrowserCaches, ""},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "Cache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "Code Cache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "Service Worker/CacheStorage"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "Service Worker/ScriptCache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "DawnCache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "DawnGraphiteCache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumProfile, "DawnWebGPUCache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumData, "ShaderCache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumData, "GrShaderCache"},
    {RowSet::Chromium, "Browser Caches", Anchor::ChromiumData, "GraphiteDawnCache"},

    {RowSet::Firefox, "Cookies", Anchor::FirefoxProfile, "cookies.sqlite"},
    {RowSet::Firefox, "Cookies", Anchor::FirefoxProfile, "webappsstore.sqlite"},
    {RowSet::Firefox, "Cookies", Anchor::FirefoxProfile, "chromeappsstore.sqlite"},
    {RowSet::Firefox, "Cookies", Anchor::FirefoxProfile, "cookies.sqlite-wal"},
    {RowSet::Firefox, "Cookies", Anchor::FirefoxProfile, "cookies.sqlite-shm"},
    {RowSet::Firefox, "Cookies", Anchor::FirefoxProfile, "webappsstore.sqlite-wal"},
    {RowSet::Firefox, "Cookies", Anchor::FirefoxProfile, "webappsstore.sqlite-shm"},
    {RowSet::Firefox, "Browser Caches", Anchor::Home, "Library/Caches/Mozilla/updates/Applications/Firefox"},
    {RowSet::Firefox, "Browser Caches", Anchor::Home, "Library/Caches/Firefox"},
    {RowSet::Firefox, "Login Data", Anchor::FirefoxProfile, "logins.json"},
    {RowSet::Firefox, "Login Data", Anchor::FirefoxProfile, "key3.db"},
    {RowSet::Firefox, "Login Data", Anchor::FirefoxProfile, "key4.db"},
    {RowSet::Firefox, "Login Data", Anchor::FirefoxProfile, "logins-backup.json"},
    {RowSet::Firefox, "LastSession", Anchor::FirefoxProfile, "sessionstore-backups"},
    {RowSet::Firefox, "LastSession", Anchor::FirefoxProfile, "sessionCheckpoints.json"},
    {RowSet::Firefox, "LastSession", Anchor::FirefoxProfile, "sessionstore.bak"},
    {RowSet::Firefox, "LastSession", Anchor::FirefoxProfile, "sessionstore.jsonlz4"},
    {RowSet::Firefox, "LastSession", Anchor::FirefoxProfile, "sessionstore.js"},
    {RowSet::Firefox, "User preferences", Anchor::FirefoxProfile, "user.js"},
    {RowSet::Firefox, "User preferences", Anchor::FirefoxProfile, "xulstore.json"},
    {RowSet::Firefox, "User preferences", Anchor::FirefoxProfile, "prefs.js"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "formhistory.sqlite"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "persdict.dat", Take::Item, true},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "search.sqlite"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "permissions.sqlite"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "content-prefs.sqlite"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "cert8.db", Take::Item, true},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "secmod.db", Take::Item, true},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "searchplugins", Take::Item, true},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "mimeTypes.rdf", Take::Item, true},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "formhistory.sqlite-wal"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "formhistory.sqlite-shm"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "content-prefs.sqlite-wal"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "content-prefs.sqlite-shm"},
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "storage/temporary"},
    // A folder for each site. Those beside them belong to extensions, password managers among them.
    {RowSet::Firefox, "Local Storage", Anchor::FirefoxProfile, "storage/default/http", Take::NamedFrom},
    {RowSet::Firefox, "Crash Reports", Anchor::Home, "Library/Application Support/Firefox/Crash Reports"},
    {RowSet::Firefox, "Favicons", Anchor::FirefoxProfile, "favicons.sqlite"},
    {RowSet::Firefox, "Favicons", Anchor::FirefoxProfile, "favicons.sqlite-wal"},
    {RowSet::Firefox, "Favicons", Anchor::FirefoxProfile, "favicons.sqlite-shm"},
    // One file holds all three.
    {RowSet::Firefox, "History, Downloads and Bookmarks", Anchor::FirefoxProfile, "places.sqlite"},
    {RowSet::Firefox, "History, Downloads and Bookmarks", Anchor::FirefoxProfile, "places.sqlite-wal"},
    {RowSet::Firefox, "History, Downloads and Bookmarks", Anchor::FirefoxProfile, "places.sqlite-shm"},

    // Behind the extensions themselves.
    {RowSet::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::ChromiumProfile, "Preferences"},
    {RowSet::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::FirefoxProfile, "user.js"},
    {RowSet::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::FirefoxProfile, "xulstore.json"},
    {RowSet::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::FirefoxProfile, "prefs.js"},
    {RowSet::BrowserExtensions, "Reset Browsers Preferences to Defaults", Anchor::Safari, "Configurations.plist.signed"},

    {RowSet::System, "System Cache Files", Anchor::Home, "Library/Caches", Take::Contents},
    {RowSet::System, "Applications Cache Files", Anchor::Container, "Data/Library/Caches", Take::Contents},
    {RowSet::System, "System Log Files", Anchor::Home, "Library/Logs", Take::Contents},
    {RowSet::System, "Applications Log Files", Anchor::Container, "Data/Library/Logs", Take::Contents},
    {RowSet::System, "System Downloads Log", Anchor::Home, "Library/Preferences/com.apple.LaunchServices.QuarantineEventsV", Take::FilesNamedSo},
    {RowSet::System, "Trash Files", Anchor::Home, ".Trash", Take::Contents},
    // Not checked on a Mac.
    {RowSet::System, "Quick Look Thumbnails", Anchor::OwnCaches, "com.apple.QuickLook.thumbnailcache"},
    {RowSet::System, "Quick Look Thumbnails", Anchor::OwnCaches, "com.apple.quicklook.ThumbnailsAgent"},
    // Not checked on a Mac. The sidebar's own list lies beside them and stays.
    {RowSet::System, "Recent Items", Anchor::Home, "Library/Application Support/com.apple.sharedfilelist/com.apple.LSSharedFileList.Recent", Take::NamedFrom},
    {RowSet::System, "Recent Items", Anchor::Home, "Library/Application Support/com.apple.sharedfilelist/com.apple.LSSharedFileList.ApplicationRecentDocuments", Take::NamedFrom},
    {RowSet::System, "Recent Items", Anchor::Home, "Library/Preferences/com.apple.recentitems.plist"},
    {RowSet::System, "Saved Application States", Anchor::Home, "Library/Saved Application State", Take::Contents},
    {RowSet::System, "Saved Application States", Anchor::Container, "Data/Library/Saved Application State", Take::Contents},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".bash_history"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".bash_sessions"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".zsh_history"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".zsh_sessions"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".sh_history"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".histfile"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".lesshst"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".viminfo"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".python_history"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".node_repl_history"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".sqlite_history"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".mysql_history"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".psql_history"},
    {RowSet::System, "Terminal Histories", Anchor::Home, ".local/share/fish/fish_history"},
    // Those of the whole Mac, in /Library/Logs, belong to nobody in particular and stay.
    {RowSet::System, "Diagnostic Reports", Anchor::Home, "Library/Logs/DiagnosticReports", Take::Contents},
    {RowSet::System, "Diagnostic Reports", Anchor::Home, "Library/Application Support/CrashReporter", Take::Contents},

    {RowSet::Mail, "Mail Download", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/Mail Downloads"},
    // Where versions before 10.8 kept them; not checked on a Mac.
    {RowSet::Mail, "Mail Download", Anchor::Home, "Library/Mail Downloads"},
    {RowSet::Mail, "Mail Cache Files", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/Caches"},
    {RowSet::Mail, "Mail Cache Files", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/Logs"},
    {RowSet::Mail, "Mail Cache Files", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/WebKit"},
    {RowSet::Mail, "Mail Cache Files", Anchor::Home, "Library/Containers/com.apple.mail/Data/Library/Saved Application State"},
    // Not checked on a Mac.
    {RowSet::Mail, "Mail Index", Anchor::MailVersion, "MailData/Envelope Index"},
    {RowSet::Mail, "Mail Index", Anchor::MailVersion, "MailData/Envelope Index-wal"},
    {RowSet::Mail, "Mail Index", Anchor::MailVersion, "MailData/Envelope Index-shm"},

    {RowSet::Flash, "Flash Cookies", Anchor::Home, "Library/Preferences/Macromedia/Flash Player"},
    {RowSet::Flash, "Flash Cookies", Anchor::Home, "Library/Caches/Adobe/Flash Player"},
};
// clang-format on

} // namespace pryvane::tables
