// Every item of the catalogue on a planted disk: exactly its files are listed, measured and
// removed, and what lies beside them stays.
#include "privacy/PrivacyCleaning.h"
#include "support/CleanerFixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

namespace pryvane::test {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// What an item holds on the planted disk, written down by hand: absolute, or below the home. "C1/"
/// and "C2/" are Chrome's profiles, "F1/" to "F3/" Firefox's, "A/" and "B/" two containers, "S/" is
/// what Safari's container holds for it, "S1/" a profile there. What newer versions keep elsewhere
/// stands in rows of its own.
struct Expected {
    const char* group;
    const char* item;
    std::vector<std::string> files;
};

const std::vector<Expected>& expectedItems()
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

std::string absolute(const std::string& file)
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

class PrivacyScanTest : public CleanerFixture {
protected:
    PrivacyScanTest()
    {
        for (const char* name : {"Safari.app", "Google Chrome.app", "Firefox.app", "Mail.app",
                                 "Utilities/Adobe Flash Player Install Manager.app"})
            volume.folder(std::string("/Applications/") + name);
        volume.file(
            kChromeFolder + "/Local State",
            R"({"profile":{"info_cache":{"Default":{"name":"One"},"Profile 1":{"name":"Two"}}}})");
        volume.folder(kFirefoxFolder + "/abc.default");
        volume.folder(kFirefoxFolder + "/xyz.default-release");
        volume.folder(kFirefoxFolder + "/third");
        volume.file(kHome + "/Library/Application Support/Firefox/profiles.ini",
                    "[Profile1]\r\nName=third\r\nIsRelative=1\r\nPath=Profiles/third\r\n\r\n"
                    "[Profile0]\nName=default\nIsRelative=1\nPath=Profiles/abc.default\n"
                    "[Install0]\nPath=Profiles/other\n");
        volume.folder(kHome + "/Library/Containers/com.example.a");
        volume.folder(kHome + "/Library/Containers/com.example.b");
        volume.file(kHome + "/Library/Containers/.DS_Store");
    }

    /// Plants a file, or a folder with something below it, and names that are nearly the same.
    void plant(const std::string& file)
    {
        const std::string path = absolute(file);
        const std::string whole = path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
        if (path.ends_with('/') || fs::path(path).extension().empty()) {
            volume.file(whole + "/some", std::string(5000, 'x'));
            volume.file(whole + "/deep/er/.hidden", std::string(9000, 'x'));
        } else {
            volume.file(whole, std::string(7000, 'x'));
        }
        const std::string name = whole.substr(whole.rfind('/') + 1);
        std::string beside = whole;
        // What is taken by how its name begins has neighbours that begin otherwise.
        const std::size_t kept = name.starts_with("http") ? name.size() : name.size() / 2;
        volume.file(beside.insert(whole.size() - kept, "~"), "beside it");
        if (file.starts_with("F1/"))
            volume.file(kFirefoxFolder + "/other/" + name, "x");
    }

