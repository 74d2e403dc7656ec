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
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const std::string kTcc = "/Library/Application Support/com.apple.TCC/TCC.db";

class FactsCommandTest : public CliFixture {
protected:
    FactsCommandTest()
    {
        permissions(kTcc, "('kTCCServiceCamera','/opt/.x/seen',1,2,2)");
        permissions("/Users/alice" + kTcc, "('kTCCServiceScreenCapture','com.a\x1b[31m',0,0,2)");
        permissions("/private/homes/carol" + kTcc, "('kTCCServiceListenEvent','/opt/gone',1,2,3)");
        volume.file("/opt/.x/seen");
        volume.file("/private/var/db/dslocal/nodes/Default/users/carol.plist",
                    dict({{"name", list({"carol"})},
                          {"uid", list({"502"})},
                          {"home", list({"/private/homes/carol"})}})
                        .xml());
        volume.file("/Users/alice/Library/LaunchAgents/a.plist", jobOf("agent", "/tmp/.x/run"));
    }
    void permissions(const std::string& path, const std::string& rows) const
    {
        volume.file(path, permissionsOf("VALUES " + rows));
    }
    Outcome facts(std::vector<std::string> source, const std::string& kind = "permissions",
                  const std::string& format = "json")
    {
        std::vector<std::string> arguments{"inventory", "--kind", kind, "--format", format};
        arguments.insert(arguments.end(), source.begin(), source.end());
        return run(arguments);
    }
    /// Whose and which program, by row.
    static std::vector<std::string> rowsOf(const Outcome& outcome)
    {
        std::vector<std::string> rows;
        const json document = json::parse(outcome.out);
        for (const json& row : document["permissions"])
            rows.push_back((row["user"].is_null() ? "" : row["user"].get<std::string>()) + " " +
                           row["program"].get<std::string>() + " " +
                           row["whereabouts"].get<std::string>());
        return rows;
    }
    std::vector<std::string> onFolder() const { return {"--volume", volume.path()}; }
};

} // namespace

/// Homes elsewhere are looked at, too, and an image says what its folder does.
TEST_F(FactsCommandTest, EveryUserAndEverySource)
{
    const auto folder = facts(onFolder());
    EXPECT_EQ(folder.code, 0) << folder.err;
    EXPECT_THAT(rowsOf(folder),
                ElementsAre(" /opt/.x/seen there", "/private/homes/carol /opt/gone missing",
                            "alice com.a\\x1b[31m not known"));
    EXPECT_THAT(rowsOf(facts({"--user", "alice", "--volume", volume.path()})),
                ElementsAre(" /opt/.x/seen there", "alice com.a\\x1b[31m not known"));

    // Of a list of names only what names tell, and that in words.
    const auto names = run({"listing", "--volume", volume.path()});
    if (names.code == 0) {
        const TemporaryFolder lists;
        lists.file("names", names.out);
        const auto listing = facts({"--listing", lists.hostPath("names")});
        EXPECT_EQ(listing.code, 3);
        EXPECT_THAT(rowsOf(listing), testing::IsEmpty());
        EXPECT_THAT(listing.err,
                    HasSubstr("not read: " + kTcc + ": a list of names holds no contents"));
    }

    const TemporaryFolder images;
    const std::string image = images.hostPath("mac.img");
    if (!makeImage(volume.path(), image))
        GTEST_SKIP() << "xorriso is missing";
    for (const char* kind : {"permissions", "start-up", "remote-access"})
        EXPECT_EQ(facts({"--image", image}, kind).out, facts(onFolder(), kind).out) << kind;
}

TEST_F(FactsCommandTest, TextIsGroupedAndEscaped)
{
    const auto startUp = facts(onFolder(), "start-up", "text");
    EXPECT_THAT(startUp.out,
                HasSubstr("What starts by itself: 1\n  Launch agents\n    agent\n      State: on\n"
                          "      Whose: alice\n      On the disk: missing, in a hidden folder\n"
                          "      Program: /tmp/.x/run\n"));
    const auto watchers = facts(onFolder(), "permissions", "text");
    EXPECT_THAT(watchers.out, AllOf(HasSubstr("  Sees what you type\n    gone\n"),
                                    HasSubstr("On the disk: still there, in a hidden folder")));
    EXPECT_EQ(watchers.out.find('\x1b'), std::string::npos);
}

