#include "cli/CliFixture.h"
#include "core/Escape.h"
#include "support/ReportFixtures.h"
#include "support/Volumes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

namespace pryvane {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

using ScanCommandTest = test::CliFixture;

TEST_F(ScanCommandTest, JsonHasItsShapeAndTheExitCodeTells)
{
    volume.file("/Library/LaunchAgents/com.refog.agent.plist", std::string(5000, 'x'));
    volume.folder("/Users/alice/Library/.A_o_b_o");
    volume.folder("/Applications/Codec-M.app");
    const Outcome found = scan({"--format", "json"});
    EXPECT_EQ(found.code, 1) << found.err;
    const json parsed = json::parse(found.out);
    const json& report = parsed.at("report");
    EXPECT_EQ(report.at("reportType"), "Quick Scan");
    EXPECT_EQ(report.at("spyWareCount"), 2);
    EXPECT_EQ(report.at("isRed"), true);
    EXPECT_FALSE(report.at("reportId").get<std::string>().empty());
    EXPECT_THAT(report.at("scanDate").get<std::string>(), testing::MatchesRegex("....-..-..T.*Z"));
    const json& list = report.at("spyWareList");
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].at("path"), "/Users/alice/Library/.A_o_b_o/");
    EXPECT_EQ(list[0].at("infections"), "Aobo Keylogger Pro");
    EXPECT_EQ(list[1].at("size"), 8192);
    EXPECT_EQ(parsed.at("coverage").at("heldBack").size(), 1U);

    const Outcome again = onVolume({"report", "export", "latest"});
    EXPECT_EQ(json::parse(again.out).at("report").at("reportId"), report.at("reportId"));
}

TEST_F(ScanCommandTest, DeepScansTheHomeOrTheWholeDisk)
{
    volume.file("/Users/alice/Music/Koobface/song.mp3");
    volume.file("/opt/Koobface/x");
    const auto found = [](const Outcome& outcome) {
        std::vector<std::string> paths;
        const json parsed = json::parse(outcome.out);
        for (const json& record : parsed["report"]["spyWareList"])
            paths.push_back(record["path"]);
        return paths;
    };
    const Outcome home = scan({"--deep", "--format", "json"});
    EXPECT_EQ(home.code, 1);
    EXPECT_THAT(found(home), testing::ElementsAre("/Users/alice/Music/Koobface/song.mp3"));
    EXPECT_EQ(json::parse(home.out)["report"]["reportType"], "Deep Scan");
    const Outcome disk = scan({"--deep", "--whole-disk", "--format", "json"});
    EXPECT_THAT(found(disk), testing::UnorderedElementsAre("/Users/alice/Music/Koobface/song.mp3",
                                                           "/opt/Koobface/x"));
    EXPECT_EQ(reportIds().size(), 2U);

    const Outcome flat = scan({"--deep", "--check-sub-dir", "n", "--format", "json"});
    EXPECT_EQ(flat.code, 1);
    EXPECT_EQ(found(flat).size(), 1U);
    EXPECT_EQ(reportIds().size(), 2U);
    EXPECT_EQ(scan({"--deep", "--quick"}).code, 2);
    EXPECT_EQ(scan({"--whole-disk"}).code, 2);
}

TEST_F(ScanCommandTest, RemoteDesktopIsToldWhereItIsUntilTheSettingsIgnoreIt)
{
    volume.folder("/Users/alice/Library/Containers/com.apple.RemoteDesktop");
    const auto found = [&] {
        return json::parse(scan({"--format", "json"}).out)["report"]["spyWareList"];
    };
    EXPECT_EQ(run({"settings", "remote-desktop"}).out, "Apple Remote Desktop: told by scans\n");
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(found()[0]["path"], "/Users/alice/Library/Containers/com.apple.RemoteDesktop");
    EXPECT_EQ(found()[0]["isAvail"], true);
    EXPECT_EQ(run({"settings", "remote-desktop", "--ignore"}).code, 0);
    EXPECT_EQ(found().size(), 0U);
    EXPECT_EQ(run({"settings", "remote-desktop", "--ignore", "--show"}).code, 2);
    EXPECT_THAT(run({"settings", "remote-desktop"}).out, HasSubstr("ignored"));
    EXPECT_EQ(run({"settings", "remote-desktop", "--show"}).code, 0);
    EXPECT_EQ(found().size(), 1U);
}

