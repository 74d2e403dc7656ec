#pragma once

#include "support/CleanerFixture.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pryvane::test {

/// What an item holds on the planted disk, written down by hand: absolute, or below the home. "C1/"
/// and "C2/" are Chrome's profiles, "F1/" to "F3/" Firefox's, "A/" and "B/" two containers, "S/" is
/// what Safari's container holds for it, "S1/" a profile there. What newer versions keep elsewhere
/// stands in rows of its own.
struct Expected {
    const char* group;
    const char* item;
    std::vector<std::string> files;
};

inline const std::vector<Expected>& expectedItems()
{
    // clang-format off
    static const std::vector<Expected> items = {
        {"Safari", "Cookies", {"Library/Cookies/com.apple.Safari.SafeBrowsing.binarycookies", "Library/Cookies/Cookies.binarycookies"}},
        {"Safari", "Browser Caches", {"Library/Caches/com.apple.Safari"}},
        {"Safari", "History", {"Library/Safari/History.db", "Library/Safari/HistoryIndex.sk", "Library/Safari/History.db-wal"}},
        {"Safari", "Downloads", {"Library/Safari/Downloads.plist"}},
        {"Safari", "LastSession", {"Library/Safari/LastSession.plist"}},
        {"Safari", "User preferences", {"Library/Safari/Configurations.plist.signed"}},
        {"Safari", "Favicons", {"Library/Safari/Touch Icons", "Library/Safari/WebpageIcons"}},
        {"Safari", "TopSites", {"Library/Safari/TopSites.plist"}},
        {"Safari", "Local Storage", {"Library/Safari/LocalStorage", "Library/Safari/Databases"}},
        {"Safari", "Reading List", {"Library/Safari/ReadingListArchives"}},
        {"Safari", "Form", {"Library/Safari/Form Values"}},
        {"Safari", "Recent Search", {"Library/Safari/SearchDescriptions.plist"}},
        {"Safari", "WebFeeds", {"Library/Safari/WebFeedSources.plist"}},
        {"Chrome", "Cookies (One)", {"C1/Cookies", "C1/Cookies-journal"}},
        {"Chrome", "Visited Links (One)", {"C1/Visited Links"}},
        {"Chrome", "History (One)", {"C1/History-journal", "C1/History", "C1/History Provider Cache"}},
        {"Chrome", "Login Data (One)", {"C1/Login Data", "C1/Login Data-journal"}},
        {"Chrome", "LastSession (One)", {"C1/Session Storage", "C1/Last Session", "C1/Last Tabs"}},
        {"Chrome", "User preferences (One)", {"C1/Preferences"}},
        {"Chrome", "Favicons (One)", {"C1/Favicons", "C1/Favicons-journal"}},
        {"Chrome", "Top Sites (One)", {"C1/Top Sites", "C1/Top Sites-journal"}},
        {"Chrome", "Local Storage (One)", {"C1/databases", "C1/File System", "C1/IndexedDB", "C1/Local Storage", "C1/Storage", "C1/Web Data", "C1/Web Data-journal"}},
        {"Chrome", "Cookies (Two)", {"C2/Cookies", "C2/Cookies-journal"}},
        {"Chrome", "Login Data (Two)", {"C2/Login Data", "C2/Login Data-journal"}},
        {"Chrome", "Browser Caches", {"C1/Application Cache", "C2/Application Cache", "C1/GPUCache", "C2/GPUCache", "C1/Pepper Data", "C2/Pepper Data", "Library/Caches/Google/Chrome"}},
        {"Firefox", "Cookies", {"F1/cookies.sqlite", "F2/cookies.sqlite", "F1/webappsstore.sqlite", "F2/webappsstore.sqlite", "F1/chromeappsstore.sqlite", "F2/chromeappsstore.sqlite"}},
        {"Firefox", "Browser Caches", {"Library/Caches/Mozilla/updates/Applications/Firefox", "Library/Caches/Firefox"}},
        {"Firefox", "Login Data", {"F1/logins.json", "F1/key3.db", "F2/logins.json", "F2/key3.db"}},
        {"Firefox", "LastSession", {"F1/sessionstore-backups", "F1/sessionCheckpoints.json", "F1/sessionstore.bak", "F2/sessionstore-backups", "F2/sessionCheckpoints.json", "F2/sessionstore.bak"}},
        {"Firefox", "User preferences", {"F1/user.js", "F1/xulstore.json", "F1/prefs.js", "F2/user.js", "F2/xulstore.json", "F2/prefs.js"}},
        {"Firefox", "Local Storage", {"F1/formhistory.sqlite", "F1/persdict.dat", "F1/search.sqlite", "F1/permissions.sqlite", "F1/content-prefs.sqlite", "F1/cert8.db", "F1/secmod.db", "F1/searchplugins", "F1/mimeTypes.rdf", "F2/formhistory.sqlite", "F2/persdict.dat", "F2/search.sqlite", "F2/permissions.sqlite", "F2/content-prefs.sqlite", "F2/cert8.db", "F2/secmod.db", "F2/searchplugins", "F2/mimeTypes.rdf"}},
        {"Firefox", "Crash Reports", {"Library/Application Support/Firefox/Crash Reports"}},
        {"Browser_ext", "Reset Browsers Preferences to Defaults", {"C1/Preferences", "C2/Preferences", "F1/user.js", "F1/xulstore.json", "F1/prefs.js", "F2/user.js", "F2/xulstore.json", "F2/prefs.js", "Library/Safari/Configurations.plist.signed"}},
        {"System", "System Cache Files", {"Library/Caches/"}},
        {"System", "Applications Cache Files", {"A/Data/Library/Caches/", "B/Data/Library/Caches/"}},
        {"System", "System Log Files", {"Library/Logs/"}},
        {"System", "Applications Log Files", {"A/Data/Library/Logs/", "B/Data/Library/Logs/"}},
        {"System", "System Downloads Log", {"Library/Preferences/com.apple.LaunchServices.QuarantineEventsV2", "Library/Preferences/old.COM.apple.launchservices.quarantineeventsv.bak"}},
        {"System", "Trash Files", {".Trash/"}},
        {"System", "Quick Look Thumbnails", {"/private/var/folders/ab/cd0000gn/C/com.apple.QuickLook.thumbnailcache"}},
        {"System", "Recent Items", {"Library/Application Support/com.apple.sharedfilelist/com.apple.LSSharedFileList.RecentDocuments.sfl2", "Library/Application Support/com.apple.sharedfilelist/com.apple.LSSharedFileList.ApplicationRecentDocuments", "Library/Preferences/com.apple.recentitems.plist"}},
        {"System", "Saved Application States", {"Library/Saved Application State/", "A/Data/Library/Saved Application State/"}},
        {"System", "Terminal Histories", {".bash_history", ".zsh_history", ".zsh_sessions", ".local/share/fish/fish_history"}},
        {"System", "Diagnostic Reports", {"Library/Logs/DiagnosticReports/", "Library/Application Support/CrashReporter/"}},
        {"Safari", "Tabs and Tab Groups", {"Library/Safari/SafariTabs.db", "S/Safari/SafariTabs.db", "S/Safari/SafariTabs.db-wal"}},
        {"Safari", "Cookies", {"S/Cookies/Cookies.binarycookies"}},
        {"Safari", "Browser Caches", {"S/Caches/com.apple.Safari", "S/Caches/WebKit"}},
        {"Safari", "History", {"Library/Safari/History.db-shm", "S1/History.db", "S1/History.db-wal"}},
        {"Safari", "Local Storage", {"S/WebKit/WebsiteData", "S/WebKit/WebsiteDataStore"}},
        {"Chrome", "Cookies (One)", {"C1/Network/Cookies", "C1/Network/Cookies-journal"}},
        {"Chrome", "Login Data (One)", {"C1/Login Data For Account"}},
        {"Chrome", "LastSession (One)", {"C1/Sessions"}},
        {"Chrome", "User preferences (One)", {"C1/Secure Preferences"}},
        {"Chrome", "Local Storage (One)", {"C1/Service Worker/Database"}},
        {"Chrome", "Browser Caches", {"C1/Code Cache", "C2/Code Cache", "C1/Service Worker/CacheStorage", "C1/Service Worker/ScriptCache", "C0/ShaderCache"}},
        {"Firefox", "Cookies", {"F3/cookies.sqlite", "F1/cookies.sqlite-wal"}},
        {"Firefox", "Login Data", {"F1/key4.db", "F3/logins-backup.json"}},
        {"Firefox", "LastSession", {"F1/sessionstore.jsonlz4"}},
        {"Firefox", "Local Storage", {"F1/storage/default/https+++example.org", "F3/storage/default/http+++example.com^userContextId=1"}},
        {"Firefox", "Favicons", {"F1/favicons.sqlite"}},
        {"Firefox", "History, Downloads and Bookmarks", {"F1/places.sqlite", "F1/places.sqlite-wal", "F3/places.sqlite"}},
        {"Mail", "Mail Index", {"Library/Mail/V9/MailData/Envelope Index", "Library/Mail/V10/MailData/Envelope Index", "Library/Mail/V10/MailData/Envelope Index-wal"}},
        {"Mail", "Mail Download", {"Library/Mail Downloads"}},
        {"Mail", "Mail Download", {"Library/Containers/com.apple.mail/Data/Library/Mail Downloads"}},
        {"Mail", "Mail Cache Files", {"Library/Containers/com.apple.mail/Data/Library/Caches", "Library/Containers/com.apple.mail/Data/Library/Logs", "Library/Containers/com.apple.mail/Data/Library/WebKit", "Library/Containers/com.apple.mail/Data/Library/Saved Application State"}},
        {"Flash", "Flash Cookies", {"Library/Preferences/Macromedia/Flash Player", "Library/Caches/Adobe/Flash Player"}},
    };
    // clang-format on
    return items;
}

