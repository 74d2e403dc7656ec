// Profiles made by real browsers, copied to where a Mac keeps them, are listed and measured.
#include "privacy/ExpectedItems.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

namespace pryvane::test {

namespace {

class RealProfilesTest : public CleanerFixture {
protected:
    /// Runs a browser without a window, a home and, where that can be had, a network.
    bool runs(const std::string& command) const
    {
        return shell("mkdir -p home && export HOME=$PWD/home XDG_CACHE_HOME= XDG_CONFIG_HOME= && "
                     "N=; unshare -n true 2>/dev/null && N='unshare -n'; timeout -k 5 60 $N " +
                     command + " >log 2>&1");
    }
    bool shell(const std::string& command) const
    {
        return std::system(("cd '" + work.path() + "' && " + command).c_str()) == 0;
    }

    /// Each item of the group's table lists what of it the browser really made in that profile.
    void expectItems(const std::string& group, const std::string& mark, const std::string& profile,
                     const std::string& person)
    {
        std::size_t found = 0;
        const auto groups = privacyGroups();
        const auto& items = std::ranges::find(groups, group, &ToolGroup::Name)->List;
        for (const Expected& row : expectedItems()) {
            std::string name = row.item; // the table's are of a profile named "One"
            if (const auto at = name.find("One"); at != std::string::npos)
                name.replace(at, 3, person);
            const auto item = std::ranges::find(items, name, &ToolItem::NameText);
            if (row.group != group || item == items.end())
                continue;
            std::int64_t bytes = 0;
            for (const ToolLocation& location : item->AllList)
                bytes += naiveSize(volume.hostPath(location.url.absolutePath()));
            EXPECT_EQ(item->bytes, bytes) << item->NameText;
            for (const std::string& file : row.files) {
                const std::string path = profile + "/" + file.substr(mark.size());
                if (!file.starts_with(mark) || !volume.contains(path))
                    continue;
                ++found;
                EXPECT_TRUE(std::ranges::any_of(item->AllList,
                                                [&](const ToolLocation& location) {
                                                    return location.url.absolutePath() == path;
                                                }))
                    << item->NameText << " without " << path;
            }
        }
        EXPECT_GT(found, 8U) << "no longer laid out as real ones are";
    }

    TemporaryFolder work;
};

} // namespace

TEST_F(RealProfilesTest, Chromium)
{
    const std::string manifest =
        R"({"manifest_version":3,"name":"From a folder","version":"2.5",)"
        R"("permissions":["history","nativeMessaging"],"host_permissions":["<all_urls>"]})";
    work.file("/unpacked/manifest.json", manifest);
    for (const char* profile : {"Default", "Profile 1"}) {
        if (!runs("chromium --headless=new --no-sandbox --disable-gpu --no-first-run "
                  "--disable-dev-shm-usage --disable-background-networking "
                  "--disable-component-update --load-extension=$PWD/unpacked "
                  "--user-data-dir=$PWD/profile '--profile-directory=" +
                  std::string(profile) + "' --dump-dom about:blank"))
            GTEST_SKIP() << "chromium is not installed or does not run here";
    }
    volume.folder("/Applications/Google Chrome.app");
    volume.folder(kChromeFolder);
    ASSERT_TRUE(shell("cp -a profile/. '" + volume.hostPath(kChromeFolder) + "' && sync"));

    const auto profiles = inventory().chromeProfiles();
    ASSERT_EQ(profiles.size(), 2U);
    EXPECT_EQ(profiles[0].folder, "Default");
    EXPECT_EQ(profiles[1].folder, "Profile 1");
    for (const ChromeProfile& profile : profiles)
        expectItems("Chrome", "C1/", kChromeFolder + "/" + profile.folder, profile.name);

    // The extension that was loaded from a folder, which is on no Mac's disk; put there by hand.
    volume.file(work.path() + "/unpacked/manifest.json", manifest);
    const auto facts = inventory().extensionFacts();
    const auto unpacked = std::ranges::find(facts, "From a folder",
                                            [](const auto& fact) { return fact.entry.nameExt; });
    ASSERT_NE(unpacked, facts.end());
    EXPECT_EQ(unpacked->browser, "Chrome");
    EXPECT_EQ(unpacked->source, ExtensionSource::Unpacked);
    EXPECT_THAT(unpacked->permissions,
                testing::ElementsAre("reads and changes all web sites",
                                     "talks to programs on this Mac", "reads the history"));
}

/// Two profiles, known from Firefox's own list alone, as neither is called "default"; in one of
/// them an add-on as the user would have installed it, unsigned.
TEST_F(RealProfilesTest, Firefox)
{
    work.file("/page.html", "<script>localStorage.a = 1; document.cookie = 'a=b'</script>page");
    const std::string addOn = "/extensions/probe@example.org";
    work.file(
        "/profile" + addOn + "/manifest.json",
        R"({"manifest_version":2,"name":"__MSG_appName__","version":"1.5","default_locale":"en",)"
        R"("applications":{"gecko":{"id":"probe@example.org"}}})");
    work.file("/profile" + addOn + "/_locales/en/messages.json",
              R"({"appName":{"message":"Probe add-on"}})");
    work.file("/profile/user.js", "user_pref('xpinstall.signatures.required', false);\n"
                                  "user_pref('extensions.autoDisableScopes', 0);\n");
    for (const std::string profile : {"work", "play"}) {
        if (!runs("firefox-esr --headless --no-remote -CreateProfile " + profile) ||
            !shell("cp -a profile/. \"$(dirname \"$(find home -name profiles.ini)\")\"/*.work") ||
            !runs("firefox-esr --headless --no-remote -P " + profile +
                  " --screenshot $PWD/shot.png file://$PWD/page.html"))
            GTEST_SKIP() << "firefox-esr is not installed or does not run here";
    }
    volume.folder(kFirefoxFolder);
    // What Firefox wrote about its own place is moved along.
    ASSERT_TRUE(shell("cd \"$(dirname \"$(find home -name profiles.ini)\")\" && to='" +
                      volume.hostPath(kFirefoxFolder) +
                      "' && cp -a *.work *.play \"$to\" && sed -i \"s,$PWD," + kFirefoxFolder +
                      ",g\" \"$to\"/*.work/extensions.json && sed 's,^Path=,Path=Profiles/,' "
                      "profiles.ini >\"$to/../profiles.ini\" && sync"));
    std::string profile; // the one with the add-on
    for (const FolderEntry& entry : disk().list(FileURL::fileURLWithPath(kFirefoxFolder)).entries) {
        const std::string folder = kFirefoxFolder + "/" + entry.name;
        expectItems("Firefox", "F1/", folder, {});
        if (entry.name.ends_with(".work"))
            profile = folder;
    }
    EXPECT_NE(contentOf(volume.hostPath(profile + "/extensions.json")).find("\"path\":null"),
              std::string::npos)
        << "no longer as real ones are";
    const auto entries = inventory().getFirefoxExtantionList();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].nameExt + " " + entries[0].verExt, "Probe add-on 1.5");
    EXPECT_EQ(entries[0].urlExt.absolutePath(), profile + addOn);
    EXPECT_EQ(entries[0].sizeExt, naiveSize(volume.hostPath(profile + addOn)));
}

} // namespace pryvane::test
