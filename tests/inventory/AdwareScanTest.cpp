// The inventory of a planted disk, and of disks that want to hurt whoever lists them.
#include "support/CleanerFixture.h"
#include "support/WatchedDisk.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace pryvane::test {

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class AdwareScanTest : public CleanerFixture {
protected:
    std::string extension(const std::string& profile, const std::string& id,
                          const std::string& name)
    {
        const std::string folder = kChromeFolder + "/" + profile + "/Extensions/" + id + "/1.0_0";
        volume.file(folder + "/manifest.json", R"({"name":")" + name + R"(","version":"1.0"})");
        return folder;
    }
    /// "name version (profile)" of each entry.
    static std::vector<std::string> texts(const std::vector<ExtensionEntry>& entries)
    {
        std::vector<std::string> list;
        for (const ExtensionEntry& entry : entries)
            list.push_back(entry.nameExt + " " + entry.verExt + " (" + entry.PersonExt + ")");
        return list;
    }
};

const char* const kDefaultProfile = R"("Default":{"name":"Alice"})";

} // namespace

TEST_F(AdwareScanTest, ChromeNamesComeFromTheFirstLocaleThereIs)
{
    const struct {
        const char* id;
        const char* name;
        std::vector<std::pair<const char*, const char*>> locales; // folder, messages
        const char* shown;
    } rows[] = {
        {"plain", "Plain", {}, "Plain"},
        {"ref", "__MSG_appName__", {{"en_US", R"({"appName":{"message":"Shown"}})"}}, "Shown"},
        {"lower", "__MSG_App_Name__", {{"en", R"({"app_name":{"message":"Low"}})"}}, "Low"},
        {"first",
         "__MSG_a__",
         {{"en_GB", R"({"a":{"message":"GB"}})"}, {"en", R"({"a":{"message":"EN"}})"}},
         "EN"},
        {"german", "__MSG_a__", {{"de", R"({"a":{"message":"Nein"}})"}}, "__MSG_a__"},
        {"broken", "__MSG_a__", {{"en", "{"}, {"en_US", R"({"a":{"message":"US"}})"}}, "__MSG_a__"},
    };
    chromeProfiles(kDefaultProfile);
    std::vector<std::string> expected;
    for (const auto& row : rows) {
        const std::string folder = extension("Default", row.id, row.name);
        for (const auto& [locale, messages] : row.locales)
            volume.file(folder + "/_locales/" + locale + "/messages.json", messages);
        expected.push_back(std::string(row.shown) + " 1.0 (Alice)");
    }
    EXPECT_THAT(texts(inventory().getChromeExtantionList()),
                testing::UnorderedElementsAreArray(expected));
}

