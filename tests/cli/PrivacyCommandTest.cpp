// inventory and privacy on the command line: their words, their JSON, their exit codes.
#include "cli/CliFixture.h"
#include "cli/Host.h"
#include "cli/PrivacyClear.h"
#include "platform/Remover.h"
#include "removal/disk/VolumeRemover.h"

#include <gmock/gmock.h>

namespace pryvane::test {

namespace {

using nlohmann::json;
using testing::HasSubstr;

class PrivacyCommandTest : public CliFixture {
protected:
    PrivacyCommandTest()
    {
        volume.folder("/Applications/Google Chrome.app");
        volume.folder("/Applications/Safari.app");
        volume.file(chrome + "/Local State",
                    R"({"profile":{"info_cache":{"Default":{"name":"A\nB"}}}})");
        volume.file(chrome + "/Default/Cookies", std::string(5000, 'x'));
        volume.file(chrome + "/Default/Extensions/aaa/1_0/manifest.json",
                    R"({"name":"Ad \u001b[31m","version":"1.0"})");
        volume.file("/Users/alice/Library/Cookies/Cookies.binarycookies", "x");
        volume.file("/Users/alice/Library/Logs/a.log", std::string(5000, 'x'));
        volume.file("/Library/LaunchDaemons/d.plist",
                    "<plist><dict><key>Label</key><string>d</string></dict></plist>");
    }
    Outcome on(const std::vector<std::string>& command)
    {
        return onVolume(command, {"--user", "alice"});
    }

    const std::string chrome = "/Users/alice/Library/Application Support/Google/Chrome";
};

std::vector<std::string> keysOf(const json& object)
{
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items())
        keys.push_back(key);
    return keys;
}

} // namespace

TEST_F(PrivacyCommandTest, InventoryHasEveryListInJsonAndText)
{
    const json lists = json::parse(on({"inventory", "--format", "json"}).out);
    EXPECT_THAT(keysOf(lists), testing::UnorderedElementsAre(
                                   "chrome", "firefox", "safari", "launchAgents", "launchDaemons",
                                   "applicationSupport", "applications", "extensions",
                                   "permissions", "startUp", "remoteAccess", "factSources"));
    json entry = lists["chrome"].at(0);
    EXPECT_GT(entry["sizeExt"], 0);
    entry.erase("sizeExt");
    EXPECT_EQ(entry, json({{"urlExt", chrome + "/Default/Extensions/aaa/1_0"},
                           {"verExt", "1.0"},
                           {"nameExt", "Ad \\x1b[31m"},
                           {"PersonExt", "A\\nB"}}));
    EXPECT_EQ(lists["launchDaemons"], json::array({"/Library/LaunchDaemons/d.plist"}));
    EXPECT_EQ(lists["applications"].size(), 2U);

    const auto text = on({"inventory", "--kind", "chrome", "--kind", "safari"});
    EXPECT_THAT(text, says(0, "Google Chrome extensions: 1\n  Ad \\x1b[31m"));
    EXPECT_THAT(text, says(0, "Safari extensions: 0"));
    EXPECT_THAT(text.out, testing::Not(HasSubstr("Applications")));
    EXPECT_EQ(text.out.find('\x1b'), std::string::npos);
    EXPECT_EQ(on({"inventory", "--kind", "nonsense"}).code, 2);
}

TEST_F(PrivacyCommandTest, ListTellsGroupsItemsAndPaths)
{
    const json groups = json::parse(on({"privacy", "list", "--format", "json"}).out);
    ASSERT_EQ(groups.size(), 4U);
    EXPECT_THAT(keysOf(groups[1]),
                testing::UnorderedElementsAre("Name", "Size", "bytes", "isEnabled", "items"));
    const json& cookies = groups[1]["items"][0];
    EXPECT_THAT(keysOf(cookies), testing::UnorderedElementsAre("NameText", "bytes", "sizeText",
                                                               "isExt", "isHeader", "AllList"));
    EXPECT_EQ(cookies["NameText"], "Cookies (A\\nB)");
    EXPECT_EQ(cookies["AllList"], json::array({chrome + "/Default/Cookies"}));
    EXPECT_EQ(groups[3]["items"][2]["AllList"], json::array({"/Users/alice/Library/Logs/"}));

    EXPECT_THAT(on({"privacy", "list"}), says(0, "Browser Extensions  "));
    EXPECT_THAT(run({"privacy", "list", "--volume", volume.path(), "--user", "bob"}).err,
                HasSubstr("homes there are: alice"));
    interrupted.request();
    EXPECT_EQ(on({"privacy", "list"}).code, 130);
    EXPECT_EQ(on({"inventory"}).code, 130);
}

class ClearCommandTest : public PrivacyCommandTest {
protected:
    /// As the command does it, but for the programs that run.
    Outcome clear(const cli::ClearArguments& arguments,
                  const std::vector<std::string>& running = {})
    {
        return with([&](const cli::Console& console) {
            auto host = std::move(
                cli::Host::open(console, {volume.path(), {"alice"}}, cli::StoreUse::None).value());
            cli::CleanerHost cleaner(*host);
            NoRemovalJournal journal;
            VolumeRemover remover(host->mountedDisk(), journal, {});
            return cli::clearItems(cleaner, running, remover, arguments, console);
        });
    }

