#include "cli/CliFixture.h"
#include "support/Volumes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

namespace pryvane {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using namespace test;

class VerdictCommandTest : public CliFixture {};

TEST_F(VerdictCommandTest, TheExitCodeOfAScanFollowsTheVerdict)
{
    EXPECT_EQ(scan().code, 0);
    EXPECT_EQ(run({"scan", "--volume", volume.path(), "--user", "nobody-here"}).code, 3);
    volume.folder("/Applications/PKL.app");
    for (const char* format : {"text", "json"})
        EXPECT_EQ(scan({"--format", format}).code, 1);
    volume.remove("/Applications/PKL.app");
    std::filesystem::permissions(volume.hostPath("/Users/alice"), {});
    std::filesystem::permissions(volume.path(), std::filesystem::perms(0755));
    const std::string told = asNobody([&] {
        const Outcome outcome = scan({"--no-store", "--format", "json"});
        return std::to_string(outcome.code) +
               json::parse(outcome.out).at("verdict").get<std::string>();
    });
    std::filesystem::permissions(volume.hostPath("/Users/alice"), std::filesystem::perms(0755));
    EXPECT_EQ(told, "3incomplete");
}

TEST_F(VerdictCommandTest, TheLatestReportIsThatOfTheDiskInFront)
{
    const TemporaryFolder second, third;
    const std::array<const TemporaryFolder*, 3> disks{&volume, &second, &third};
    std::vector<std::string> words;
    for (const TemporaryFolder* disk : disks) {
        disk->folder("/Users/alice");
        if (disk == &second)
            disk->file("/tmp/.mdworker");
        static_cast<void>(run({"scan", "--volume", disk->path(), "--user", "alice"}));
    }
    for (const TemporaryFolder* disk : disks) {
        const std::vector<std::string> of{"--volume", disk->path()};
        const auto ofDisk = [&](std::vector<std::string> command) {
            command.insert(command.end(), of.begin(), of.end());
            return run(command);
        };
        words.push_back(json::parse(ofDisk({"report", "export", "latest"}).out).at("verdict"));
        const Outcome listed = ofDisk({"report", "list"});
        EXPECT_EQ(std::ranges::count(listed.out, '\n'), 1) << listed.out;
        EXPECT_THAT(listed.out, HasSubstr(" " + words.back() + " "));
        EXPECT_THAT(listed.err, HasSubstr("2 reports of other disks left out"));
        EXPECT_THAT(ofDisk({"report", "compare", "latest", "latest"}).out,
                    HasSubstr("0 new, 0 gone"));
    }
    EXPECT_THAT(words, testing::ElementsAre("clean", "found", "clean"));
    EXPECT_EQ(reportIds().size(), 3U) << "all, where none is named";
    EXPECT_EQ(run({"remove", "latest", "--all", "--yes", "--volume", third.path()}).code, 0);
    EXPECT_TRUE(second.contains("/tmp/.mdworker"));
    const TemporaryFolder unseen;
    unseen.folder("/Users/alice");
    EXPECT_EQ(run({"report", "show", "latest", "--volume", unseen.path()}).code, 2);
    EXPECT_THAT(run({"report", "list", "--volume", unseen.path()}).out, testing::IsEmpty());
}

/// What was learned of one disk is told of that disk.
TEST_F(VerdictCommandTest, EachReportNamesItsMac)
{
    volume.file("/Library/Preferences/SystemConfiguration/preferences.plist",
                "<plist version=\"1.0\"><dict><key>System</key><dict><key>System</key><dict>"
                "<key>ComputerName</key><string>Alice's &lt;Mac&gt;</string></dict></dict></dict>"
                "</plist>");
    ASSERT_EQ(scan().code, 0);
    const std::string html = "html";
    for (std::vector<std::string> command : {std::vector<std::string>{"report", "list"},
                                             {"report", "show", "latest"},
                                             {"report", "export", "latest"},
                                             {"report", "export", "latest", "--format", "csv"},
                                             {"report", "export", "latest", "--format", html}}) {
        SCOPED_TRACE(command.back());
        const bool isHtml = command.back() == html;
        command.insert(command.end(), {"--volume", volume.path()});
        const std::string text = run(command).out;
        EXPECT_THAT(text, HasSubstr(isHtml ? "Alice&#39;s &lt;Mac&gt;" : "Alice's <Mac>"));
        EXPECT_THAT(text, HasSubstr("alice"));
    }
}

} // namespace
} // namespace pryvane
