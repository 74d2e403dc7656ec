// Profiles made by real browsers, copied to where a Mac keeps them, are listed and measured.
#include "support/CleanerFixture.h"

#include <gmock/gmock.h>

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

TEST_F(RealProfilesTest, Chromium)
{
    const TemporaryFolder work;
    if (!runs(work, "chromium --headless --no-sandbox --disable-gpu --no-first-run "
                    "--disable-dev-shm-usage --disable-background-networking "
                    "--disable-component-update --user-data-dir=$PWD/profile "
                    "--dump-dom about:blank"))
        GTEST_SKIP() << "chromium is not installed or does not run here";
    volume.folder("/Applications/Google Chrome.app");
    copy(work.path() + "/profile", kChromeFolder);
    const std::string extension = kChromeFolder + "/Default/Extensions/abcdefgh/1.5_0";
    volume.file(extension + "/manifest.json",
                R"({"manifest_version":3,"name":"__MSG_app_Name__","version":"1.5"})");
    volume.file(extension + "/_locales/de/messages.json", R"({"app_name":{"message":"Sonde"}})");
    volume.file(extension + "/_locales/en_US/messages.json", R"({"app_name":{"message":"Probe"}})");
    sync();

    const auto profiles = inventory().chromeProfiles();
    ASSERT_EQ(profiles.size(), 1U);
    EXPECT_EQ(profiles[0].folder, "Default");
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

} // namespace pryvane::test
