// What browsers' files say, and that broken ones say nothing.
#include "inventory/ExtensionFiles.h"

#include "inventory/ExtensionPermissions.h"
#include "inventory/FirefoxProfiles.h"

#include <gtest/gtest.h>

#include <string>

namespace pryvane::test {

namespace {

std::string nested(int levels, const std::string& core)
{
    std::string text = core;
    for (int i = 0; i < levels; ++i)
        text = i % 2 ? "[" + text + "]" : R"({"a":)" + text + "}";
    return text;
}

/// "folder=name" of each profile, joined with commas.
std::string profiles(std::string_view localState)
{
    std::string text;
    for (const ChromeProfile& profile : chromeProfiles(localState).entries)
        text += (text.empty() ? "" : ",") + profile.folder + "=" + profile.name;
    return text;
}

std::string addOns(std::string_view extensions)
{
    std::string text;
    for (const FirefoxAddOn& addOn : firefoxAddOns(extensions).entries)
        text += (text.empty() ? "" : ",") + addOn.name + "|" + addOn.version + "|" + addOn.location;
    return text;
}

const std::string kTwo =
    R"({"Default":{"name":"Alice","x":[1,{"name":"no"}]},"Profile 1":{"name":"Work"}})";

std::string cache(const std::string& value)
{
    return R"({"a":[{}],"profile":{"x":1,"info_cache":)" + value + R"(,"last":null},"z":"name"})";
}

} // namespace

TEST(ExtensionFiles, ChromeProfiles)
{
    const struct {
        const char* what;
        std::string json;
        const char* expected;
    } rows[] = {
        {"in the file's order", cache(kTwo), "Default=Alice,Profile 1=Work"},
        {"behind a byte-order mark", "\xef\xbb\xbf" + cache(kTwo), "Default=Alice,Profile 1=Work"},
        {"empty cache", cache("{}"), ""},
        {"a list instead", cache("[" + kTwo + "]"), ""},
        {"a text instead", cache("\"Default\""), ""},
        {"not a dictionary", "[" + cache(kTwo) + "]", ""},
        {"names missing, null or no text",
         cache(R"({"A":{},"B":{"name":null},"C":{"name":7},"D":{"name":["x"]},"E":[{"name":"x"}],)"
               R"("F":{"name":""}})"),
         "F="},
        {"the last of the same keys", cache(R"({"A":{"name":"x","name":"y"}})"), "A=y"},
        {"the same folder again", cache(R"({"A":{"name":"x"},"B":{"name":"y"},"A":{"name":"z"}})"),
         "A=z,B=y"},
        {"folders that lead elsewhere",
         cache(R"({"..":{"name":"a"},"":{"name":"b"},"a/b":{"name":"c"},".":{"name":"d"},)"
               R"("n\u0000l":{"name":"e"},"..x":{"name":"f"}})"),
         "..x=f"},
        {"100 levels beside it", cache(R"({"A":{"deep":)" + nested(100, "1") + R"(,"name":"x"}})"),
         "A=x"},
        {"511 levels", cache(R"({"A":{"deep":)" + nested(508, "1") + R"(,"name":"x"}})"), "A=x"},
        {"513 levels", cache(R"({"A":{"deep":)" + nested(509, "[]") + R"(,"name":"x"}})"), ""},
        {"a million levels", std::string(1'000'000, '['), ""},
        {"cut off", cache(kTwo).substr(0, cache(kTwo).size() - 1), ""},
        {"more behind it", cache(kTwo) + "{}", ""},
        {"a comment", cache(kTwo) + "// x", ""},
        {"a trailing comma", cache(R"({"A":{"name":"x"},})"), ""},
        {"not UTF-8", cache("{\"A\":{\"name\":\"\xff\"}}"), ""},
        {"UTF-8 elsewhere broken",
         cache(R"({"A":{"name":"x","y":")"
               "\xc3"
               R"("}})"),
         ""},
        {"nothing", "", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(profiles(row.json), row.expected) << row.what;
    std::string many;
    for (int i = 0; i < 5000; ++i)
        many += (i ? ",\"" : "\"") + std::to_string(i) + R"(":{"name":"x"})";
    const auto bounded = chromeProfiles(cache("{" + many + "}"));
    EXPECT_EQ(bounded.entries.size(), kMostProfiles);
    EXPECT_FALSE(bounded.whole);
}

