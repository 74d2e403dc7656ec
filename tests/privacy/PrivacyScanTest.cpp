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
using namespace std::string_literals;
using testing::ElementsAre;

class PrivacyScanTest : public CleanerFixture {
protected:
    PrivacyScanTest()
    {
        for (const char* name : {"Safari.app", "Google Chrome.app", "Firefox.app", "Mail.app",
                                 "Utilities/Adobe Flash Player Install Manager.app"})
            volume.folder(std::string("/Applications/") + name);
        chromeProfiles(R"("Default":{"name":"One"},"Profile 1":{"name":"Two"})");
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
    const auto names = [this] {
        std::vector<std::string> list;
        for (const ToolGroup& group : privacyGroups())
            list.push_back(group.Name);
        return list;
    };
    const std::vector<std::string> all{"Safari", "Chrome", "Firefox", "Browser_ext",
                                       "System", "Mail",   "Flash"};
    EXPECT_EQ(names(), all);
    // The items that the table above checks one by one, and the second profile's other seven.
    std::set<std::pair<std::string, std::string>> checked;
    for (const Expected& row : expectedItems())
        checked.insert({row.group, row.item});
    std::size_t count = 0;
    for (const ToolGroup& group : privacyGroups()) {
        count += group.List.size();
        EXPECT_EQ(group.isFromAdware, group.Name == "Browser_ext");
    }
    EXPECT_EQ(count, checked.size() + 7 + 3); // with three headings
    for (const char* name : {"Firefox.app", "Mail.app", "Safari.app", "Google Chrome.app"})
        volume.remove(std::string("/Applications/") + name);
    EXPECT_THAT(names(), ElementsAre("System", "Flash"));

    // A group is shown for its data, too: those of the system are not on each disk with a home.
    for (const char* file : {"Library/Safari/History.db", "C1/History",
                             "Library/Mail/V10/MailData/Envelope Index", "F1/cookies.sqlite"})
        plant(file);
    EXPECT_EQ(names(), all);
}

/// Each browser made like Chrome has Chrome's items, of as many bytes, from its own places.
TEST_F(PrivacyScanTest, BrowsersLikeChromeHaveItsItems)
{
    const std::string support = kHome + "/Library/Application Support/";
    const std::string caches = kHome + "/Library/Caches/";
    for (const LikeChrome& browser : kLikeChrome) {
        const std::string folder = support + browser.folder;
        chromeProfiles(R"("Default":{"name":"One"})", folder);
        for (const Expected& row : expectedItems())
            for (const std::string& file : row.files)
                if (file.starts_with("C1/"))
                    volume.file(folder + "/Default/" + file.substr(3), row.item);
        volume.file(folder + "/ShaderCache/x");
        volume.file(caches + browser.caches + "/x");
    }
    std::map<std::string, std::string> told;
    for (const ToolGroup& group : privacyGroups()) {
        const auto* browser = std::ranges::find(kLikeChrome, group.Name, &LikeChrome::group);
        for (const ToolItem& item : group.List) {
            told[group.Name] += item.NameText + " " + item.sizeText + "\n";
            for (const ToolLocation& location : item.AllList) {
                std::string path = location.url.absolutePath();
                for (const std::string& top : {support, caches})
                    if (browser != std::end(kLikeChrome) && path.starts_with(top))
                        path.erase(0,
                                   top.size() + std::string_view(top == support ? browser->folder
                                                                                : browser->caches)
                                                    .size());
                told[group.Name] += path + "\n";
            }
        }
    }
    for (const LikeChrome& browser : kLikeChrome)
        EXPECT_EQ(told[browser.group], told["Chrome"]) << browser.group;
    EXPECT_THAT(told["Chrome"], testing::HasSubstr("\n/Default/Code Cache\n"));
}

/// What lies elsewhere is no profile, whatever the list says, and that it does is told.
TEST_F(PrivacyScanTest, ABoundThatIsMetIsTold)
{
    PrivacyCatalogue catalogue(services(), "alice", stop);
    static_cast<void>(catalogue.groups());
    EXPECT_TRUE(catalogue.whole() && catalogue.allSeen());
    volume.file(kHome + "/Documents/prefs.js");
    for (const char* profile : {"IsRelative=0\nPath=/Users/alice/Documents", "Path=Profiles/../..",
                                "Path=../../Documents", "Path=Profiles/"}) {
        volume.file(kHome + "/Library/Application Support/Firefox/profiles.ini",
                    std::string("[Profile0]\n") + profile + "\n");
        for (const ToolGroup& group : catalogue.groups()) {
            for (const ToolItem& item : group.List)
                EXPECT_TRUE(item.AllList.empty() || group.Name != "Firefox") << item.NameText;
        }
        EXPECT_FALSE(catalogue.whole()) << profile;
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
    fs::permissions(volume.path(), fs::perms(0755));
    const auto close = [this](fs::perms to) {
        for (const char* folder : {"/Library/Logs", "/Library/Safari"})
            fs::permissions(volume.hostPath(kHome + folder), to);
    };
    close(fs::perms::none);
    static_cast<void>(services()); // opened while the way to it is
    const std::string notSeen = asNobody([this] {
        std::string names;
        for (const ToolGroup& group : privacyGroups()) {
            for (const ToolItem& item : group.List)
                if (!item.notSeen.empty() && (group.Name == "System" || item.NameText == "History"))
                    names += item.NameText + ";";
        }
        return names;
    });
    close(fs::perms::owner_all);
    EXPECT_EQ(notSeen, "History;System Log Files;Diagnostic Reports;");
}

TEST_F(PrivacyScanTest, ExtensionsStandUnderTheirBrowsersHeadings)
{
    const std::string safari = kHome + "/Library/Safari/Extensions";
    volume.file(safari + "/.DS_Store");
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
    volume.file(kHome + "/Documents/mine");
    std::string addOns, expected = "# Safari Extensions 0|- Block 1|# Google Chrome Extensions 0|"
                                   "- Named v2.0 (Two) 1|# Firefox Extensions 0|";
    for (const std::string& place :
         {profile + "/extensions/one.xpi", kHome + "/Documents", profile,
          profile + "/extensions/../../..", "Users/alice/Documents"s, profile + "/extensions"}) {
        expected += addOns.empty() ? "- F v1 1|" : "- F v1 0|"; // what lies elsewhere stays
        addOns += (addOns.empty() ? "" : ",") + (R"({"path":")" + place) +
                  R"(","version":"1","defaultLocale":{"name":"F"}})";
    }
    volume.file(profile + "/extensions.json", R"({"addons":[)" + addOns + "]}");
    const auto groups = privacyGroups();
    std::string texts;
    for (const ToolItem& item : groups[3].List)
        texts += (item.isHeader ? "# "
                  : item.isExt  ? "- "
                                : "") +
                 item.NameText + " " + std::to_string(item.AllList.size()) + "|";
    EXPECT_EQ(texts, expected + "Reset Browsers Preferences to Defaults 0|");
    const ToolItem& named = groups[3].List[3];
    EXPECT_EQ(named.AllList[0].url.absolutePath(), chrome);
    EXPECT_EQ(named.bytes, naiveSize(volume.hostPath(chrome)));
}