TEST_F(AdwareScanTest, ChromeListsProfilesThatTheCacheNamesWithSizes)
{
    chromeProfiles(R"("Default":{"name":"Alice"},"Profile 1":{"name":"Work"},"Gone":{"name":"x"})");
    const std::string folder = extension("Default", "aaa", "One");
    volume.file(folder + "/big.js", std::string(50'000, 'x'));
    volume.link(folder + "/outside", "/usr");
    extension("Profile 1", "bbb", "Two");
    extension("Profile 2", "ccc", "Not in the cache");
    volume.folder(kChromeFolder + "/Default/Extensions/empty/1.0");
    volume.file(kChromeFolder + "/Default/Extensions/Temp");
    volume.file(kChromeFolder + "/Default/Extensions/ddd/1/no-manifest.json");
    sync();
    const auto entries = inventory().getChromeExtantionList();
    EXPECT_THAT(texts(entries), ElementsAre("One 1.0 (Alice)", "Two 1.0 (Work)"));
    EXPECT_EQ(entries[0].urlExt.absolutePath(), folder);
    EXPECT_EQ(entries[0].sizeExt, naiveSize(volume.hostPath(folder)));
}

TEST_F(AdwareScanTest, LinksMultiplyNeitherReadingNorEntriesWithoutBound)
{
    chromeProfiles(R"("Default":{"name":"Alice"},"Again":{"name":"Bob"})");
    const std::string folder = extension("Default", "real", "__MSG_a__");
    volume.file(folder + "/_locales/en/messages.json", R"({"a":{"message":"Named"}})");
    volume.link(kChromeFolder + "/Again", kChromeFolder + "/Default");
    for (int i = 0; i < 20; ++i) {
        const std::string name = std::to_string(i);
        volume.link(kChromeFolder + "/Default/Extensions/" + name, "real");
        volume.link(kChromeFolder + "/Default/Extensions/real/" + name, "1.0_0");
        volume.link(kFirefoxFolder + "/" + name, "real");
    }
    volume.file(kFirefoxFolder + "/real/extensions.json",
                R"({"addons":[{"path":"/x","version":"1","defaultLocale":{"name":"One"}}]})");
    // A manifest is read once for all links to its folder, and so are the messages.
    WatchedDisk watched(disk());
    const AdwareScan scan({watched, services().sizes}, "alice", stop);
    const auto filesRead = [&] {
        int files = 0;
        for (const auto& [path, times] : watched.read)
            files += times;
        return files;
    };
    EXPECT_EQ(scan.chromeExtensions().size(), 2U * 21 * 21);
    EXPECT_EQ(filesRead(), 3); // the list of profiles, the manifest, the messages
    EXPECT_EQ(scan.firefoxAddOns().size(), 1U);
    EXPECT_EQ(filesRead(), 4);
    EXPECT_TRUE(scan.whole());

    const FileURL profile = FileURL::fileURLWithPath(kChromeFolder + "/Default");
    const struct {
        ListingBounds bounds;
        std::size_t entries;
    } rows[] = {
        {{.extensions = 30}, 30},
        {{.folderEntries = 21 + 21 + 10}, 21 + 10},
        {{.bytesRead = 1}, 441},
    };
    for (const auto& row : rows) {
        ChromeExtensions bounded(disk(), stop, row.bounds);
        bounded.add(profile, "Alice");
        const auto found = bounded.take();
        EXPECT_FALSE(found.whole);
        EXPECT_LE(found.entries.size(), row.entries);
        EXPECT_GE(found.entries.size(), 1U);
    }
}

TEST_F(AdwareScanTest, FirefoxListsAddOnsOfAllProfiles)
{
    const std::string xpi = kFirefoxFolder + "/a.default/extensions/one.xpi";
    volume.file(xpi, std::string(30'000, 'x'));
    for (const auto& [profile, place, name] :
         {std::tuple{"a.default", R"("path":")" + xpi, "One"},
          std::tuple{"b.other", R"("descriptor":"/no)"s, "Two"}})
        volume.file(kFirefoxFolder + "/" + profile + "/extensions.json",
                    R"({"addons":[{)" + place + R"(","version":"1","defaultLocale":{"name":")" +
                        name + R"("}}]})");
    volume.file(kFirefoxFolder + "/c.default/extensions.json", "{\"addons\":[");
    volume.file(kFirefoxFolder + "/d.default");
    auto entries = inventory().getFirefoxExtantionList();
    std::ranges::sort(entries, {}, &ExtensionEntry::nameExt);
    ASSERT_THAT(texts(entries), ElementsAre("One 1 (Default)", "Two 1 (Default)"));
    EXPECT_EQ(entries[0].urlExt.absolutePath(), xpi);
    EXPECT_EQ(entries[0].sizeExt, naiveSize(volume.hostPath(xpi)));
}

TEST_F(AdwareScanTest, FoldersAreListedTheLibrarysBeforeTheHomes)
{
    const std::pair<const char*, std::vector<FileURL> (AdwareScan::*)() const> rows[] = {
        {"/Library/LaunchAgents", &AdwareScan::getLaunchAgentsList},
        {"/Library/LaunchDaemons", &AdwareScan::getLaunchDaemonsList},
        {"/Library/Application Support", &AdwareScan::getApplicationSupportList},
    };
    for (const auto& [folder, list] : rows) {
        volume.file(folder + "/sub/deeper"s);
        volume.file(kHome + folder + "/.hidden");
        EXPECT_THAT(paths((inventory().*list)()),
                    ElementsAre(folder + "/sub"s, kHome + folder + "/.hidden"));
    }
    volume.file(kHome + "/Library/Safari/Extensions/.DS_Store");
    EXPECT_THAT(paths(inventory().getSafariExtantionList()),
                ElementsAre(kHome + "/Library/Safari/Extensions/.DS_Store"));
}

TEST_F(AdwareScanTest, ApplicationsOutsidePackagesAndHiddenFolders)
{
    for (const char* path :
         {"/Applications/A.app/Contents/Inner.app/x", "/Applications/Utilities/B.app/x",
          "/Applications/C.APP/D.app/x", "/Applications/.hidden/E.app/x",
          "/Applications/F.bundle/G.app/x", "/Applications/H.appex/I.app/x",
          "/Users/alice/deep/er/J.app/x", "/Users/alice/Photos.photoslibrary/K.app/x",
          "/Users/alice/v1.2/L.app/x", "/Users/alice/.app/x"})
        volume.file(path);
    volume.file("/Applications/file.app");
    volume.link("/Applications/Linked.app", "/Applications/A.app");
    volume.link("/Users/alice/loop", "/Users/alice");
    std::string deep = "/Users/alice";
    for (int i = 0; i < 700; ++i)
        deep += "/d";
    volume.folder(deep); // below what is looked at
    const auto listed = paths(inventory().getAppList());
    EXPECT_THAT(listed,
                UnorderedElementsAre("/Applications/A.app", "/Applications/Utilities/B.app",
                                     "/Users/alice/deep/er/J.app", "/Users/alice/v1.2/L.app"));
    EXPECT_TRUE(listed.size() == 4 && listed[1].starts_with("/Applications/"));
}

} // namespace pryvane::test
