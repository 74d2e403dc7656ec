#include "cli/CliFixture.h"
#include "inventory/facts/FactFixtures.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sys/stat.h>

namespace pryvane::test {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kAgent = "Library/LaunchAgents/com.refog.agent.plist";

std::string agentOf(std::string_view home)
{
    return std::string(home) + "/" + std::string(kAgent);
}

std::string accountFile(const std::string& name)
{
    return "private/var/db/dslocal/nodes/Default/users/" + name + ".plist";
}

class UsersCommandTest : public CliFixture {
protected:
    json scanned(const std::vector<std::string>& more)
    {
        last = onVolume({"scan", "--format", "json"}, more);
        return json::parse(last.out);
    }
    /// "user path" of each finding, in the report's order.
    static std::vector<std::string> rows(const json& report)
    {
        std::vector<std::string> rows;
        for (const auto& one : report["report"]["spyWareList"])
            rows.push_back(one["user"].get<std::string>() + " " + one["path"].get<std::string>());
        return rows;
    }

    Outcome last{};
};

TEST_F(UsersCommandTest, EveryHomeIsLookedAtUnlessUsersAreNamed)
{
    volume.folder("Users/carol/Library");
    volume.file(agentOf("Users/bob"));
    volume.file("Users/Shared/" + std::string(kAgent));
    volume.file(agentOf("Users/.hidden"));
    const std::string bobs = "bob /" + agentOf("Users/bob");
    const struct {
        std::vector<std::string> arguments;
        std::vector<std::string> found, leftOut;
    } cases[] = {
        {{}, {bobs}, {}},
        {{"--all-users"}, {bobs}, {}},
        {{"--user", "alice"}, {}, {"bob", "carol"}},
        {{"--user", "ALICE"}, {}, {"bob", "carol"}},
        {{"--user", "bob"}, {bobs}, {"alice", "carol"}},
        {{"--user", "carol", "--user", "bob"}, {bobs}, {"alice"}},
        {{"--deep"}, {bobs}, {}},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing::PrintToString(one.arguments));
        const json report = scanned(one.arguments);
        EXPECT_EQ(rows(report), one.found);
        EXPECT_EQ(report["coverage"]["homesLeftOut"], json(one.leftOut));
        EXPECT_EQ(last.code, one.found.empty() ? 0 : 1);
    }
    EXPECT_THAT(scan().out, HasSubstr("not looked at: the homes of bob, carol"));
    EXPECT_EQ(run({"scan", "--volume", volume.path(), "--user", "bob", "--all-users"}).code, 2);
}

TEST_F(UsersCommandTest, EachUsersFindingIsARowAndWhatAllShareIsOne)
{
    volume.file(agentOf("Users/bob"));
    volume.file(agentOf("Users/alice"));
    volume.file(std::string(kAgent));
    volume.file("Users/alice/dev/nothing");
    EXPECT_THAT(rows(scanned({})),
                ElementsAre(" /" + std::string(kAgent), "alice /" + agentOf("Users/alice"),
                            "bob /" + agentOf("Users/bob")));
    const json deep = scanned({"--deep"});
    EXPECT_THAT(rows(deep), testing::Contains("alice /Users/alice/dev/nothing"));
    EXPECT_EQ(rows(jsonOnVolume({"report", "export", "latest"})), rows(deep));
}

TEST_F(UsersCommandTest, HomesElsewhereAreThoseThatAccountsName)
{
    volume.file(agentOf("private/var/people/dave"));
    volume.file(agentOf("Users/.quiet"));
    volume.file(agentOf("private/var/service"));
    volume.file(agentOf("private/var/linked"));
    volume.file(accountFile("dave"), accountOf("dave", "/var/people/dave"));
    volume.file(accountFile("quiet"), accountOf("quiet", "/Users/.quiet", 401));
    volume.file(accountFile("alice"), accountOf("alice", "/Users/alice"));
    volume.file(accountFile("_service"), accountOf("_service", "/var/service", 240));
    volume.file(accountFile("root"), accountOf("root", "/var/service", 0));
    volume.file(accountFile("nowhere"), accountOf("nowhere", "/var/nowhere"));
    volume.file(accountFile("top"), accountOf("top", "/"));
    volume.file("private/elsewhere.plist", accountOf("linked", "/var/linked"));
    volume.link(accountFile("linked"), "/private/elsewhere.plist");
    ASSERT_EQ(mkfifo(volume.hostPath(accountFile("fifo")).c_str(), 0644), 0);
    volume.file(accountFile("broken"), "<plist><dict><key>name");

    const std::string daves = "/private/var/people/dave /" + agentOf("private/var/people/dave");
    const json all = scanned({});
    EXPECT_THAT(rows(all), ElementsAre(".quiet /" + agentOf("Users/.quiet"), daves));
    std::vector<std::string> refused;
    for (const auto& one : all["coverage"]["refused"])
        refused.push_back(one["path"]);
    std::ranges::sort(refused);
    EXPECT_THAT(refused, ElementsAre("/" + accountFile("broken"), "/" + accountFile("fifo"),
                                     "/" + accountFile("linked")));

    const json dave = scanned({"--user", "dave"});
    EXPECT_THAT(rows(dave), ElementsAre(daves));
    EXPECT_EQ(dave["coverage"]["homesLeftOut"], json({".quiet", "alice"}));
    EXPECT_EQ(dave["report"]["spyWareList"][0]["evidence"],
              scanned({"--user", ".quiet"})["report"]["spyWareList"][0]["evidence"]);
    EXPECT_THAT(onVolume({"scan", "--user", "erin"}),
                says(3, "no home at /Users/erin, homes there are: "));
}