TEST_F(ScanCommandTest, ACleanVolumeIsCleanAndAMissingHomeSaysSo)
{
    const Outcome clean = scan();
    EXPECT_EQ(clean.code, 0) << clean.err;
    EXPECT_THAT(clean.out, HasSubstr("Clean: nothing found."));

    volume.folder("/Users/bob");
    const Outcome nobody = run({"scan", "--volume", volume.path(), "--user", "carol"});
    EXPECT_EQ(nobody.code, 3);
    EXPECT_THAT(nobody.out, Not(HasSubstr("Clean: nothing found.")));
    EXPECT_THAT(nobody.out, HasSubstr("no home at /Users/carol, homes there are: "));
    EXPECT_THAT(nobody.out, HasSubstr("alice"));
}

TEST_F(ScanCommandTest, AHomeThatCannotBeReadIsNotClean)
{
    std::filesystem::permissions(volume.hostPath("/Users/alice"), {});
    std::filesystem::permissions(volume.path(), std::filesystem::perms(0755));
    const std::string told = test::asNobody([&] {
        const Outcome outcome = scan({"--no-store", "--format", "json"});
        return std::to_string(outcome.code) +
               json::parse(outcome.out).at("verdict").get<std::string>();
    });
    std::filesystem::permissions(volume.hostPath("/Users/alice"), std::filesystem::perms(0755));
    EXPECT_EQ(told, "3incomplete");
}

TEST_F(ScanCommandTest, BadInputIsOneLineOfErrorAndNothingElse)
{
    volume.file("/file");
    const std::string file = volume.hostPath("/file");
    const std::vector<std::vector<std::string>> rows = {
        {"scan", "--volume", volume.hostPath("/nowhere")},
        {"scan", "--volume", file},
        {"scan", "--volume", ""},
        {"scan", "--volume", volume.path(), "--user", "../bob"},
        {"scan", "--volume", volume.path(), "--user", "/Users/alice"},
        {"scan", "--volume", volume.path(), "--user", ".."},
        {"scan", "--frobnicate"},
        {"scan", "--format", "yaml"},
        {"scan", "--store", "--no-store"},
        {"frobnicate"},
        {"report", "show", "no-such-report"},
        {"report", "show"},
        {"report", "export", "latest", "--format", "pdf"},
        {"report", "delete", "latest", "--yes"},
        {"report", "compare", "latest", "latest"},
        {"explain", ""},
        {},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row));
        const Outcome outcome = run(row);
        EXPECT_EQ(outcome.code, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, testing::StartsWith("pryvane-cli: "));
        EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    }
}

TEST_F(ScanCommandTest, WithoutAStoreNoDataFolderIsNeeded)
{
    test::TemporaryFolder other;
    other.file("/blocked");
    setenv("PRYVANE_DATA_DIR", other.hostPath("/blocked").c_str(), 1);
    const Outcome refused = scan();
    EXPECT_EQ(refused.code, 2);
    EXPECT_EQ(refused.out, "");
    const Outcome fine = scan({"--no-store"});
    EXPECT_EQ(fine.code, 0) << fine.err;
    EXPECT_THAT(fine.out, HasSubstr("Clean"));
    EXPECT_TRUE(other.contains("/blocked"));
}

TEST_F(ScanCommandTest, ADamagedStoreIsSetAsideOnceAndTheScanGoesOn)
{
    ASSERT_EQ(scan().code, 0);
    std::ofstream(data.hostPath("/Pryvane.sqlite"), std::ios::binary) << std::string(5000, '#');
    const Outcome told = scan();
    EXPECT_EQ(told.code, 0);
    EXPECT_THAT(told.err, HasSubstr("what was there is kept as"));
    const Outcome after = scan();
    EXPECT_EQ(after.err, "");
    EXPECT_EQ(reportIds().size(), 2U);
}

TEST_F(ScanCommandTest, HostileNamesComeThroughUnharmedAndEscaped)
{
    std::vector<std::string> names;
    for (const std::string& name : test::hostileNames()) {
        if (name.find('/') == std::string::npos)
            volume.file("/Library/LaunchAgents/" + names.emplace_back("x.refog." + name));
    }
    const Outcome found = scan({"--format", "json"});
    ASSERT_EQ(found.code, 1) << found.err;
    const std::string exported = onVolume({"report", "export", "latest"}).out;
    for (const std::string& text :
         {found.out, exported, onVolume({"report", "show", "latest"}).out,
          onVolume({"report", "export", "latest", "--format", "csv"}).out,
          onVolume({"report", "export", "latest", "--format", "html"}).out})
        EXPECT_TRUE(test::isHarmless(text, "\r\n"));

    for (const std::string& text : {found.out, exported}) {
        std::set<std::string> decoded, expected;
        const json parsed = json::parse(text);
        for (const json& record : parsed["report"]["spyWareList"])
            decoded.insert(percentDecoded(record["url"].get<std::string>()));
        for (const std::string& name : names)
            expected.insert("file:///Library/LaunchAgents/" + name);
        EXPECT_EQ(decoded, expected);
    }
}

} // namespace
} // namespace pryvane
