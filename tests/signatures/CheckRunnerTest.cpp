#include "SignatureScan.h"
#include "signatures/CatalogRows.h"
#include "signatures/Catalogue.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace pryvane::test {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string kHome = "/Users/" + std::string(kUser);

class SignaturesTest : public ::testing::Test {
protected:
    TemporaryFolder volume;
    const std::unique_ptr<FileSystem> ownedDisk = opened(volume);
    FileSystem& disk = *ownedDisk;

    void plantAll(std::vector<std::string> paths)
    {
        // Folders before the files that would stand in their place.
        std::ranges::sort(paths, std::ranges::greater{}, &std::string::size);
        for (const std::string& path : paths)
            volume.plant(path);
    }

    [[nodiscard]] std::vector<Finding> findings()
    {
        SignatureScan scan(disk);
        scan.run();
        return scan.sink.findings();
    }
};

std::string lowered(std::string text)
{
    std::ranges::transform(text, text.begin(), [](unsigned char c) {
        return static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    });
    return text;
}

std::string forUser(std::string_view pattern)
{
    std::string text(pattern);
    if (const auto place = text.find("%@"); place != std::string::npos)
        text.replace(place, 2, kUser);
    return text;
}

/// The locations that a rule tests by name, spelled out without the catalogue's own functions.
std::vector<std::string> locationsOf(const CatalogRow& row)
{
    const std::string location = forUser(row.signature);
    switch (row.rule) {
    case RuleKind::UserApplications:
        return {kHome + location};
    case RuleKind::LibraryScope:
        return {"/Library/" + location, "/System/Library/" + location,
                kHome + "/Library/" + location};
    case RuleKind::NameFragment:
    case RuleKind::BareWord:
    case RuleKind::FullSystemSubstring:
        return {};
    default:
        return {location};
    }
}

/// What to plant so that the rule must flag it.
std::vector<std::string> plantsFor(const CatalogRow& row)
{
    const std::string text(row.signature);
    if (row.rule == RuleKind::NameFragment && text.find('/') != std::string::npos)
        return {};
    if (row.rule == RuleKind::NameFragment)
        return {"/Library/LaunchAgents/com." + text + "-agent",
                kHome + "/Library/Caches/" + text + ".db"};
    if (row.rule == RuleKind::BareWord)
        return {"/Library/Preferences/My" + text + "Pack"};
    return locationsOf(row);
}

bool isInDefaultFolder(const std::string& path)
{
    const std::string parent = path.substr(0, path.rfind('/'));
    return std::ranges::any_of(catalogue::defaultFolders(),
                               [&](std::string_view folder) { return forUser(folder) == parent; });
}

/// Whether a rule flags a path, decided for itself.
class Judge {
public:
    explicit Judge(const CatalogRow& row)
        : m_rule(row.rule), m_text(lowered(std::string(row.signature)))
    {
        for (const std::string& location : locationsOf(row))
            m_locations.insert(FileURL::fileURLWithPath(location).absolutePath());
    }

    [[nodiscard]] bool flags(const std::string& path) const
    {
        if (m_rule == RuleKind::NameFragment)
            return holds(path, m_text + ".") || holds(path, "." + m_text);
        if (m_rule == RuleKind::BareWord)
            return holds(path, m_text);
        return m_locations.contains(FileURL::fileURLWithPath(path).absolutePath());
    }

private:
    static bool holds(const std::string& path, const std::string& text)
    {
        return lowered(path).find(text) != std::string::npos && isInDefaultFolder(path);
    }

    RuleKind m_rule;
    std::string m_text;
    std::set<std::string> m_locations;
};

std::vector<CatalogRow> checkRows()
{
    std::vector<CatalogRow> rows = catalogRows();
    std::erase_if(rows,
                  [](const CatalogRow& row) { return row.rule == RuleKind::FullSystemSubstring; });
    return rows;
}

} // namespace

/// The tables are data: a letter that slips changes what is found, and neither the compiler nor a
/// test that reads the same row can see it.
TEST(Catalogue, HoldsTheTextsThatWereMeant)
{
    std::uint64_t digest = 14'695'981'039'346'656'037U; // FNV-1a
    const auto add = [&](std::string_view text) {
        for (const char byte : std::string(text) + '\n')
            digest = (digest ^ static_cast<unsigned char>(byte)) * 1'099'511'628'211U;
    };
    for (const CatalogRow& row : catalogRows()) {
        for (const std::string_view text :
             {row.method, row.family, ruleText(row.rule), row.signature, row.note})
            add(text);
    }
    for (const SequenceRow& row : catalogue::sequence()) {
        add(row.label);
        add(std::to_string(row.pause.count()));
    }
    EXPECT_EQ(digest, 17'348'392'009'123'065'358U)
        << "a table has changed; where that was meant, put the new number here";
}

