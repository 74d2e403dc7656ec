#include "cli/CliFixture.h"
#include "core/Escape.h"
#include "support/ReportFixtures.h"
#include "support/Volumes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <set>

namespace pryvane {
namespace {

using nlohmann::json;

using ScanCommandTest = test::CliFixture;

TEST_F(ScanCommandTest, DeepScansTheHomeOrTheWholeDisk)
{
    const std::string inHome = "/Users/alice/Music/Koobface/song.mp3", outside = "/opt/Koobface/x";
    volume.file(inHome);
    volume.file(outside);
    const struct {
        std::vector<std::string> arguments;
        bool findsOutside;
        std::size_t reports; ///< stored by then
    } rows[] = {{{"--deep"}, false, 1},
                {{"--deep", "--whole-disk"}, true, 2},
                {{"--deep", "--check-sub-dir", "n"}, false, 2}}; // a flat scan leaves none
    for (const auto& row : rows) {
        const Outcome outcome = scan(row.arguments);
        EXPECT_THAT(outcome, test::says(1, inHome));
        EXPECT_EQ(outcome.out.find(outside) != std::string::npos, row.findsOutside);
        EXPECT_EQ(reportIds().size(), row.reports);
    }
}

TEST_F(ScanCommandTest, RemoteDesktopIsToldWhereItIsUntilTheSettingsIgnoreIt)
{
    const std::string container = "/Users/alice/Library/Containers/com.apple.RemoteDesktop";
    volume.folder(container);
    const auto settings = [&](std::vector<std::string> more) {
        more.insert(more.begin(), {"settings", "remote-desktop"});
        return run(more);
    };
    EXPECT_EQ(settings({}).out, "Apple Remote Desktop: told by scans\n");
    EXPECT_THAT(scan(), test::says(1, container));
    EXPECT_EQ(settings({"--ignore"}).code, 0);
    EXPECT_EQ(scan().code, 0);
    EXPECT_EQ(settings({"--ignore", "--show"}).code, 2);
    EXPECT_THAT(settings({}), test::says(0, "ignored"));
    EXPECT_EQ(settings({"--show"}).code, 0);
    EXPECT_EQ(scan().code, 1);
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
        {"scan", "--deep", "--quick"},
        {"scan", "--whole-disk"},
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
    EXPECT_THAT(scan(), test::refuses(""));
    EXPECT_THAT(scan({"--no-store"}), test::says(0, "Clean"));
    EXPECT_TRUE(other.contains("/blocked"));
}

TEST_F(ScanCommandTest, ADamagedStoreIsSetAsideOnceAndTheScanGoesOn)
{
    ASSERT_EQ(scan().code, 0);
    std::ofstream(data.hostPath("/Pryvane.sqlite"), std::ios::binary) << std::string(5000, '#');
    EXPECT_THAT(scan(), test::remarks(0, "what was there is kept as"));
    EXPECT_EQ(scan().err, "");
    EXPECT_EQ(reportIds().size(), 2U);
}

/// The exports have their own test; this one is of what the commands themselves print.
TEST_F(ScanCommandTest, HostileNamesComeThroughUnharmedAndEscaped)
{
    std::set<std::string> names, decoded;
    for (const std::string& name : test::hostileNames()) {
        if (name.find('/') == std::string::npos)
            volume.file("/Library/LaunchAgents/" + *names.insert("x.refog." + name).first);
    }
    const Outcome found = scan({"--format", "json"});
    ASSERT_EQ(found.code, 1) << found.err;
    for (const std::string& text :
         {found.out, scan().out, onVolume({"report", "show", "latest"}).out})
        EXPECT_TRUE(test::isHarmless(text, "\r\n"));
    const json parsed = json::parse(found.out);
    for (const json& record : parsed["report"]["spyWareList"])
        decoded.insert(percentDecoded(record["url"].get<std::string>()).substr(29));
    EXPECT_EQ(decoded, names);
}

} // namespace
} // namespace pryvane