TEST_F(PrivacyScanTest, APreviewNamesBrowsersCountsOnceAndCanBeUnticked)
{
    const std::string library = kHome + "/Library", caches = library + "/Caches";
    for (const char* file : {"Library/Caches/com.apple.Safari", "Library/Caches/other",
                             "Library/Safari/History.db", "C1/Cookies"})
        plant(file);
    volume.folder(caches + "/Google/Chrome");
    sync();
    auto groups = privacyGroups();
    for (ToolGroup& group : groups) {
        for (ToolItem& item : group.List)
            item.isChecked = item.isEnabled;
    }
    auto preview = previewOf(groups, {"Finder", "Google Chrome"});
    EXPECT_THAT(preview.openBrowsers(), ElementsAre("Google Chrome"));
    std::map<std::string, std::string> held; // of what is taken by its contents, the parts
    for (const CleaningRow& row : preview.rows)
        held[row.location.url.absolutePath()] = row.blockedBy;
    EXPECT_EQ(held.at(caches + "/Google"), "Google Chrome");
    EXPECT_EQ(held.at(caches + "/other"), "");
    EXPECT_FALSE(held.contains(caches));
    EXPECT_EQ(preview.totals().bytes,
              naiveSize(volume.hostPath(caches)) +
                  naiveSize(volume.hostPath(library + "/Safari/History.db")));
    for (CleaningRow& row : preview.rows)
        row.ticked = row.item != "System Cache Files" && row.item != "History";
    const auto outcome = cleanSelected(preview, remover(), stop);
    EXPECT_FALSE(volume.contains(caches + "/com.apple.Safari"));
    EXPECT_TRUE(volume.contains(caches + "/other/some"));
    EXPECT_TRUE(volume.contains(library + "/Safari/History.db"));
    const std::string isRunning = "Google Chrome is running; close it and try again";
    const auto cookies = FileURL::fileURLWithPath(kChromeFolder + "/Default/Cookies");
    EXPECT_THAT(outcome.stayed, testing::Contains(testing::Field(&LeftOver::url, cookies)));
    for (const LeftOver& left : outcome.stayed)
        EXPECT_EQ(left.reason, isRunning) << left.url.relativePath();
    EXPECT_THAT(cleanedText(outcome),
                testing::AllOf(testing::HasSubstr("Not all"), testing::HasSubstr(isRunning)));
    ASSERT_FALSE(outcome.items.empty());
    EXPECT_EQ(outcome.items[0].item + " of " + outcome.items[0].user, "Browser Caches of alice");
    EXPECT_EQ(outcome.items[0].bytes, outcome.bytesRemoved);
}