TEST_F(UsersCommandTest, ADataVolumeGivesWhatTheWholeDiskGives)
{
    volume.file("private/tmp/.lbOOjfsO");
    volume.file("private/tmp/google.tmp");
    volume.file("private/etc/manpath.d");
    volume.file("usr/local/machook/x");
    volume.file(agentOf("Users/alice"));
    const json dataVolume = scanned({});
    for (const std::string name : {"etc", "tmp", "var"})
        volume.link(name, "private/" + name);
    const json whole = scanned({});
    EXPECT_EQ(rows(dataVolume), rows(whole));
    EXPECT_GE(rows(whole).size(), 3U);
    const auto& left = dataVolume["coverage"]["systemVolumeLeftOut"];
    EXPECT_GT(left, 20);
    EXPECT_EQ(whole["coverage"]["systemVolumeLeftOut"], 0);
    EXPECT_EQ(dataVolume["coverage"]["signaturesTested"].get<int>() + left.get<int>(),
              whole["coverage"]["signaturesTested"]);
}

TEST_F(UsersCommandTest, AFolderWithoutAMacIsAnErrorAndNamesTheOneInside)
{
    volume.remove("Users");
    volume.file("root/Library/x");
    volume.file("aside/Users/x");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"scan"},
          {"scan", "--deep"},
          {"inventory"},
          {"privacy", "list"},
          {"privacy", "clear", "--item", "x", "--user", "alice"}}) {
        const auto outcome = onVolume(command);
        EXPECT_THAT(outcome, refuses("there is no Mac in \"" + volume.path() + "\""));
        EXPECT_THAT(outcome, refuses("look at \"" + volume.path() + "/root\" instead"));
    }
    EXPECT_EQ(reportIds().size(), 0U);
    volume.remove("root");
    volume.remove("aside");
    EXPECT_THAT(scan(), refuses("give the folder at which the Mac disk is mounted"));
    volume.folder("Applications");
    EXPECT_THAT(onVolume({"scan"}), says(3, "no home at /Users"));
}

TEST_F(UsersCommandTest, InventoryAndPrivacyToolsFollowTheChoice)
{
    const std::string cache = "/Library/Caches/c", agents = "/Library/LaunchAgents/";
    volume.file(agents + "all.plist");
    for (const char* user : {"alice", "bob"}) {
        const std::string home = std::string("/Users/") + user;
        volume.file(home + agents + user + ".plist");
        volume.file(home + cache, std::string(9000, 'c'));
    }
    const std::vector<std::string> alice{"--user", "alice"},
        inventory{"inventory", "--kind", "launch-agents"};
    const auto listing = [](const std::vector<std::string>& paths) {
        return json({{"launchAgents", paths}});
    };
    const std::string all = agents + "all.plist", ofAlice = "/Users/alice" + agents + "alice.plist";
    EXPECT_EQ(jsonOnVolume(inventory, alice), listing({all, ofAlice}));
    json each[] = {listing({ofAlice}), listing({"/Users/bob" + agents + "bob.plist"})};
    each[0]["user"] = "alice";
    each[1]["user"] = "bob";
    EXPECT_EQ(jsonOnVolume(inventory), json({{"shared", listing({all})}, {"users", each}}));
    const json both = jsonOnVolume({"privacy", "list"})["users"];
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[1]["user"], "bob");
    EXPECT_EQ(both[0]["groups"], jsonOnVolume({"privacy", "list"}, alice));

    const auto clear = [&](const std::vector<std::string>& more) {
        return onVolume({"privacy", "clear", "--item", "System/System Cache Files"}, more);
    };
    EXPECT_THAT(clear({"--yes"}), remarks(2, "--user NAME"));
    EXPECT_THAT(clear({"--yes", "--all-users"}), remarks(2, "--user NAME"));
    terminal = true;
    input = "n\n";
    EXPECT_THAT(clear({"--user", "bob"}).err, HasSubstr(" of bob for good?"));
    EXPECT_EQ(clear({"--yes", "--user", "bob"}).code, 0);
    EXPECT_TRUE(volume.contains("Users/alice" + cache));
    EXPECT_FALSE(volume.contains("Users/bob" + cache));
}

} // namespace
} // namespace pryvane::test