/// The browsers that are made like Chrome, and where they are in the home's Application Support
/// and Caches.
struct LikeChrome {
    const char* group;
    const char* folder;
    const char* caches;
};
inline constexpr LikeChrome kLikeChrome[] = {
    {"Chrome", "Google/Chrome", "Google/Chrome"},
    {"Edge", "Microsoft Edge", "Microsoft Edge"},
    {"Brave", "BraveSoftware/Brave-Browser", "BraveSoftware/Brave-Browser"},
    {"Chromium", "Chromium", "Chromium"},
    {"Vivaldi", "Vivaldi", "Vivaldi"},
    {"Opera", "com.operasoftware.Opera", "com.operasoftware.Opera"},
    {"Arc", "Arc/User Data", "company.thebrowser.Browser"},
};

inline std::string absolute(const std::string& file)
{
    const std::pair<const char*, std::string> places[] = {
        {"/", "/"},
        {"C0/", kChromeFolder + "/"},
        {"C1/", kChromeFolder + "/Default/"},
        {"C2/", kChromeFolder + "/Profile 1/"},
        {"F1/", kFirefoxFolder + "/abc.default/"},
        {"F2/", kFirefoxFolder + "/xyz.default-release/"},
        {"F3/", kFirefoxFolder + "/third/"},
        {"S/", kHome + "/Library/Containers/com.apple.Safari/Data/Library/"},
        {"S1/", kHome + "/Library/Containers/com.apple.Safari/Data/Library/Safari/Profiles/0A1B/"},
        {"A/", kHome + "/Library/Containers/com.example.a/"},
        {"B/", kHome + "/Library/Containers/com.example.b/"},
    };
    for (const auto& [mark, folder] : places) {
        if (file.starts_with(mark))
            return folder + file.substr(std::string_view(mark).size());
    }
    return kHome + "/" + file;
}

} // namespace pryvane::test
