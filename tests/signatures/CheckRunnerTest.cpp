#include "SignatureScan.h"
#include "signatures/CatalogRows.h"
#include "signatures/Catalogue.h"
#include "signatures/NameSearch.h"
#include "support/TemporaryFolder.h"
#include "support/WatchedDisk.h"

#include <gmock/gmock.h>

namespace pryvane::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string kHome = "/Users/" + std::string(kUser);

class SignaturesTest : public ::testing::Test {
protected:
    TemporaryFolder volume;
    const std::unique_ptr<FileSystem> ownedDisk = opened(volume);
    FileSystem& disk = *ownedDisk;

    [[nodiscard]] std::vector<Finding> findings()
    {
        SignatureScan scan(disk);
        scan.run();
        return scan.sink.findings();
    }
};

std::string forUser(std::string_view pattern)
{
    std::string text(pattern);
    if (const auto place = text.find("%@"); place != std::string::npos)
        text.replace(place, 2, kUser);
    return text;
}

std::vector<CatalogRow> checkRows()
{
    std::vector<CatalogRow> rows = catalogRows();
    std::erase_if(rows,
                  [](const CatalogRow& row) { return row.rule == RuleKind::FullSystemSubstring; });
    return rows;
}

NameSearch searchOver(const std::vector<std::string>& names, const char* folder = "/Library/Caches")
{
    DefaultLocations locations;
    locations.addFolder(folder, names);
    return NameSearch(std::move(locations));
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
    SignatureScan scan(disk);
    scan.run("checkForBackDoor");
    ASSERT_THAT(scan.sink.calls, SizeIs(14));
    for (const RecordingSink::Call& call : scan.sink.calls)
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
    WatchedDisk refusing(disk);
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

TEST(NameSearch, FindsANameOnlyWhereADotTouchesIt)
{
    const auto search = searchOver({"com.okaz.agent", "Okaz", "OkazData", "OKAZ.app", "x.oKaz",
                                    "okaz-", "okazz.plist", ".okaz", "y.okaz.okaz"});
    EXPECT_THAT(search.touchingDot("Okaz"),
                ElementsAre("/Library/Caches/com.okaz.agent", "/Library/Caches/OKAZ.app",
                            "/Library/Caches/y.okaz.okaz", "/Library/Caches/com.okaz.agent",
                            "/Library/Caches/x.oKaz", "/Library/Caches/.okaz",
                            "/Library/Caches/y.okaz.okaz"));
    EXPECT_THAT(search.touchingDot("Okaz Installer"), IsEmpty());
    EXPECT_THAT(searchOver({"MyCodecPack", "code"}).containing("Codec"),
                ElementsAre("/Library/Caches/MyCodecPack"));
}

TEST(NameSearch, ANameInTheFolderItselfHitsEveryEntry)
{
    const auto search = searchOver({"a", "b.okaz"}, "/Users/x.okaz/Library/Caches");
    EXPECT_THAT(search.touchingDot("Okaz"), ElementsAre("/Users/x.okaz/Library/Caches/a",
                                                        "/Users/x.okaz/Library/Caches/b.okaz"));
}

} // namespace pryvane::test