    const std::string cookies = chrome + "/Default/Cookies";
    const std::string log = "/Users/alice/Library/Logs/a.log";
    const std::vector<std::string> both{"Cookies (A\\nB)", "System/System Log Files"};
};

TEST_F(ClearCommandTest, NamesOneItemOrSaysWhyNot)
{
    const struct {
        const char *item, *group, *except;
        const char* complaint; ///< none: there is nothing to clear
    } rows[] = {
        {"Nonsense", "", "", "there is no item \"Nonsense\""},
        {"Cookies ", "", "", "there is no item"},
        {"User preferences", "", "", ""},
        {"Browser Caches", "", "", "\"Safari/Browser Caches\", \"Chrome/Browser Caches\""},
        {"Google Chrome Extensions", "", "", "there is no item"},
        {"", "Chrome", "Nonsense", "no item \"Nonsense\" to leave out"},
        {"", "Netscape", "", "there is no group \"Netscape\""},
    };
    const auto named = [](const std::string& name) {
        return name.empty() ? std::vector<std::string>() : std::vector{name};
    };
    for (const auto& row : rows) {
        cli::ClearArguments arguments{named(row.item), false, true, "text"};
        arguments.groups = named(row.group);
        arguments.except = named(row.except);
        EXPECT_THAT(clear(arguments), remarks(*row.complaint ? 2 : 0, row.complaint)) << row.item;
    }
    EXPECT_EQ(on({"privacy", "clear", "--yes"}).code, 2);
}

TEST_F(ClearCommandTest, ShowsAsksRemovesAndTellsWhatStayed)
{
    const auto dry = clear({both, true, false, "json"}, {"Google Chrome"});
    EXPECT_THAT(dry, remarks(0, "Google Chrome is running"));
    const json preview = json::parse(dry.out);
    EXPECT_EQ(preview["entries"], 1);
    EXPECT_EQ(preview["openBrowsers"], json::array({"Google Chrome"}));
    EXPECT_EQ(preview["locations"][0]["path"], cookies);
    EXPECT_EQ(preview["locations"][0]["place"], cookies);
    EXPECT_EQ(clear({both, false, false, "text"}).code, 2); // nobody to ask
    terminal = true;
    input = "n\n";
    EXPECT_EQ(clear({both, false, false, "text"}).code, 2);
    EXPECT_TRUE(volume.contains(cookies) && volume.contains(log));

    input = "y\n";
    const auto partly = clear({both, false, false, "text"}, {"Google Chrome"});
    EXPECT_THAT(partly, says(1, "Not all of the selected data was cleared."));
    EXPECT_THAT(partly, says(1, "  System/System Log Files: 1 entry"));
    EXPECT_THAT(partly, says(1, "stayed: " + cookies + " (Google Chrome is running"));
    EXPECT_TRUE(volume.contains(cookies) && !volume.contains(log));
    EXPECT_TRUE(volume.contains("/Users/alice/Library/Logs"));
    const auto done = clear({both, false, true, "json"});
    EXPECT_EQ(done.code, 0);
    const json went = json::parse(done.out);
    EXPECT_TRUE(went["stayed"].empty());
    const json& item = went["items"][0];
    EXPECT_EQ(item["item"], both[0]);
    EXPECT_EQ(item["bytes"], went["bytesRemoved"]);
    EXPECT_EQ(item["gone"][0]["path"], cookies);
    EXPECT_FALSE(volume.contains(cookies));

    volume.file(cookies, "again");
    EXPECT_EQ(on({"privacy", "clear", "--item", both[0], "--dry-run"}).code, 0);
    EXPECT_EQ(on({"privacy", "clear", "--item", both[0], both[1], "--yes"}).code, 0);
    EXPECT_FALSE(volume.contains(cookies));
}

/// Of an item that is not dear itself, too: that goes by its own name alone.
TEST_F(ClearCommandTest, AGroupLeavesWhatIsDearAndWhatIsExcepted)
{
    const std::string firefox =
        "/Users/alice/Library/Application Support/Firefox/Profiles/a.default/";
    const std::vector<std::string> kept{chrome + "/Default/Login Data", chrome + "/Default/History",
                                        firefox + "cert8.db"};
    for (const std::string& file : kept)
        volume.file(file, std::string(5000, 'x'));
    volume.file(firefox + "formhistory.sqlite", "x");
    cli::ClearArguments groups{{}, false, true, "text"};
    groups.groups = {"Chrome", "Firefox"};
    groups.except = {"Chrome/History (A\\nB)"};
    const auto whole = clear(groups);
    EXPECT_THAT(whole, says(0, "You have successfully cleared selected data."));
    EXPECT_THAT(whole, remarks(0, "Chrome/Login Data (A\\nB) (--item clears it)"));
    EXPECT_THAT(whole, remarks(0, kept[2] + " (--item \"Firefox/Local Storage\""));
    for (const std::string& file : kept)
        EXPECT_TRUE(volume.contains(file)) << file;
    EXPECT_FALSE(volume.contains(cookies) || volume.contains(firefox + "formhistory.sqlite"));
    EXPECT_EQ(clear({{"Firefox/Local Storage"}, false, true, "text"}).code, 0);
    EXPECT_FALSE(volume.contains(kept[2]));
}

/// Of several users each is named who has less to clear; the journal keeps what went, by item.
TEST_F(ClearCommandTest, NamesTheUserWhoLacksAnItem)
{
    volume.file("/Users/bob/Library/Logs/b.log", std::string(3000, 'x'));
    volume.file("/Users/bob/Library/Safari/History.db", std::string(3000, 'x'));
    const auto clearOfBoth = [&](const std::vector<std::string>& items) {
        std::vector<std::string> more{"--yes", "--format", "json", "--user",
                                      "alice", "--user",   "bob",  "--item"};
        more.insert(more.end(), items.begin(), items.end());
        return onVolume({"privacy", "clear"}, more);
    };
    EXPECT_THAT(clearOfBoth({"Chrome/Nothing"}), refuses("there is no item \"Chrome/Nothing\""));
    const auto outcome = clearOfBoth({"Chrome/" + both[0], both[1]});
    EXPECT_THAT(outcome, remarks(0, "bob has no item \"Chrome/Cookies (A"));
    EXPECT_THAT(outcome.err, testing::Not(HasSubstr("alice has no")));
    std::set<std::string> cleared;
    std::int64_t freed = 0, kept = 0;
    const json went = json::parse(outcome.out);
    for (const json& item : went["items"]) {
        cleared.insert(item["user"].get<std::string>() + " " + item["item"].get<std::string>());
        freed += item["bytes"].get<std::int64_t>();
    }
    EXPECT_THAT(cleared, testing::ElementsAre("alice " + both[0], "alice System Log Files",
                                              "bob System Log Files"));
    EXPECT_FALSE(volume.contains("/Users/bob/Library/Logs/b.log"));
    EXPECT_TRUE(volume.contains("/Users/bob/Library/Safari/History.db"));
    std::stringstream journal(contentOf(data.hostPath("Removals.jsonl")));
    for (std::string line; std::getline(journal, line);) {
        const json entry = json::parse(line);
        if (entry.contains("outcome") && entry.contains("purpose"))
            kept += entry["bytes"].get<std::int64_t>();
    }
    EXPECT_EQ(kept, freed);
}

} // namespace pryvane::test