    /// All paths of the volume, sorted.
    std::vector<std::string> tree() const
    {
        std::vector<std::string> paths;
        for (const auto& entry : fs::recursive_directory_iterator(volume.path()))
            paths.push_back(entry.path().string().substr(volume.path().size()));
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    static std::vector<std::string> paths(const CleaningOutcome& outcome)
    {
        std::vector<std::string> list;
        for (const LeftOver& left : outcome.stayed)
            list.push_back(left.url.absolutePath());
        return list;
    }

    static ToolItem* find(std::vector<ToolGroup>& groups, const Expected& row)
    {
        for (ToolGroup& group : groups) {
            for (ToolItem& item : group.List) {
                if (group.Name == row.group && item.NameText == row.item)
                    return &item;
            }
        }
        return nullptr;
    }
};

} // namespace

TEST_F(PrivacyScanTest, EveryItemListsMeasuresAndRemovesItsFilesAndNoOthers)
{
    for (const Expected& row : expectedItems()) {
        SCOPED_TRACE(std::string(row.group) + ": " + row.item);
        for (const std::string& file : row.files)
            plant(file);
        sync();
        disk().forgetListings();
        auto groups = privacyGroups();
        ToolItem* item = find(groups, row);
        ASSERT_TRUE(item);

        std::vector<std::string> listed, expected, stay = tree();
        std::int64_t bytes = 0;
        for (const ToolLocation& location : item->AllList)
            listed.push_back(location.url.relativePath());
        for (const std::string& file : row.files) {
            const std::string path = absolute(file);
            expected.push_back(path);
            bytes += naiveSize(volume.hostPath(path));
            std::erase_if(stay, [&](const std::string& it) {
                return (it == path) || it.starts_with(path.ends_with('/') ? path : path + "/");
            });
        }
        EXPECT_THAT(listed, testing::UnorderedElementsAreArray(expected));
        EXPECT_EQ(item->bytes, bytes);
        EXPECT_GT(item->bytes, 0);
        EXPECT_TRUE(item->isEnabled);

        item->isChecked = item->isMeantWhole = true;
        const StopFlag never;
        const auto preview = previewCleaning(selectedRows(groups), {}, disk(), remover(), never);
        EXPECT_EQ(preview.totals().bytes, bytes);
        EXPECT_TRUE(cleanSelected(preview, remover(), never).stayed.empty());
        EXPECT_EQ(tree(), stay);

        auto after = privacyGroups();
        item = find(after, row);
        ASSERT_TRUE(item);
        EXPECT_EQ(item->sizeText, "0 byte");
        EXPECT_FALSE(item->isEnabled);
        for (const std::string& file : row.files) {
            const std::string path = absolute(file);
            volume.remove(path.ends_with('/') ? path.substr(0, path.size() - 1) : path);
        }
    }
}

TEST_F(PrivacyScanTest, TheWholeCatalogueInItsOrder)
{
    std::map<std::string, std::vector<std::string>> items;
    std::vector<std::string> names;
    for (const ToolGroup& group : privacyGroups()) {
        names.push_back(group.Name);
        for (const ToolItem& item : group.List)
            items[group.Name].push_back(item.NameText);
        EXPECT_EQ(group.isFromAdware, group.Name == "Browser_ext");
    }
    EXPECT_THAT(names, ElementsAre("Safari", "Chrome", "Firefox", "Browser_ext", "System", "Mail",
                                   "Flash"));
    // Those that the table above checks one by one, and the second profile's other seven.
    std::set<std::pair<std::string, std::string>> checked;
    for (const Expected& row : expectedItems())
        checked.insert({row.group, row.item});
    std::size_t count = 0;
    for (const auto& [group, list] : items)
        count += list.size();
    EXPECT_EQ(count, checked.size() + 7 + 3);
    EXPECT_THAT(items["Browser_ext"],
                ElementsAre("Safari Extensions", "Google Chrome Extensions", "Firefox Extensions",
                            "Reset Browsers Preferences to Defaults"));
    for (const char* name : {"Firefox.app", "Mail.app", "Safari.app", "Google Chrome.app"})
        volume.remove(std::string("/Applications/") + name);
    names.clear();
    for (const ToolGroup& group : privacyGroups())
        names.push_back(group.Name);
    EXPECT_THAT(names, ElementsAre("System", "Flash"));

    // A group is shown for its data, too: those of the system are not on each disk with a home.
    plant("Library/Safari/History.db");
    plant("C1/History");
    plant("Library/Mail/V10/MailData/Envelope Index");
    names.clear();
    for (const ToolGroup& group : privacyGroups())
        names.push_back(group.Name);
    EXPECT_THAT(names, ElementsAre("Safari", "Chrome", "Browser_ext", "System", "Mail", "Flash"));
}

/// Each browser made like Chrome has Chrome's items, from its own places.
TEST_F(PrivacyScanTest, BrowsersLikeChromeHaveItsItems)
{
    const std::string support = kHome + "/Library/Application Support/";
    const struct {
        const char* group;
        const char* folder;
        const char* caches;
    } browsers[] = {{"Edge", "Microsoft Edge", "Microsoft Edge"},
                    {"Brave", "BraveSoftware/Brave-Browser", "BraveSoftware/Brave-Browser"},
                    {"Chromium", "Chromium", "Chromium"},
                    {"Vivaldi", "Vivaldi", "Vivaldi"},
                    {"Opera", "com.operasoftware.Opera", "com.operasoftware.Opera"},
                    {"Arc", "Arc/User Data", "company.thebrowser.Browser"}};
    std::map<std::string, std::map<std::string, std::vector<std::string>>> expected;
    for (const auto& browser : browsers) {
        const std::string profile = support + browser.folder + "/Profile 7";
        volume.file(support + browser.folder + "/Local State",
                    R"({"profile":{"info_cache":{"Profile 7":{"name":"One"}}}})");
        volume.file(profile + "/Extensions/id/1_0/manifest.json", R"({"name":"E","version":"1"})");
        volume.file(profile + "/Bookmarks");
        for (const Expected& row : expectedItems()) {
            if (std::string_view(row.group) != "Chrome" ||
                std::string_view(row.item).find("(Two)") != std::string_view::npos)
                continue;
            for (const std::string& file : row.files) {
                if (!file.starts_with("C1/"))
                    continue;
                volume.file(profile + file.substr(2));
                expected[browser.group][row.item].push_back(profile + file.substr(2));
            }
        }
        const std::string caches = kHome + "/Library/Caches/" + browser.caches;
        volume.file(caches + "/x");
        expected[browser.group]["Browser Caches"].push_back(caches);
    }
    // One profile, which is the folder itself.
    volume.file(support + "com.operasoftware.Opera/Preferences");
    volume.file(support + "com.operasoftware.Opera/History");
    expected["Opera"]["User preferences (Opera)"] = {support +
                                                     "com.operasoftware.Opera/Preferences"};
    expected["Opera"]["History (Opera)"] = {support + "com.operasoftware.Opera/History"};

    std::vector<std::string> names, extensions;
    for (const ToolGroup& group : privacyGroups()) {
        names.push_back(group.Name);
        for (const ToolItem& item : group.List) {
            if (item.isExt || item.isHeader)
                extensions.push_back(item.NameText);
            std::vector<std::string> files;
            for (const ToolLocation& location : item.AllList)
                files.push_back(location.url.absolutePath());
            if (expected.contains(group.Name)) {
                EXPECT_THAT(files,
                            testing::UnorderedElementsAreArray(expected[group.Name][item.NameText]))
                    << group.Name << ": " << item.NameText;
            }
        }
    }
    EXPECT_THAT(names,
                ElementsAre("Safari", "Chrome", "Firefox", "Edge", "Brave", "Chromium", "Vivaldi",
                            "Opera", "Arc", "Browser_ext", "System", "Mail", "Flash"));
    EXPECT_THAT(extensions, testing::IsSupersetOf({"Microsoft Edge Extensions", "E v1 (One)",
                                                   "Brave Browser Extensions", "Arc Extensions"}));
}

/// What lies elsewhere is no profile, whatever the list says, and that it does is told.
TEST_F(PrivacyScanTest, ABoundThatIsMetIsTold)
{
    PrivacyCatalogue catalogue(services(), "alice", stop);
    static_cast<void>(catalogue.groups());
    EXPECT_TRUE(catalogue.whole() && catalogue.allSeen());
    const std::string list = kHome + "/Library/Application Support/Firefox/profiles.ini";
    for (const char* profile : {"IsRelative=0\nPath=/Users/alice/Documents", "Path=Profiles/../..",
                                "Path=../../Documents", "Path=Profiles/"}) {
        volume.file(kHome + "/Documents/prefs.js");
        volume.file(list, std::string("[Profile0]\n") + profile + "\n");
        const auto groups = catalogue.groups();
        EXPECT_FALSE(catalogue.whole()) << profile;
        for (const ToolGroup& group : groups) {
            for (const ToolItem& item : group.List)
                EXPECT_TRUE(item.AllList.empty() || group.Name != "Firefox") << item.NameText;
        }
    }
}

/// Whose the folders of caches beside the home are is only to be told from their owner.
TEST_F(PrivacyScanTest, CachesOutsideTheHomeNeedAnOwnerOfTheirOwn)
{
    plant("/private/var/folders/ab/cd0000gn/C/com.apple.QuickLook.thumbnailcache");
    const auto count = [this] {
        disk().forgetListings();
        auto groups = privacyGroups();
        return find(groups, {"System", "Quick Look Thumbnails", {}})->AllList.size();
    };
    EXPECT_EQ(count(), 1U);
    volume.folder("/Users/bob"); // the same owner as alice
    EXPECT_EQ(count(), 0U);
}

/// "Nothing" is only said of what was looked at.
TEST_F(PrivacyScanTest, WhatCannotBeLookedAtIsNotCalledEmpty)
{
    plant("Library/Logs/");
    volume.file(kHome + "/Library/Safari/History.db");
    const std::string closed[] = {volume.hostPath(kHome + "/Library/Logs"),
                                  volume.hostPath(kHome + "/Library/Safari")};
    fs::permissions(volume.path(), fs::perms(0755));
    for (const std::string& folder : closed)
        fs::permissions(folder, fs::perms::none);
    static_cast<void>(services()); // opened while the way to it is
    const std::string notSeen = asNobody([this] {
        std::string names;
        for (const ToolGroup& group : privacyGroups()) {
            for (const ToolItem& item : group.List) {
                if (!item.notSeen.empty() && group.Name == "System")
                    names += item.NameText + ";";
                if (!item.notSeen.empty() && item.NameText == "History")
                    names += "History;";
            }
        }
        return names;
    });
    for (const std::string& folder : closed)
        fs::permissions(folder, fs::perms::owner_all);
    EXPECT_EQ(notSeen, "History;System Log Files;Diagnostic Reports;");
}

TEST_F(PrivacyScanTest, ExtensionsStandUnderTheirBrowsersHeadings)
{
    const std::string safari = kHome + "/Library/Safari/Extensions";
    volume.file(safari + "/.DS_Store");
    volume.file(safari + "/A.safariextz", std::string(5000, 'x'));
    volume.file(safari + "/B-1.safariextz", "x");
    volume.file(safari + "/Extensions.plist",
                "<plist version=\"1.0\"><dict><key>Installed Extensions</key><array><dict>"
                "<key>Archive File Name</key><string>B-1.safariextz</string>"
                "<key>Bundle Directory Name</key><string>Block.safariextension</string>"
                "</dict><string>x</string></array></dict></plist>");
    const std::string chrome = kChromeFolder + "/Profile 1/Extensions/aaa/2_0";
    volume.file(chrome + "/manifest.json", R"({"name":"__MSG_n__","version":"2.0"})");
    volume.file(chrome + "/_locales/en/messages.json", R"({"n":{"message":"Named"}})");
    const std::string profile = kFirefoxFolder + "/abc.default";
    volume.file(profile + "/extensions/one.xpi");
    std::string addOns;
    const std::string places[] = {
        profile + "/extensions/one.xpi",  kHome + "/Documents",    profile,
        profile + "/extensions/../../..", "Users/alice/Documents", profile + "/extensions"};
    for (const std::string& place : places) {
        addOns += (addOns.empty() ? "" : ",") + (R"({"path":")" + place) +
                  R"(","version":"1","defaultLocale":{"name":"F"}})";
    }
    volume.file(profile + "/extensions.json", R"({"addons":[)" + addOns + "]}");
    volume.file(kHome + "/Documents/mine");
    auto groups = privacyGroups();
    const auto& items = groups[3].List;
    std::vector<std::string> texts;
    for (const ToolItem& item : items) {
        texts.push_back((item.isHeader ? "# "
                         : item.isExt  ? "- "
                                       : "") +
                        item.NameText + " " + std::to_string(item.AllList.size()));
    }
    EXPECT_THAT(std::vector(texts.begin(), texts.begin() + 3),
                testing::UnorderedElementsAre("# Safari Extensions 0", "- A 1", "- Block 1"));
    EXPECT_THAT(std::vector(texts.begin() + 3, texts.end()),
                ElementsAre("# Google Chrome Extensions 0", "- Named v2.0 (Two) 1",
                            "# Firefox Extensions 0", "- F v1 1", "- F v1 0", "- F v1 0",
                            "- F v1 0", "- F v1 0", "- F v1 0",
                            "Reset Browsers Preferences to Defaults 0"));
    EXPECT_EQ(items[4].AllList[0].url.absolutePath(), chrome);
    EXPECT_EQ(items[4].bytes, naiveSize(volume.hostPath(chrome)));
}