TEST(ExtensionFiles, FirefoxAddOns)
{
    const struct {
        const char* what;
        std::string list;
        const char* expected;
    } rows[] = {
        {"descriptor before path, path else",
         R"({"version":"1","path":"/p","descriptor":"/d","defaultLocale":{"name":"A"}},)"
         R"({"defaultLocale":{"name":"B","creator":"x"},"path":"/q","version":"2"})",
         "A|1|/d,B|2|/q"},
        {"as today: built-in ones without a path",
         R"({"id":"formautofill@mozilla.org","path":null,"version":"1","defaultLocale":{"name":"F"}},)"
         R"({"descriptor":null,"path":"/q","version":"2","defaultLocale":{"name":"B"},)"
         R"("locales":[{"name":"Nein","locales":["de"]}],"targetApplications":[{"version":"9"}]})",
         "B|2|/q"},
        {"the default theme", R"({"path":"/p","version":"1","defaultLocale":{"name":"Default"}})",
         ""},
        {"missing or null",
         R"({"path":"/p","defaultLocale":{"name":"A"}},)"
         R"({"path":"/p","version":null,"defaultLocale":{"name":"A"}},{"path":"/p","version":"1"},)"
         R"({"path":"/p","version":"1","defaultLocale":null},{"version":"1","defaultLocale":{"name":"A"}},)"
         R"({"path":"","version":"1","defaultLocale":{"name":"A"}},7,null,"x",[{"path":"/p"}])",
         ""},
    };
    for (const auto& row : rows) {
        const std::string list = "[" + std::string(row.list) + "]";
        EXPECT_EQ(addOns(R"({"schemaVersion":36,"addons":)" + list + "}"), row.expected)
            << row.what;
        EXPECT_EQ(addOns(list), "") << row.what;
        EXPECT_EQ(addOns(R"({"addons":{"0":)" + list + "}}"), "") << row.what;
    }
}

TEST(ExtensionFiles, ManifestsAndMessages)
{
    const auto manifest = extensionManifest(R"({"version":"1.2","x":{"name":"no"},"name":"Ad"})");
    ASSERT_TRUE(manifest);
    EXPECT_EQ(manifest->name + " " + manifest->version, "Ad 1.2");
    for (const char* broken : {R"({"name":"Ad"})", R"({"name":null,"version":"1"})",
                               R"({"name":"Ad","version":1})", "[]", "{", ""})
        EXPECT_FALSE(extensionManifest(broken)) << broken;

    // Many entries may show one name.
    const std::string endless = std::string(kLongestShown - 1, 'x') + "é" + std::string(5000, 'y');
    const auto cut = extensionManifest(R"({"version":"1","name":")" + endless + R"("})");
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->name, std::string(kLongestShown - 1, 'x') + "…");

    const struct {
        const char* name;
        std::optional<std::string> key;
    } keys[] = {
        {"Plain", std::nullopt},        {"X__MSG_a__", std::nullopt},
        {"__MSG_appName__", "appName"}, {"__MSG_App_Name__", "app_name"},
        {"__MSG_MSG_App__", "App"},     {"__MSG___", ""},
        {"__MSG_A__B__", "AB"},
    };
    for (const auto& row : keys)
        EXPECT_EQ(messageKey(row.name), row.key) << row.name;
    const std::string huge = "__MSG_" + std::string(8'000'000, '_');
    EXPECT_LT(messageKey(huge)->size(), huge.size()); // in time that grows with the length only

    const char* messages =
        R"({"a":{"message":"one","description":"x"},"b":"text","c":{"message":1}})";
    EXPECT_EQ(messageText(messages, "a"), "one");
    for (const char* key : {"b", "c", "d", "message", ""})
        EXPECT_EQ(messageText(messages, key), std::nullopt) << key;
}