/// However much a folder holds, what takes most of it is seen first and can be left out.
TEST_F(PrivacyScanTest, OfWhatAFolderHoldsTheLargestComesFirst)
{
    const std::string trash = kHome + "/.Trash/";
    const auto fill = [&](int small) {
        for (int i = 0; i < small; ++i)
            volume.file(trash + "small " + std::to_string(i), "x");
        volume.file(trash + "large", std::string(900'000, 'x'));
        volume.file(trash + "m/deep/larger", std::string(2'000'000, 'x'));
        sync();
        disk().forgetListings();
    };
    fill(50);
    auto groups = privacyGroups();
    find(groups, {"System", "Trash Files", {}})->isChecked = true;
    auto preview = previewOf(groups);
    ASSERT_EQ(preview.rows.size(), 52U);
    EXPECT_EQ(preview.rows[0].location.url.absolutePath(), trash + "m");
    EXPECT_EQ(preview.rows[1].location.url.absolutePath(), trash + "large");
    preview.rows[0].ticked = false;
    EXPECT_TRUE(cleanSelected(preview, remover(), stop).stayed.empty());
    EXPECT_TRUE(volume.contains(trash + "m/deep/larger"));
    EXPECT_FALSE(volume.contains(trash + "large") || volume.contains(trash + "small 49"));

    fill(1001); // too much to be looked through: one row, which names what takes most
    preview = previewOf(groups);
    ASSERT_EQ(preview.rows.size(), 1U);
    EXPECT_THAT(largestText(preview.rows[0]), testing::StartsWith("largest: m 2.0 MB, large "));
}

TEST_F(PrivacyScanTest, AStopTellsOnlyFinishedGroups)
{
    plant("Library/Safari/History.db");
    PrivacyProgress progress;
    for (const bool stopped : {false, true}) {
        std::vector<std::string> told;
        scanPrivacy(services(), "alice", stop, progress, [&](const ToolGroup& group) {
            told.push_back(group.Name);
            stop.request();
        });
        EXPECT_EQ(told.empty(), stopped);
        EXPECT_TRUE(told.empty() || told[0] == "Safari");
    }
}

} // namespace pryvane::test