TEST_F(PrivacyScanTest, APreviewNamesBrowsersCountsOnceAndCanBeUnticked)
{
    for (const char* file : {"Library/Caches/com.apple.Safari", "Library/Caches/other",
                             "Library/Safari/History.db", "C1/Cookies"})
        plant(file);
    sync();
    auto groups = privacyGroups();
    for (ToolGroup& group : groups) {
        for (ToolItem& item : group.List)
            item.isChecked = item.isEnabled;
    }
    const StopFlag never;
    const std::vector<std::string> running{"Finder", "Google Chrome"};
    volume.folder(kHome + "/Library/Caches/Google/Chrome");
    auto preview = previewCleaning(selectedRows(groups), running, disk(), remover(), never);
    EXPECT_THAT(preview.openBrowsers(), ElementsAre("Google Chrome"));
    std::map<std::string, std::string> held; // of what is taken by its contents, the parts
    for (const CleaningRow& row : preview.rows)
        held[row.location.url.absolutePath()] = row.blockedBy;
    EXPECT_EQ(held.at(kHome + "/Library/Caches/Google"), "Google Chrome");
    EXPECT_EQ(held.at(kHome + "/Library/Caches/other"), "");
    EXPECT_FALSE(held.contains(kHome + "/Library/Caches"));
    EXPECT_EQ(preview.totals().bytes,
              naiveSize(volume.hostPath(kHome + "/Library/Caches")) +
                  naiveSize(volume.hostPath(kHome + "/Library/Safari/History.db")));
    for (CleaningRow& row : preview.rows)
        row.ticked = row.item != "System Cache Files" && row.item != "History";
    EXPECT_EQ(preview.totals().bytes,
              naiveSize(volume.hostPath(kHome + "/Library/Caches/com.apple.Safari")));
    const auto outcome = cleanSelected(preview, remover(), never);
    EXPECT_FALSE(volume.contains(kHome + "/Library/Caches/com.apple.Safari"));
    for (const char* kept : {"/Library/Caches/other/some", "/Library/Safari/History.db"})
        EXPECT_TRUE(volume.contains(kHome + kept));
    const std::string isRunning = "Google Chrome is running; close it and try again";
    EXPECT_THAT(paths(outcome), testing::Contains(kChromeFolder + "/Default/Cookies"));
    for (const LeftOver& left : outcome.stayed)
        EXPECT_EQ(left.reason, isRunning) << left.url.relativePath();
    EXPECT_THAT(cleanedText(outcome),
                testing::AllOf(testing::HasSubstr("Not all"), testing::HasSubstr(isRunning)));
    ASSERT_FALSE(outcome.items.empty());
    EXPECT_EQ(outcome.items[0].item, "Browser Caches");
    EXPECT_EQ(outcome.items[0].bytes, outcome.bytesRemoved);
    EXPECT_EQ(outcome.items[0].user, "alice");
}

