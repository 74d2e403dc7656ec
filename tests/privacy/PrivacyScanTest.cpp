// Every item of the catalogue on a planted disk: exactly its files are listed, measured and
// removed, and what lies beside them stays.
#include "privacy/ExpectedItems.h"
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
        const auto preview = previewOf(groups);
        EXPECT_EQ(preview.totals().bytes, bytes);
        EXPECT_TRUE(cleanSelected(preview, remover(), stop).stayed.empty());
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
    const std::vector<std::string> running{"Finder", "Google Chrome"};
    volume.folder(kHome + "/Library/Caches/Google/Chrome");
    auto preview = previewOf(groups, running);
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
    const auto outcome = cleanSelected(preview, remover(), stop);
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
    auto preview = previewOf(groups);
    ASSERT_EQ(preview.rows.size(), 52U);
    EXPECT_EQ(preview.rows[0].location.url.absolutePath(), kHome + "/.Trash/m");
    EXPECT_EQ(preview.rows[1].location.url.absolutePath(), kHome + "/.Trash/large");
    preview.rows[0].ticked = false;
    EXPECT_TRUE(cleanSelected(preview, remover(), stop).stayed.empty());
    EXPECT_TRUE(volume.contains(kHome + "/.Trash/m/deep/larger"));
    EXPECT_FALSE(volume.contains(kHome + "/.Trash/large"));
    EXPECT_FALSE(volume.contains(kHome + "/.Trash/small 49"));

    // Too much to be looked through is one row, which names what takes most.
    volume.file(kHome + "/.Trash/large", std::string(900'000, 'x'));
    for (int i = 0; i < 1001; ++i)
        volume.file(kHome + "/.Trash/small " + std::to_string(i), "x");
    sync();
    disk().forgetListings();
    preview = previewOf(groups);
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
