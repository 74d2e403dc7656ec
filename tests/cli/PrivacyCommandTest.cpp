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
    const auto outcome = on({"inventory", "--format", "json"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    const json lists = json::parse(outcome.out);
    EXPECT_THAT(keysOf(lists), testing::UnorderedElementsAre(
                                   "chrome", "firefox", "safari", "launchAgents", "launchDaemons",
                                   "applicationSupport", "applications", "extensions",
                                   "permissions", "startUp", "remoteAccess", "factSources"));
    ASSERT_EQ(lists["chrome"].size(), 1U);
    const json& entry = lists["chrome"][0];
    EXPECT_EQ(entry["urlExt"], chrome + "/Default/Extensions/aaa/1_0");
    EXPECT_EQ(entry["verExt"], "1.0");
    EXPECT_EQ(entry["nameExt"], "Ad \\x1b[31m");
    EXPECT_EQ(entry["PersonExt"], "A\\nB");
    EXPECT_GT(entry["sizeExt"], 0);
    EXPECT_EQ(lists["launchDaemons"], json::array({"/Library/LaunchDaemons/d.plist"}));
    EXPECT_EQ(lists["applications"].size(), 2U);

    const auto text = on({"inventory", "--kind", "chrome", "--kind", "safari"});
    EXPECT_THAT(text.out, HasSubstr("Google Chrome extensions: 1\n  Ad \\x1b[31m"));
    EXPECT_THAT(text.out, HasSubstr("Safari extensions: 0"));
    EXPECT_THAT(text.out, testing::Not(HasSubstr("Applications")));
    EXPECT_EQ(text.out.find('\x1b'), std::string::npos);
    EXPECT_EQ(on({"inventory", "--kind", "nonsense"}).code, 2);
}

TEST_F(PrivacyCommandTest, ListTellsGroupsItemsAndPaths)
{
    const auto outcome = on({"privacy", "list", "--format", "json"});
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    const json groups = json::parse(outcome.out);
    ASSERT_EQ(groups.size(), 4U);
    EXPECT_THAT(keysOf(groups[1]),
                testing::UnorderedElementsAre("Name", "Size", "bytes", "isEnabled", "items"));
    const json& cookies = groups[1]["items"][0];
    EXPECT_THAT(keysOf(cookies), testing::UnorderedElementsAre("NameText", "bytes", "sizeText",
                                                               "isExt", "isHeader", "AllList"));
    EXPECT_EQ(cookies["NameText"], "Cookies (A\\nB)");
    EXPECT_EQ(cookies["AllList"], json::array({chrome + "/Default/Cookies"}));
    EXPECT_GT(cookies["bytes"], 0);
    EXPECT_EQ(groups[3]["items"][2]["AllList"], json::array({"/Users/alice/Library/Logs/"}));

    const auto text = on({"privacy", "list"});
    EXPECT_THAT(text.out, HasSubstr("Browser Extensions  "));
    EXPECT_THAT(text.out, HasSubstr("0 byte"));
    EXPECT_THAT(run({"privacy", "list", "--volume", volume.path(), "--user", "bob"}).err,
                HasSubstr("homes there are: alice"));
    interrupted.request();
    EXPECT_EQ(on({"privacy", "list"}).code, 130);
    EXPECT_EQ(on({"inventory"}).code, 130);
}

TEST_F(PrivacyCommandTest, ClearShowsAsksRemovesAndTellsWhatStayed)
{
    const std::string cookies = chrome + "/Default/Cookies";
    const std::string log = "/Users/alice/Library/Logs/a.log";
    const auto clear = [&](cli::ClearArguments arguments, std::vector<std::string> running = {}) {
        return with([&](const cli::Console& console) {
            auto host = std::move(
                cli::Host::open(console, {volume.path(), {"alice"}}, cli::StoreUse::None).value());
            cli::CleanerHost cleaner(*host);
            NoRemovalJournal journal;
            VolumeRemover remover(host->mountedDisk(), journal, {});
            return cli::clearItems(cleaner, running, remover, arguments, console);
        });
    };
    const struct {
        const char* name;
        const char* complaint;
    } wrong[] = {{"Nonsense", "there is no item \"Nonsense\""},
                 {"Cookies ", "there is no item"},
                 {"User preferences", ""},
                 {"Browser Caches", "\"Safari/Browser Caches\", \"Chrome/Browser Caches\""},
                 {"Google Chrome Extensions", "there is no item"}};
    for (const auto& row : wrong) {
        const auto outcome = clear({{row.name}, true, false, "text"});
        EXPECT_EQ(outcome.code, *row.complaint ? 2 : 0) << row.name;
        EXPECT_THAT(outcome.err, HasSubstr(row.complaint));
    }
    const std::vector<std::string> both{"Cookies (A\\nB)", "System/System Log Files"};
    const auto dry = clear({both, true, false, "json"}, {"Google Chrome"});
    EXPECT_EQ(dry.code, 0);
    const json preview = json::parse(dry.out);
    EXPECT_EQ(preview["entries"], 1);
    EXPECT_EQ(preview["openBrowsers"], json::array({"Google Chrome"}));
    EXPECT_EQ(preview["locations"][0]["path"], cookies);
    EXPECT_EQ(preview["locations"][0]["place"], cookies);
    EXPECT_THAT(dry.err, HasSubstr("Google Chrome is running"));
    EXPECT_EQ(clear({both, false, false, "text"}).code, 2); // nobody to ask
    terminal = true;
    input = "n\n";
    EXPECT_EQ(clear({both, false, false, "text"}).code, 2);
    EXPECT_TRUE(volume.contains(cookies) && volume.contains(log));

    input = "y\n";
    const auto partly = clear({both, false, false, "text"}, {"Google Chrome"});
    EXPECT_EQ(partly.code, 1);
    EXPECT_THAT(partly.out, HasSubstr("Not all of the selected data was cleared."));
    EXPECT_THAT(partly.out, HasSubstr("  System/System Log Files: 1 entry"));
    EXPECT_THAT(partly.out, HasSubstr("stayed: " + cookies + " (Google Chrome is running"));
    EXPECT_TRUE(volume.contains(cookies) && !volume.contains(log));
    EXPECT_TRUE(volume.contains("/Users/alice/Library/Logs"));
    const auto done = clear({both, false, true, "json"});
    EXPECT_EQ(done.code, 0);
    const json went = json::parse(done.out);
    EXPECT_TRUE(went["stayed"].empty());
    EXPECT_EQ(went["items"][0]["user"], "alice");
    EXPECT_EQ(went["items"][0]["item"], "Cookies (A\\nB)");
    EXPECT_EQ(went["items"][0]["bytes"], went["bytesRemoved"]);
    EXPECT_EQ(went["items"][0]["gone"][0]["path"], cookies);
    EXPECT_FALSE(volume.contains(cookies));

    // A group by its name leaves what is dear, and what is excepted.
    const std::string passwords = chrome + "/Default/Login Data";
    const std::string history = chrome + "/Default/History";
    for (const std::string& file : {cookies, passwords, history})
        volume.file(file, std::string(5000, 'x'));
    cli::ClearArguments group{{}, false, true, "text"};
    group.groups = {"Chrome"};
    group.except = {"Nonsense"};
    EXPECT_THAT(clear(group).err, HasSubstr("no item \"Nonsense\" to leave out"));
    group.except = {"Chrome/History (A\\nB)"};
    const auto whole = clear(group);
    EXPECT_EQ(whole.code, 0);
    EXPECT_THAT(whole.out, HasSubstr("You have successfully cleared selected data."));
    EXPECT_THAT(whole.err, HasSubstr("Chrome/Login Data (A\\nB) (--item clears it)"));
    EXPECT_TRUE(volume.contains(passwords) && volume.contains(history));
    EXPECT_FALSE(volume.contains(cookies));
    group.groups = {"Netscape"};
    EXPECT_THAT(clear(group).err, HasSubstr("there is no group \"Netscape\""));

    // What is dear in an item that is not: left out with its group, cleared by its own name.
    const std::string profile =
        "/Users/alice/Library/Application Support/Firefox/Profiles/a.default/";
    for (const char* file : {"cert8.db", "formhistory.sqlite"})
        volume.file(profile + file, std::string(5000, 'x'));
    group = {{}, false, true, "json"};
    group.groups = {"Firefox"};
    const auto firefox = clear(group);
    EXPECT_EQ(json::parse(firefox.out)["items"][0]["gone"][0]["path"],
              profile + "formhistory.sqlite");
    EXPECT_THAT(firefox.err, HasSubstr(profile + "cert8.db (--item \"Firefox/Local Storage\""));
    EXPECT_TRUE(volume.contains(profile + "cert8.db"));
    EXPECT_EQ(clear({{"Firefox/Local Storage"}, false, true, "text"}).code, 0);
    EXPECT_FALSE(volume.contains(profile + "cert8.db"));

    volume.file(cookies, "again");
    EXPECT_EQ(on({"privacy", "clear", "--item", both[0], "--dry-run"}).code, 0);
    EXPECT_EQ(on({"privacy", "clear", "--item", both[0], both[1], "--yes"}).code, 0);
    EXPECT_FALSE(volume.contains(cookies));
    EXPECT_EQ(on({"privacy", "clear", "--yes"}).code, 2);
}

/// Of several users each is named who has less to clear; the journal keeps what went, by item.
TEST_F(PrivacyCommandTest, ClearNamesTheUserWhoLacksAnItem)
{
    const std::string cookies = chrome + "/Default/Cookies";
    volume.file("/Users/bob/Library/Logs/b.log", std::string(3000, 'x'));
    volume.file("/Users/bob/Library/Safari/History.db", std::string(3000, 'x'));
    const auto both = [&](const std::vector<std::string>& items) {
        std::vector<std::string> more{"--yes", "--format", "json", "--user",
                                      "alice", "--user",   "bob"};
        for (const std::string& item : items)
            more.insert(more.end(), {"--item", item});
        return onVolume({"privacy", "clear"}, more);
    };
    EXPECT_THAT(both({"Chrome/Nothing"}).err, HasSubstr("there is no item \"Chrome/Nothing\""));
    const auto outcome = both({"Chrome/Cookies (A\\nB)", "System/System Log Files"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr("bob has no item \"Chrome/Cookies (A"));
    EXPECT_THAT(outcome.err, testing::Not(HasSubstr("alice has no")));
    std::map<std::string, std::int64_t> freed, kept;
    const json went = json::parse(outcome.out);
    for (const json& item : went["items"])
        freed[item["user"].get<std::string>() + " " + item["item"].get<std::string>()] =
            item["bytes"];
    EXPECT_EQ(freed.size(), 3U);
    EXPECT_GT(freed["bob System Log Files"], 0);
    EXPECT_FALSE(volume.contains("/Users/bob/Library/Logs/b.log"));
    EXPECT_TRUE(volume.contains("/Users/bob/Library/Safari/History.db"));
    std::stringstream journal(contentOf(data.hostPath("Removals.jsonl")));
    std::int64_t total = 0;
    for (std::string line; std::getline(journal, line);) {
        const json entry = json::parse(line);
        if (entry.contains("outcome") && entry.contains("purpose"))
            kept[entry["purpose"]] += entry["bytes"].get<std::int64_t>();
    }
    for (const auto& [item, bytes] : freed)
        total += bytes;
    EXPECT_EQ(kept["Chrome/Cookies (A\\nB)"] + kept["System/System Log Files"], total);
}

} // namespace pryvane::test
