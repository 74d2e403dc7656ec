#include "signatures/Explain.h"

#include "SignatureScan.h"
#include "core/Texts.h"
#include "findings/Spyware.h"
#include "signatures/Catalogue.h"
#include "signatures/FlaggedBy.h"
#include "support/TemporaryFolder.h"
#include "volume/FoldedName.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <set>

namespace pryvane::test {

namespace {

Explanation explained(std::string_view path)
{
    return explain({std::string(path), std::string(kUser), {}});
}

/// The matches as "method: signature (evidence)".
std::vector<std::string> told(const Explanation& explanation)
{
    std::vector<std::string> lines;
    for (const ExplainMatch& match : explanation.matches) {
        lines.push_back(std::string(match.row.method) + ": " + std::string(match.row.signature) +
                        " (" + std::string(evidenceText(match.evidence)) + ")");
    }
    return lines;
}

} // namespace

class ExplainAndScan : public ::testing::TestWithParam<NameMatching> {};

INSTANTIATE_TEST_SUITE_P(Volumes, ExplainAndScan,
                         ::testing::Values(NameMatching::Exact, NameMatching::AsOnMac),
                         [](const auto& param) {
                             return param.param == NameMatching::Exact ? "Exact" : "AsOnMac";
                         });

TEST_P(ExplainAndScan, AgreeOnEveryPlantedPath)
{
    const bool asOnMac = GetParam() == NameMatching::AsOnMac;
    std::vector<std::string> plants = {"/Library/Caches/nothing", "/Library/Preferences/.okaz.x",
                                       "/Users/alice/Library/Caches/x.exploit.codec"};
    for (const CatalogRow& row : catalogRows()) {
        const std::string text = catalogue::filled(row.signature, {kUser});
        if (row.rule == RuleKind::NameFragment)
            plants.push_back("/Library/LaunchDaemons/com." + text);
        else if (row.rule == RuleKind::LibraryScope)
            plants.push_back("/System/Library/" + text);
        else
            plants.push_back(text);
    }
    std::ranges::sort(plants, std::ranges::greater{}, &std::string::size);
    TemporaryFolder volume;
    for (std::string& path : plants) {
        if (asOnMac)
            std::ranges::transform(path, path.begin(), [](unsigned char c) {
                return static_cast<char>(std::toupper(c));
            });
        volume.plant(path);
    }

    const auto disk = volumeAt(volume, GetParam());
    SignatureScan scan(*disk);
    scan.run();
    // A Mac's disk finds things under the catalogue's spelling, not under that on the disk.
    const auto place = [&](const std::string& path) {
        const auto location = FileURL::fileURLWithPath(path).absolutePath();
        return asOnMac ? lowerAscii(location) : location;
    };
    std::map<std::string, std::set<std::string>> found;
    for (const auto& [location, family] : scan.sink.findings()) {
        if (family != catalogue::kRemoteDesktop) // one for several locations
            found[place(location)].insert(family);
        plants.push_back(location); // folders above what was planted, too
    }
    EXPECT_GT(found.size(), 450U);

    std::size_t turn = 0;
    for (const std::string& path : std::set(plants.begin(), plants.end())) {
        if (asOnMac && turn++ % 8 != 0) // folding is slow in a debug build
            continue;
        ExplainQuestion question{path, std::string(kUser), {}};
        if (asOnMac)
            question.foldedName = foldedName;
        const Explanation explanation = explain(question);
        std::set<std::string> families;
        for (const ExplainMatch& match : explanation.matches) {
            if (match.row.rule != RuleKind::FullSystemSubstring &&
                match.row.rule != RuleKind::RemoteDesktop)
                families.emplace(match.row.family);
        }
        EXPECT_EQ(families, found[place(path)]) << path;
    }
}

TEST(Explain, TellsEveryRuleThatFits)
{
    const struct {
        const char* path;
        std::vector<std::string> expected;
    } cases[] = {
        {"/Library/LaunchAgents/com.imonitor.service.plist",
         {"iMonitorMacKeylogger: iMonitor (known name in a launch folder)",
          "iMonitorMacKeylogger: LaunchAgents/com.imonitor.service.plist (exact path)",
          "deep scan: LaunchAgents/com.imonitor.service.plist (bare substring)"}},
        {"/Library/Preferences/com.okaz.x", {"OkazInstaller: Okaz (name fragment)"}},
        {"/Library/Caches/MyCodecPack", {"FkCodec: Codec (bare substring)"}},
        {"/Library/Application Support/Apple Remote Desktop",
         {"checkForARD: /Library/Application Support/Apple Remote Desktop/ (exact path)"}},
        {"tmp//./.mdworker/", {"Revir: /tmp/.mdworker (exact path)"}},
        {"/Users/alice/x/Sabpab.txt", {"deep scan: Sabpab (bare substring)"}},
        {"/Users/alice/x/.Sabpab", {}},    // a deep scan skips hidden files
        {"/Users/alice/x/sabpab.txt", {}}, // and keeps to the case
        {"/Library/Application Support/RefogData", {}},
        {"/library/launchagents/COM.IMONITOR.X", {}},
        {"/", {}},
        {"", {}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(told(explained(row.path)), row.expected) << row.path;
}

TEST(FindingRules, TellTheStrongestRuleOfAFindingAndTheTextThatFits)
{
    const struct {
        const char* path;
        const char* family;
        const char* expected;
        bool isWeak;
    } cases[] = {
        {"/tmp/.mdworker", "Revir", "exact path", false},
        {"/Users/bob/Library/.A_o_b_o/", "Aobo Keylogger Pro", "exact path", false},
        {"/Library/LaunchAgents/com.refog.plist", "Refog Personal Monitor",
         "known name in a launch folder \"Refog\"", false},
        {"/Library/Preferences/com.okaz.x", "Okaz Installer", "name fragment \"Okaz\"", true},
        {"/Users/bob/x/Sabpab.txt", "Spyware", "bare substring \"Sabpab\"", true},
        // The longest text says most, and the home it lies in is the one that counts.
        {"/Users/bob/Library/mdsa1331/Sabpab", "Spyware",
         "bare substring \"/Users/bob/Library/mdsa1331\"", true},
        // Found by the walk before the check came to it.
        {"/Library/LaunchAgents/com.refog.plist", "Spyware",
         "known name in a launch folder \"Refog\"", false},
        {"/Users/bob/Library/mdsa1331", "Spyware", "exact path", false},
        {"/no/such/rule", "Revir", "bare substring", true},
    };
    FindingRules rules;
    for (const auto& row : cases) {
        const auto record =
            Spyware::SpyWareSeen("x", row.family, 0, FileURL::fileURLWithPath(row.path), kHighRisk);
        const FlaggedBy flaggedBy = rules.flaggedBy(*record);
        EXPECT_EQ(evidenceText(flaggedBy), row.expected) << row.path;
        EXPECT_EQ(isWeak(flaggedBy.evidence), row.isWeak) << row.path;
    }
}

TEST(Explain, TellsWhatKeepsAPathOffTheList)
{
    for (const std::string root : {"/System", ""}) {
        const auto good = explained(root + "/Library/LaunchDaemons/com.apple.periodic-daily.plist");
        EXPECT_EQ(good.isKnownGood, root == "/System");
        EXPECT_EQ(good.matches.empty(), good.isKnownGood);
    }
    for (const auto& [name, rule] : {std::pair{"Codec-M.app", ApplicationRule::HeldBack},
                                     std::pair{"Tidewell.okaz.app", ApplicationRule::DependsOnDisk},
                                     std::pair{"Codec-M.App", ApplicationRule::NotAnApplication}})
        EXPECT_EQ(explained(std::string("/Applications/") + name).applicationRule, rule) << name;

    // A deep scan compares letters as they are, also on a disk that folds them.
    const auto folded = [](std::string_view text) { return lowerAscii(text); };
    EXPECT_TRUE(explain({"/users/alice/x/sabpab.txt", std::string(kUser), folded}).matches.empty());
    EXPECT_TRUE(explained("/usr/local/machook").matches.front().onlyAsFolder);
    EXPECT_TRUE(explained("/opt/Sabpab").matches.front().onlyOnWholeDisk);
    EXPECT_FALSE(explained("/Users/alice/Sabpab").matches.front().onlyOnWholeDisk);
}

} // namespace pryvane::test
