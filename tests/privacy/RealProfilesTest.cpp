// Profiles made by real browsers, copied to where a Mac keeps them, are listed and measured.
#include "support/CleanerFixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace pryvane::test {

namespace {

class RealProfilesTest : public CleanerFixture {
protected:
    /// Runs a browser without a window, a home and, where that can be had, a network.
    static bool runs(const TemporaryFolder& work, const std::string& command)
    {
        const std::string shell =
            "cd '" + work.path() +
            "' && mkdir -p home && export HOME=$PWD/home XDG_CACHE_HOME= "
            "XDG_CONFIG_HOME= && N=; unshare -n true 2>/dev/null && N='unshare -n'; "
            "timeout -k 5 60 $N " +
            command + " >log 2>&1";
        return std::system(shell.c_str()) == 0;
    }
    void copy(const std::string& from, const std::string& to)
    {
        volume.folder(to.substr(0, to.rfind('/')));
        const std::string shell = "cp -a '" + from + "' '" + volume.hostPath(to) + "' && sync";
        ASSERT_EQ(std::system(shell.c_str()), 0);
    }
    void expectItemsOf(const std::vector<ToolGroup>& groups, const ChromeProfile& profile);
    void expectUnpacked(const std::string& folder);

    /// The items of the group that have something to clean, without those of extensions.
    std::vector<std::string> filled(const std::vector<ToolGroup>& groups, const std::string& name)
    {
        std::vector<std::string> items;
        for (const ToolGroup& group : groups) {
            for (const ToolItem& item : group.List) {
                std::int64_t bytes = 0;
                for (const ToolLocation& location : item.AllList)
                    bytes += naiveSize(volume.hostPath(location.url.absolutePath()));
                EXPECT_EQ(item.bytes, bytes) << item.NameText;
                if (group.Name == name && item.isEnabled)
                    items.push_back(item.NameText);
            }
        }
        return items;
    }
};

} // namespace

/// What each item of a profile holds, of what the browser really made.
void RealProfilesTest::expectItemsOf(const std::vector<ToolGroup>& groups,
                                     const ChromeProfile& profile)
{
    const std::pair<const char*, std::vector<std::string>> items[] = {
        {"Cookies", {"Cookies", "Cookies-journal", "Network/Cookies", "Network/Cookies-journal"}},
        {"History", {"History", "History-journal", "History Provider Cache"}},
        {"Login Data",
         {"Login Data", "Login Data-journal", "Login Data For Account",
          "Login Data For Account-journal"}},
        {"LastSession",
         {"Session Storage", "Sessions", "Last Session", "Last Tabs", "Current Session",
          "Current Tabs"}},
        {"User preferences", {"Preferences", "Secure Preferences"}},
        {"Favicons", {"Favicons", "Favicons-journal"}},
        {"Local Storage",
         {"databases", "File System", "IndexedDB", "Local Storage", "Storage", "Web Data",
          "Web Data-journal", "Service Worker/Database"}},
    };
    std::size_t found = 0;
    for (const auto& [name, files] : items) {
        std::vector<std::string> there, listed;
        for (const std::string& file : files) {
            const std::string path = kChromeFolder + "/" + profile.folder + "/" + file;
            if (volume.contains(path))
                there.push_back(path);
        }
        found += there.size();
        for (const ToolGroup& group : groups) {
            for (const ToolItem& item : group.List) {
                if (group.Name != "Chrome" || item.NameText != name + (" (" + profile.name) + ")")
                    continue;
                for (const ToolLocation& location : item.AllList)
                    listed.push_back(location.url.absolutePath());
            }
        }
        EXPECT_THAT(listed, testing::UnorderedElementsAreArray(there)) << name;
    }
    EXPECT_GT(found, 10U) << "no longer laid out as real ones are";
}

/// The extension that was loaded from a folder, which is on no Mac's disk; put there by hand.
void RealProfilesTest::expectUnpacked(const std::string& folder)
{
    volume.file(folder + "/manifest.json",
                R"({"manifest_version":3,"name":"From a folder","version":"2.5",)"
                R"("permissions":["history","nativeMessaging"],)"
                R"("host_permissions":["<all_urls>"]})");
    std::size_t count = 0;
    for (const ExtensionFact& fact : inventory().extensionFacts()) {
        if (fact.entry.nameExt != "From a folder")
            continue;
        ++count;
        EXPECT_EQ(fact.browser, "Chrome");
        EXPECT_EQ(fact.source, ExtensionSource::Unpacked);
        EXPECT_THAT(fact.permissions,
                    testing::ElementsAre("reads and changes all web sites",
                                         "talks to programs on this Mac", "reads the history"));
    }
    EXPECT_EQ(count, 2U) << "of two profiles";
}

