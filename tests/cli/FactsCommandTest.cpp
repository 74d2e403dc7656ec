// Facts on the command line: from a folder, an image and a list of names, for every user, and
// behind a report.
#include "cli/CliFixture.h"
#include "inventory/facts/FactFixtures.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <sys/stat.h>

namespace pryvane::test {

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::string kTcc = "/Library/Application Support/com.apple.TCC/TCC.db";

class FactsCommandTest : public CliFixture {
protected:
    FactsCommandTest()
    {
        volume.file(kTcc, permissionsOf("('kTCCServiceListenEvent','/opt/.x/gone\x1b[31m',1,2,2)"));
        volume.file("/Users/alice" + kTcc, permissionsOf("('kTCCServiceCamera','com.hers',0,0,2)"));
        volume.file("/private/homes/carol" + kTcc,
                    permissionsOf("('kTCCServiceCamera','com.carols',0,2,3)"));
        volume.file("/private/var/db/dslocal/nodes/Default/users/carol.plist",
                    accountOf("carol", "/private/homes/carol"));
        volume.file("/Users/alice/Library/LaunchAgents/a.plist", jobOf("agent", "/tmp/.x/run"));
    }
    Outcome facts(std::vector<std::string> source, const std::string& kind = "permissions",
                  const std::string& format = "json")
    {
        source.insert(source.begin(), {"inventory", "--kind", kind, "--format", format});
        return run(source);
    }
    std::vector<std::string> onFolder() const { return {"--volume", volume.path()}; }
};

} // namespace

/// Homes elsewhere are looked at, too, and an image says what its folder does.
TEST_F(FactsCommandTest, EveryUserAndEverySource)
{
    const auto folder = facts(onFolder());
    EXPECT_EQ(folder.code, 0) << folder.err;
    std::vector<std::string> whose;
    const json document = json::parse(folder.out);
    for (const json& row : document["permissions"])
        whose.push_back(row["user"].is_null() ? "" : row["user"].get<std::string>());
    EXPECT_THAT(whose, ElementsAre("", "/private/homes/carol", "alice"));
    EXPECT_THAT(facts({"--user", "alice", "--volume", volume.path()}).out,
                Not(HasSubstr("com.carols")));

    // Of a list of names only what names tell, and that in words.
    const TemporaryFolder files;
    files.file("names", run({"listing", "--volume", volume.path()}).out);
    const auto listing = facts({"--listing", files.hostPath("names")});
    EXPECT_THAT(listing, remarks(3, "not read: " + kTcc + ": a list of names holds no contents"));
    EXPECT_EQ(json::parse(listing.out)["permissions"].size(), 0U);

    const std::string image = files.hostPath("mac.img");
    if (!makeImage(volume.path(), image))
        GTEST_SKIP() << "xorriso is missing";
    for (const char* kind : {"permissions", "start-up", "remote-access"})
        EXPECT_EQ(facts({"--image", image}, kind).out, facts(onFolder(), kind).out) << kind;
}

TEST_F(FactsCommandTest, TextIsGroupedAndEscaped)
{
    EXPECT_THAT(facts(onFolder(), "start-up", "text"),
                says(0, "What starts by itself: 1\n  Launch agents\n    agent\n      State: on\n"
                        "      Whose: alice\n      On the disk: missing, in a hidden folder\n"
                        "      Program: /tmp/.x/run\n"));
    const auto watchers = facts(onFolder(), "permissions", "text");
    EXPECT_THAT(watchers, says(0, "  Sees what you type\n    gone\\x1b[31m\n"));
    EXPECT_EQ(watchers.out.find('\x1b'), std::string::npos);
}

/// What could not be read is said by every command, and is the exit code of one that asks for it.
TEST_F(FactsCommandTest, AnUnreadableSourceKeepsTheGivenKindsAsTheyAre)
{
    volume.file("/Users/alice/Library/LaunchAgents/c.plist", "broken");
    volume.remove(kTcc);
    mkfifo(volume.hostPath(kTcc).c_str(), 0600);
    const std::string fifo = "not read: " + kTcc + ": not a regular file";
    const std::string broken = "not understood: /Users/alice/Library/LaunchAgents/c.plist: ";
    const auto plain = onVolume({"inventory", "--user", "alice"}, {"--format", "json"});
    EXPECT_THAT(plain, remarks(0, fifo));
    EXPECT_THAT(plain, remarks(0, broken));
    EXPECT_EQ(json::parse(plain.out)["launchAgents"].size(), 2U);
    const auto asked = facts(onFolder(), "start-up");
    EXPECT_THAT(asked, remarks(3, broken));
    EXPECT_THAT(asked.err, Not(HasSubstr(fifo)));
    EXPECT_EQ(json::parse(asked.out)["startUp"].size(), 1U);
    EXPECT_EQ(facts(onFolder()).code, 3);
}

TEST_F(FactsCommandTest, AReportCarriesThemOnlyWhereTheyAreAskedFor)
{
    const std::string marker = "recorder of keys";
    volume.file(kTcc, permissionsOf("('kTCCServiceListenEvent','/opt/" + marker + "',1,2,2)"));
    const TemporaryFolder other;
    const std::string pdf = other.hostPath("report.pdf");
    const bool readsPdf = std::system("command -v pdftotext >/dev/null") == 0;
    static_cast<void>(scan());
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"scan", "--no-store"},
          {"scan", "--no-store", "--format", "json"},
          {"report", "export", "latest", "--format", "json"},
          {"report", "export", "latest", "--format", "html"},
          {"report", "pdf", "latest", pdf}}) {
        for (const bool asked : {false, true}) {
            const bool isPdf = command[1] == "pdf";
            Outcome face = onVolume(command, asked ? std::vector<std::string>{"--facts"}
                                                   : std::vector<std::string>());
            if (isPdf && readsPdf) {
                ASSERT_EQ(
                    std::system(("pdftotext -layout '" + pdf + "' '" + pdf + ".txt'").c_str()), 0);
                face.out = contentOf(pdf + ".txt");
            }
            EXPECT_EQ(face.out.find(marker) != std::string::npos, asked && (!isPdf || readsPdf))
                << testing::PrintToString(command) << face.err;
        }
    }
    EXPECT_EQ(onVolume({"report", "export", "latest", "--format", "csv", "--facts"}).code, 2);
    other.folder("/Users/alice/Library");
    EXPECT_THAT(run({"report", "export", reportIds().at(0), "--facts", "--volume", other.path()}),
                refuses("its facts cannot be read; name its volume"));
}

} // namespace pryvane::test
