// Every item of the catalogue on a planted disk: exactly its files are listed, measured and
// removed, and what lies beside them stays.
#include "privacy/PrivacyCleaning.h"
#include "support/CleanerFixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <map>

namespace pryvane::test {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// What an item holds on the planted disk, written down by hand: absolute, or below the home. "C1/"
/// and "C2/" are Chrome's profiles, "F1/" and "F2/" Firefox's, "A/" and "B/" two containers.
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
        {"C1/", kChromeFolder + "/Default/"},
        {"C2/", kChromeFolder + "/Profile 1/"},
        {"F1/", kFirefoxFolder + "/abc.default/"},
        {"F2/", kFirefoxFolder + "/xyz.default-release/"},
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
        volume.file(beside.insert(whole.size() - name.size() / 2, "~"), "beside it");
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

        item->isChecked = true;
        const StopFlag never;
        const auto preview = previewCleaning(selectedRows(groups), {}, remover(), never);
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
    std::size_t count = 0;
    for (const auto& [group, list] : items)
        count += list.size();
    EXPECT_EQ(count, expectedItems().size() + 7 + 3);
    EXPECT_THAT(items["Browser_ext"],
                ElementsAre("Safari Extensions", "Google Chrome Extensions", "Firefox Extensions",
                            "Reset Browsers Preferences to Defaults"));
    for (const char* name : {"Firefox.app", "Mail.app", "Safari.app", "Google Chrome.app"})
        volume.remove(std::string("/Applications/") + name);
    names.clear();
    for (const ToolGroup& group : privacyGroups())
        names.push_back(group.Name);
    EXPECT_THAT(names, ElementsAre("System", "Flash"));
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
    auto preview = previewCleaning(selectedRows(groups), running, remover(), never);
    EXPECT_THAT(preview.openBrowsers(), ElementsAre("Google Chrome"));
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
    ASSERT_EQ(outcome.stayed.size(), 1U);
    EXPECT_EQ(outcome.stayed[0].url.absolutePath(), kChromeFolder + "/Default/Cookies");
    EXPECT_EQ(outcome.stayed[0].reason, "Google Chrome is running; close it and try again");
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