TEST(ExtensionFiles, PermissionsInPlainWords)
{
    const struct {
        const char* manifest;
        const char* expected;
    } rows[] = {
        {R"({"permissions":["tabs","history","downloads","nativeMessaging","<all_urls>"]})",
         "reads and changes all web sites; talks to programs on this Mac; reads the history; sees "
         "the addresses and titles of all tabs; sees and starts downloads"},
        {R"({"host_permissions":["https://*/*","https://a.example/*"],"permissions":["storage"]})",
         "reads and changes all web sites; 1 other permission"},
        {R"({"content_scripts":[{"matches":["*://a.example/*"]},{"js":["x"],"matches":)"
         R"(["https://b.example/*"]}],"permissions":["webRequest","webRequest"]})",
         "sees what pages load; reads and changes 2 web sites"},
        {R"({"permissions":[{"usb":["x"]},1,null],"optional_permissions":["history"]})", ""},
        {R"({"permissions":"history"})", ""},
        {R"({"permissions":["history"])", ""},
    };
    for (const auto& row : rows) {
        std::string words;
        for (const std::string& each : plainPermissions(manifestPermissions(row.manifest)))
            words += (words.empty() ? "" : "; ") + each;
        EXPECT_EQ(words, row.expected) << row.manifest;
    }
    EXPECT_EQ(manifestPermissions(R"({"permissions":[)" + nested(3, "1") + "]}").size(), 0U);
}

TEST(ExtensionFiles, WhereExtensionsCameFrom)
{
    const auto installs = chromeInstalls(
        R"({"extensions":{"settings":{"a":{"location":1,"from_webstore":true,"path":"a/1_0"},)"
        R"("b":{"from_webstore":false,"location":1},"c":{"location":4,"path":"/Users/al/x"},)"
        R"("d":{"location":7},"e":{"location":5},"f":{"location":"1"},"g":{"path":"g"},)"
        R"("h":[{"location":1}],"i":{"location":18446744073709551615}}}})");
    std::string text;
    for (const auto& [id, install] : installs)
        text += id + install.path + "=" + std::to_string(int(install.source)) + " ";
    EXPECT_EQ(text, "aa/1_0=1 b=2 c/Users/al/x=4 d=3 e=5 gg=0 ");
    EXPECT_TRUE(chromeInstalls(R"({"extensions":{"settings":{"a":{"location":1}}})").empty());

    text.clear();
    for (const auto& [place, install] : firefoxInstalls(
             R"({"addons":[{"path":"/p/a","location":"app-profile","foreignInstall":false,)"
             R"("installTelemetryInfo":{"source":"amo"},"userPermissions":{"permissions":["tabs"],)"
             R"("origins":["<all_urls>"]}},{"foreignInstall":true,"path":"/p/b"},)"
             R"({"path":"/p/c","location":"app-builtin"},{"path":"/p/d"},{"location":"x"}]})"))
        text += place + "=" + std::to_string(int(install.source)) + "+" +
                std::to_string(install.permissions.size()) + " ";
    EXPECT_EQ(text, "/p/a=1+2 /p/b=2+0 /p/c=5+0 /p/d=0+0 ");
}

TEST(ExtensionFiles, FirefoxProfilesLieBesideTheirList)
{
    const struct {
        const char* ini;
        const char* expected;
        bool whole;
    } rows[] = {
        {"[Profile1]\r\nPath=Profiles/a b\r\nIsRelative=1\r\n[Profile0]\nPath=Profiles/c", "a b,c",
         true},
        {"[Install4]\nPath=Profiles/x\n[General]\nVersion=2\n", "", true},
        {"[Profile0]\nPath=Profiles/a\n[Profile1]\nPath=Profiles/a\n", "a", true},
        {"[Profile0]\nIsRelative=0\nPath=Profiles/a\n", "", false},
        {"[Profile0]\nPath=Profiles/../a\n[Profile1]\nPath=Profiles/..\n", "", false},
        {"[Profile0]\nPath=a\n[Profile1]\nPath=Profiles/\n", "", false},
    };
    for (const auto& row : rows) {
        const auto folders = firefoxProfileFolders(row.ini);
        std::string text;
        for (const std::string& folder : folders.entries)
            text += (text.empty() ? "" : ",") + folder;
        EXPECT_EQ(text, row.expected) << row.ini;
        EXPECT_EQ(folders.whole, row.whole) << row.ini;
    }
}

} // namespace pryvane::test