TEST_F(SignaturesTest, AVolumeWithEverythingGivesEveryFindingAndNothingElse)
{
    std::vector<std::string> plants;
    for (const CatalogRow& row : checkRows())
        std::ranges::copy(plantsFor(row), std::back_inserter(plants));
    plantAll(plants);
    for (const std::string_view folder : catalogue::defaultFolders()) {
        for (const FolderEntry& e : disk.list(FileURL::fileURLWithPath(forUser(folder))).entries)
            plants.push_back(forUser(folder) + "/" + e.name);
    }

    std::set<Finding> expected;
    for (const CatalogRow& row : checkRows()) {
        if (row.rule == RuleKind::RemoteDesktop)
            continue;
        const Judge judge(row);
        for (const std::string& path : plants) {
            if (judge.flags(path))
                expected.insert(
                    {FileURL::fileURLWithPath(path).absolutePath(), std::string(row.family)});
        }
    }
    expected.insert({"/Library/Preferences/com.apple.RemoteDesktop.plist", "Apple Remote Desktop"});

    const auto found = findings();
    EXPECT_THAT(found, ::testing::ElementsAreArray(expected));
    EXPECT_GT(expected.size(), 700U);
}

TEST_F(SignaturesTest, NearMissesGiveNothing)
{
    for (const std::string_view file : catalogue::knownGoodFiles())
        volume.plant(forUser(file));
    for (const char* path : {
             "/Library/Application Support/RefogData",      // no dot touches the name
             "/Library/Application Support/MyGenieoThing",  //
             "/Library/LaunchAgents/sub/com.refog.plist",   // not a direct entry
             "/Users/bob/Library/.A_o_b_o/x",               // another user
             "/Users/bob/Applications/PKL.app/x",           //
             "/Applications/MacGuard.app/Contents/PkgInfo", // plural folder, not a listed leaf
             "/Application/MacGuard.apps/x",                //
             "/Library/StartupItems/LiloDS",                // capitals where none are
             "/Users/alice/tmp/.mdworker",                  //
             "/System/Library/LaunchDaemons/com.apple.alf.plist",
         })
        volume.plant(path);
    volume.file("/usr/local/machook"); // must be a folder
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(SignaturesTest, KnownGoodFilesAreLeftOutOfTheDefaultLocationsOnly)
{
    volume.plant("/System/Library/LaunchDaemons/com.apple.periodic-daily.plist");
    volume.plant("/System/Library/LaunchDaemons/com.apple.periodic.other.plist");
    EXPECT_THAT(findings(),
                ElementsAre(Finding{"/System/Library/LaunchDaemons/com.apple.periodic.other.plist",
                                    "OSX/WireLurker"}));
}

TEST_F(SignaturesTest, ChecksHandOverDoublesAndKeepTheirOrder)
{
    volume.plant(kHome + "/Library/.A_o_b_o/");
    volume.plant("/Library/LaunchAgents/com.aobo.agent.plist");
    volume.plant("/Library/Caches/.aobo.cache");
    SignatureScan scan(disk);
    scan.run("AoboKeyloggerPro");
    // Names first: with the dot behind, then with the dot before (where both have one, both).
    EXPECT_THAT(
        scan.sink.paths(),
        ElementsAre("/Library/LaunchAgents/com.aobo.agent.plist", "/Library/Caches/.aobo.cache",
                    "/Library/LaunchAgents/com.aobo.agent.plist", "/Library/Caches/.aobo.cache",
                    kHome + "/Library/.A_o_b_o/", kHome + "/Library/.A_o_b_o/"));
}

TEST_F(SignaturesTest, LibraryScopeTriesThreeRootsInOrder)
{
    SignatureScan scan(disk);
    EXPECT_THAT(scan.runner.checkUrlInALLScope("LaunchAgents/x.plist"), IsEmpty());
    volume.plant(kHome + "/Library/LaunchAgents/x.plist");
    volume.plant("/Library/LaunchAgents/x.plist");
    EXPECT_THAT(
        scan.runner.checkUrlInALLScope("LaunchAgents/x.plist"),
        ElementsAre("Library/LaunchAgents/x.plist", kHome + "/Library/LaunchAgents/x.plist"));
    volume.plant("/System/Library/LaunchAgents/x.plist");
    EXPECT_THAT(scan.runner.checkUrlInALLScope("LaunchAgents/x.plist"),
                ElementsAre("Library/LaunchAgents/x.plist", "/System/Library/LaunchAgents/x.plist",
                            kHome + "/Library/LaunchAgents/x.plist"));
}

TEST_F(SignaturesTest, TheUsersOwnApplicationComesBeforeTheCommonOne)
{
    volume.plant("/Applications/PKL.app/");
    volume.plant(kHome + "/Applications/PKL.app/");
    volume.plant("/Library/LaunchDaemons/logKext.plist");
    SignatureScan scan(disk);
    scan.run("OtherSpyWareSearch");
    EXPECT_THAT(scan.sink.paths(),
                ElementsAre("Library/LaunchDaemons/logKext.plist", kHome + "/Applications/PKL.app",
                            "/Applications/PKL.app"));
}

TEST_F(SignaturesTest, BackdoorFindingsHaveNoSize)
{
    volume.file(kHome + "/Library/Skype/SkypeHelper", std::string(9000, 'x'));
    volume.file(kHome + "/Library/Application Support/Skype/SkypeHelper", std::string(9000, 'x'));
    SignatureScan scan(disk);
    scan.run("checkForBackDoor");
    EXPECT_THAT(scan.sink.calls, SizeIs(14));
    ASSERT_THAT(scan.sink.listed, SizeIs(2));
    for (const RecordingSink::Call& call : scan.sink.listed)
        EXPECT_EQ(call.size, 0);
}

TEST_F(SignaturesTest, RemoteDesktopIsWatchedUntilTheUserIgnoresIt)
{
    SignatureScan scan(disk);
    scan.run("checkForARD");
    EXPECT_EQ(scan.defaults.objectForKey("ARD"), PreferenceValue(true));
    EXPECT_THAT(scan.sink.calls, IsEmpty());

    volume.plant(kHome + "/Library/Containers/com.apple.RemoteDesktop/");
    scan.run("checkForARD");
    ASSERT_THAT(scan.sink.calls, SizeIs(1));
    EXPECT_TRUE(scan.sink.calls[0].appended);
    EXPECT_EQ(scan.sink.calls[0].url.relativePath(),
              kHome + "/Library/Containers/com.apple.RemoteDesktop")
        << "the one that is there";

    ASSERT_TRUE(scan.defaults.set(preferences::kARD, false).ok());
    scan.run("checkForARD");
    EXPECT_THAT(scan.sink.calls, SizeIs(1));
    EXPECT_EQ(scan.defaults.objectForKey("ARD"), PreferenceValue(false));
}

TEST_F(SignaturesTest, NameSearchesReadTheSnapshot)
{
    volume.plant("/Library/Caches/com.okaz.x");
    SignatureScan scan(disk);
    scan.runner.prepareForScan();
    volume.plant("/Library/Caches/com.okaz.y");
    EXPECT_THAT(scan.runner.defaultCheckingArray(), ElementsAre("/Library/Caches/com.okaz.x"));
    EXPECT_THAT(scan.runner.checkForSpywareNameFileInDefaultLocation("okaz"),
                ElementsAre("/Library/Caches/com.okaz.x", "/Library/Caches/com.okaz.x"));
    scan.runner.prepareForScan();
    EXPECT_THAT(scan.runner.defaultCheckingArray(), SizeIs(2));
}

TEST_F(SignaturesTest, CoverageCountsWhatWasTestedAndNamesWhatCouldNotBe)
{
    volume.plant("/Library/Caches/a");
    volume.plant("/Library/LaunchAgents/b");
    volume.plant("/Library/LaunchDaemons/com.okaz.x");
    volume.plant(kHome + "/Library/Skype/");
    RefusingDisk refusing(disk);
    refusing.unlistable = {"/Library/LaunchDaemons", kHome + "/Library/Containers"};
    refusing.untestable = {kHome + "/Library/.A_o_b_o", kHome + "/Library/Skype/SkypeHelper"};
    SignatureScan scan(refusing);
    scan.run();
    EXPECT_THAT(scan.sink.findings(), IsEmpty());
    EXPECT_EQ(scan.coverage.foldersListed, 2);
    EXPECT_EQ(scan.coverage.entriesSearched, 2);
    EXPECT_THAT(scan.coverage.refused,
                ::testing::UnorderedElementsAre(
                    Refusal{"/Library/LaunchDaemons", "permission denied"},
                    Refusal{kHome + "/Library/Containers", "permission denied"},
                    Refusal{kHome + "/Library", "locations below it could not be tested"},
                    Refusal{kHome + "/Library/Skype", "locations below it could not be tested"}));

    // A clean volume and a full one are tested for the same signatures.
    std::int64_t rows = 0;
    for (const CatalogRow& row : checkRows())
        rows += row.rule == RuleKind::LibraryScope ? 3 : 1;
    EXPECT_EQ(scan.coverage.signaturesTested, rows - 1); // "KitM" stands twice
}

} // namespace pryvane::test