TEST_F(RealProfilesTest, Chromium)
{
    const TemporaryFolder work;
    work.file("/unpacked/manifest.json",
              R"({"manifest_version":3,"name":"From a folder","version":"2.5",)"
              R"("permissions":["history","nativeMessaging"],"host_permissions":["<all_urls>"]})");
    for (const char* profile : {"Default", "Profile 1"}) {
        if (!runs(work, "chromium --headless=new --no-sandbox --disable-gpu --no-first-run "
                        "--disable-dev-shm-usage --disable-background-networking "
                        "--disable-component-update --load-extension=$PWD/unpacked "
                        "--user-data-dir=$PWD/profile '--profile-directory=" +
                            std::string(profile) + "' --dump-dom about:blank"))
            GTEST_SKIP() << "chromium is not installed or does not run here";
    }
    volume.folder("/Applications/Google Chrome.app");
    copy(work.path() + "/profile", kChromeFolder);
    const std::string extension = kChromeFolder + "/Default/Extensions/abcdefgh/1.5_0";
    volume.file(extension + "/manifest.json",
                R"({"manifest_version":3,"name":"__MSG_app_Name__","version":"1.5"})");
    volume.file(extension + "/_locales/de/messages.json", R"({"app_name":{"message":"Sonde"}})");
    volume.file(extension + "/_locales/en_US/messages.json", R"({"app_name":{"message":"Probe"}})");
    sync();

    const auto profiles = inventory().chromeProfiles();
    ASSERT_EQ(profiles.size(), 2U);
    EXPECT_EQ(profiles[0].folder, "Default");
    EXPECT_EQ(profiles[1].folder, "Profile 1");
    const auto entries = inventory().getChromeExtantionList();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].nameExt, "Probe");
    EXPECT_EQ(entries[0].PersonExt, profiles[0].name);
    EXPECT_EQ(entries[0].sizeExt, naiveSize(volume.hostPath(extension)));

    const std::string person = " (" + profiles[0].name + ")";
    const auto groups = privacyGroups();
    EXPECT_THAT(filled(groups, "Chrome"),
                testing::IsSupersetOf({"History" + person, "Login Data" + person,
                                       "User preferences" + person, "Favicons" + person,
                                       "Local Storage" + person}));
    EXPECT_THAT(filled(groups, "Browser_ext"), testing::Contains("Probe v1.5" + person));
    for (const ChromeProfile& profile : profiles)
        expectItemsOf(groups, profile);
    expectUnpacked(work.path() + "/unpacked");
}

TEST_F(RealProfilesTest, Firefox)
{
    const TemporaryFolder work;
    // An add-on as the user would have installed it, unsigned.
    work.file(
        "/profile/extensions/probe@example.org/manifest.json",
        R"({"manifest_version":2,"name":"__MSG_appName__","version":"1.5","default_locale":"en",)"
        R"("applications":{"gecko":{"id":"probe@example.org"}}})");
    work.file("/profile/extensions/probe@example.org/_locales/en/messages.json",
              R"({"appName":{"message":"Probe add-on"}})");
    work.file("/profile/user.js", "user_pref('xpinstall.signatures.required', false);\n"
                                  "user_pref('extensions.autoDisableScopes', 0);\n");
    if (!runs(work, "firefox-esr --headless --no-remote --profile $PWD/profile "
                    "--screenshot $PWD/shot.png about:blank"))
        GTEST_SKIP() << "firefox-esr is not installed or does not run here";
    volume.folder("/Applications/Firefox.app");
    const std::string profile = kFirefoxFolder + "/k3x9q2.default-release";
    copy(work.path() + "/profile", profile);

    // What Firefox wrote about its own place, moved along.
    std::stringstream text;
    text << std::ifstream(volume.hostPath(profile + "/extensions.json")).rdbuf();
    std::string addOns = text.str();
    const std::string before = work.path() + "/profile";
    for (auto at = addOns.find(before); at != addOns.npos; at = addOns.find(before, at))
        addOns.replace(at, before.size(), profile);
    ASSERT_NE(addOns.find("\"path\":null"), addOns.npos) << "no longer as real ones are";
    volume.file(profile + "/extensions.json", addOns);
    sync();

    const auto entries = inventory().getFirefoxExtantionList();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].nameExt + " " + entries[0].verExt, "Probe add-on 1.5");
    const std::string place = profile + "/extensions/probe@example.org";
    EXPECT_EQ(entries[0].urlExt.absolutePath(), place);
    EXPECT_EQ(entries[0].sizeExt, naiveSize(volume.hostPath(place)));
    const auto groups = privacyGroups();
    EXPECT_THAT(
        filled(groups, "Firefox"),
        testing::IsSupersetOf({"Cookies", "LastSession", "User preferences", "Local Storage"}));
    EXPECT_THAT(filled(groups, "Browser_ext"), testing::Contains("Probe add-on v1.5"));
}