/// What could not be read is said by every command, and is the exit code of one that asks for it.
TEST_F(FactsCommandTest, AnUnreadableSourceKeepsTheGivenKindsAsTheyAre)
{
    const std::string before =
        run({"inventory", "--kind", "launch-agents", "--volume", volume.path(), "--format", "json"})
            .out;
    volume.file("/Users/alice/Library/LaunchAgents/c.plist", "broken");
    volume.remove(kTcc);
    mkfifo(volume.hostPath(kTcc).c_str(), 0600);
    const std::string fifo = "not read: " + kTcc + ": not a regular file";
    const std::string broken = "not understood: /Users/alice/Library/LaunchAgents/c.plist: ";
    const auto plain =
        run({"inventory", "--user", "alice", "--volume", volume.path(), "--format", "json"});
    EXPECT_EQ(plain.code, 0);
    EXPECT_THAT(plain.err, AllOf(HasSubstr(fifo), HasSubstr(broken)));
    const json all = json::parse(plain.out);
    EXPECT_EQ(all["launchAgents"].size(), 2U);
    const auto asked = facts(onFolder(), "start-up");
    EXPECT_EQ(asked.code, 3);
    EXPECT_THAT(asked.err, AllOf(HasSubstr(broken), Not(HasSubstr(fifo))));
    const json document = json::parse(asked.out);
    ASSERT_EQ(document["startUp"].size(), 1U);
    EXPECT_EQ(document["startUp"][0]["user"], "alice");
    EXPECT_EQ(facts(onFolder()).code, 3);
    EXPECT_THAT(before, HasSubstr("a.plist"));
}

TEST_F(FactsCommandTest, AReportCarriesThemOnlyWhereTheyAreAskedFor)
{
    const std::string marker = "recorder of keys";
    permissions(kTcc, "('kTCCServiceListenEvent','/opt/" + marker + "',1,2,2)");
    EXPECT_THAT(scan({}).out, Not(HasSubstr(marker)));
    EXPECT_THAT(scan({"--facts", "--no-store"}).out, HasSubstr("    " + marker));
    const json document = json::parse(scan({"--facts", "--no-store", "--format", "json"}).out);
    EXPECT_EQ(document["facts"]["permissions"][0]["name"], marker);

    for (const char* format : {"json", "html"}) {
        EXPECT_THAT(onVolume({"report", "export", "latest", "--format", format}).out,
                    Not(HasSubstr(marker)));
        const auto with = onVolume({"report", "export", "latest", "--format", format, "--facts"});
        EXPECT_EQ(with.code, 0) << with.err;
        EXPECT_THAT(with.out, AllOf(HasSubstr(marker), HasSubstr("Sees what you type")));
    }
    EXPECT_EQ(onVolume({"report", "export", "latest", "--format", "csv", "--facts"}).code, 2);
    const TemporaryFolder other;
    other.folder("/Users/alice/Library");
    const std::string id = reportIds().at(0);
    const auto elsewhere = run({"report", "export", id, "--facts", "--volume", other.path()});
    EXPECT_EQ(elsewhere.code, 2);
    EXPECT_THAT(elsewhere.err, HasSubstr("its facts cannot be read; name its volume"));
    EXPECT_EQ(elsewhere.out, "");

    const std::string pdf = other.hostPath("report.pdf");
    ASSERT_EQ(onVolume({"report", "pdf", "latest", pdf, "--facts"}).code, 0);
    if (std::system("command -v pdftotext >/dev/null") != 0)
        GTEST_SKIP() << "pdftotext is missing";
    ASSERT_EQ(std::system(("pdftotext -layout '" + pdf + "' '" + pdf + ".txt'").c_str()), 0);
    EXPECT_THAT(contentOf(pdf + ".txt"),
                AllOf(HasSubstr("What this disk says of itself"), HasSubstr(marker),
                      HasSubstr("can notice every key you press")));
    ASSERT_EQ(onVolume({"report", "pdf", "latest", pdf}).code, 0);
    ASSERT_EQ(std::system(("pdftotext -layout '" + pdf + "' '" + pdf + ".txt'").c_str()), 0);
    EXPECT_THAT(contentOf(pdf + ".txt"), Not(HasSubstr(marker)));
}

} // namespace pryvane::test