/// However much a folder holds, what takes most of it is seen first and can be left out.
TEST_F(PrivacyScanTest, OfWhatAFolderHoldsTheLargestComesFirst)
{
    for (int i = 0; i < 50; ++i)
        volume.file(kHome + "/.Trash/small " + std::to_string(i), "x");
    volume.file(kHome + "/.Trash/large", std::string(900'000, 'x'));
    volume.file(kHome + "/.Trash/m/deep/larger", std::string(2'000'000, 'x'));
    sync();
    auto groups = privacyGroups();
    find(groups, {"System", "Trash Files", {}})->isChecked = true;
    const StopFlag never;
    auto preview = previewCleaning(selectedRows(groups), {}, disk(), remover(), never);
    ASSERT_EQ(preview.rows.size(), 52U);
    EXPECT_EQ(preview.rows[0].location.url.absolutePath(), kHome + "/.Trash/m");
    EXPECT_EQ(preview.rows[1].location.url.absolutePath(), kHome + "/.Trash/large");
    preview.rows[0].ticked = false;
    EXPECT_TRUE(cleanSelected(preview, remover(), never).stayed.empty());
    EXPECT_TRUE(volume.contains(kHome + "/.Trash/m/deep/larger"));
    EXPECT_FALSE(volume.contains(kHome + "/.Trash/large"));
    EXPECT_FALSE(volume.contains(kHome + "/.Trash/small 49"));

    // Too much to be looked through is one row, which names what takes most.
    volume.file(kHome + "/.Trash/large", std::string(900'000, 'x'));
    for (int i = 0; i < 1001; ++i)
        volume.file(kHome + "/.Trash/small " + std::to_string(i), "x");
    sync();
    disk().forgetListings();
    preview = previewCleaning(selectedRows(groups), {}, disk(), remover(), never);
    ASSERT_EQ(preview.rows.size(), 1U);
    EXPECT_THAT(largestText(preview.rows[0]), testing::StartsWith("largest: m 2.0 MB, large "));
}

TEST_F(PrivacyScanTest, AStopTellsOnlyFinishedGroups)
{
    plant("Library/Safari/History.db");
    plant("Library/Logs/");
    std::vector<std::string> told;
    PrivacyProgress progress;
    const auto tell = [&](const ToolGroup& group) {
        told.push_back(group.Name);
        stop.request();
    };
    scanPrivacy(services(), "alice", stop, progress, tell);
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told[0], "Safari");
    told.clear();
    scanPrivacy(services(), "alice", stop, progress, tell);
    EXPECT_TRUE(told.empty());
}

} // namespace pryvane::test