/// Two profiles of real Firefox, known from its own list alone: neither is called "default".
TEST_F(RealProfilesTest, SeveralProfilesOfFirefox)
{
    const TemporaryFolder work;
    work.file("/page.html", "<script>localStorage.a = 1; document.cookie = 'a=b'</script>page");
    for (const char* profile : {"work", "play"}) {
        if (!runs(work,
                  "firefox-esr --headless --no-remote -CreateProfile " + std::string(profile)) ||
            !runs(work, "firefox-esr --headless --no-remote -P " + std::string(profile) +
                            " --screenshot $PWD/shot.png file://$PWD/page.html"))
            GTEST_SKIP() << "firefox-esr is not installed or does not run here";
    }
    const std::string support = kHome + "/Library/Application Support/Firefox";
    const std::string shell = "set -e; list=$(find '" + work.path() +
                              "/home' -name profiles.ini); cd \"$(dirname \"$list\")\"; to='" +
                              volume.hostPath(support) +
                              "'; mkdir -p \"$to/Profiles\"; cp -a *.work *.play \"$to/Profiles\"; "
                              "sed 's,^Path=,Path=Profiles/,' profiles.ini > \"$to/profiles.ini\"; "
                              "sync";
    ASSERT_EQ(std::system(shell.c_str()), 0);
    std::vector<std::string> folders;
    for (const FolderEntry& entry : disk().list(FileURL::fileURLWithPath(kFirefoxFolder)).entries)
        folders.push_back(kFirefoxFolder + "/" + entry.name);
    ASSERT_EQ(folders.size(), 2U);

    const std::pair<const char*, std::vector<std::string>> items[] = {
        {"Cookies",
         {"cookies.sqlite", "cookies.sqlite-wal", "cookies.sqlite-shm", "webappsstore.sqlite",
          "webappsstore.sqlite-wal", "webappsstore.sqlite-shm"}},
        {"Login Data", {"logins.json", "logins-backup.json", "key3.db", "key4.db"}},
        {"LastSession",
         {"sessionstore-backups", "sessionCheckpoints.json", "sessionstore.bak",
          "sessionstore.jsonlz4", "sessionstore.js"}},
        {"User preferences", {"user.js", "xulstore.json", "prefs.js"}},
        {"Favicons", {"favicons.sqlite", "favicons.sqlite-wal", "favicons.sqlite-shm"}},
        {"History, Downloads and Bookmarks",
         {"places.sqlite", "places.sqlite-wal", "places.sqlite-shm"}},
        {"Local Storage",
         {"formhistory.sqlite", "persdict.dat", "search.sqlite", "permissions.sqlite",
          "content-prefs.sqlite", "cert8.db", "secmod.db", "searchplugins", "mimeTypes.rdf",
          "formhistory.sqlite-wal", "formhistory.sqlite-shm", "content-prefs.sqlite-wal",
          "content-prefs.sqlite-shm", "storage/temporary"}},
    };
    const auto groups = privacyGroups();
    static_cast<void>(filled(groups, "Firefox")); // every item's size is that of its files
    const auto firefox = std::ranges::find(groups, "Firefox", &ToolGroup::Name);
    ASSERT_NE(firefox, groups.end());
    std::size_t found = 0;
    for (const auto& [name, files] : items) {
        std::vector<std::string> there, listed;
        for (const std::string& folder : folders)
            for (const std::string& file : files)
                if (volume.contains(folder + "/" + file))
                    there.push_back(folder + "/" + file);
        found += there.size();
        for (const ToolItem& item : firefox->List)
            for (const ToolLocation& location : item.AllList)
                if (item.NameText == name)
                    listed.push_back(location.url.absolutePath());
        EXPECT_THAT(listed, testing::UnorderedElementsAreArray(there)) << name;
    }
    EXPECT_GT(found, 15U) << "no longer laid out as real ones are";
}

} // namespace pryvane::test
