#include "SignatureScan.h"
#include "signatures/CatalogRows.h"
#include "signatures/Catalogue.h"
#include "signatures/NameSearch.h"
#include "support/TemporaryFolder.h"
#include "support/WatchedDisk.h"

#include <gmock/gmock.h>

namespace pryvane::test {

namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string kHome = "/Users/" + std::string(kUser);

class SignaturesTest : public ::testing::Test {
protected:
    TemporaryFolder volume;
    const std::unique_ptr<FileSystem> ownedDisk = volumeAt(volume, NameMatching::Exact);
    FileSystem& disk = *ownedDisk;

    [[nodiscard]] std::set<Finding> findings()
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
    const std::string other = "/System/Library/LaunchDaemons/com.apple.periodic.other.plist";
    volume.plant(other); // beside one that is known to be good
    EXPECT_THAT(findings(), ElementsAre(Finding{other, "OSX/WireLurker"}));
}

TEST_F(SignaturesTest, ChecksHandOverDoublesAndKeepTheirOrder)
{
    const struct {
        const char* method;
        std::vector<std::string> planted, told;
    } rows[] = {
        // The user's own application before the common one.
        {"OtherSpyWareSearch",
         {"/Applications/PKL.app/", kHome + "/Applications/PKL.app/",
          "/Library/LaunchDaemons/logKext.plist"},
         {"Library/LaunchDaemons/logKext.plist", kHome + "/Applications/PKL.app",
          "/Applications/PKL.app"}},
        // Names first: with the dot behind, then with the dot before (where both have one, both).
        {"AoboKeyloggerPro",
         {kHome + "/Library/.A_o_b_o/", "/Library/LaunchAgents/com.aobo.agent.plist",
          "/Library/Caches/.aobo.cache"},
         {"/Library/LaunchAgents/com.aobo.agent.plist", "/Library/Caches/.aobo.cache",
          "/Library/LaunchAgents/com.aobo.agent.plist", "/Library/Caches/.aobo.cache",
          kHome + "/Library/.A_o_b_o/", kHome + "/Library/.A_o_b_o/"}},
    };
    SignatureScan scan(disk);
    for (const auto& row : rows) {
        for (const std::string& path : row.planted)
            volume.plant(path);
        scan.sink.calls.clear();
        scan.run(row.method);
        EXPECT_EQ(scan.sink.paths(), row.told);
    }
    scan.sink.calls.clear();
    volume.file(kHome + "/Library/Skype/SkypeHelper", std::string(9000, 'x'));
    scan.run("checkForBackDoor");
    ASSERT_THAT(scan.sink.calls, SizeIs(14));
    for (const RecordingSink::Call& call : scan.sink.calls)
        EXPECT_EQ(call.size, 0) << "a backdoor has no size";
}

TEST_F(SignaturesTest, LibraryScopeTriesThreeRootsInOrder)
{
    SignatureScan scan(disk);
    const std::string name = "LaunchAgents/x.plist";
    std::vector<std::string> expected;
    for (const std::string& root : {"Library/"s, "/System/Library/"s, kHome + "/Library/"}) {
        volume.plant("/" + root + name);
        expected.push_back(root + name);
        EXPECT_EQ(scan.runner.checkUrlInALLScope(name), expected);
    }
}

TEST_F(SignaturesTest, RemoteDesktopIsWatchedUntilTheUserIgnoresIt)
{
    SignatureScan scan(disk);
    scan.run("checkForARD");
    EXPECT_EQ(scan.defaults.objectForKey("ARD"), PreferenceValue(true));
    EXPECT_THAT(scan.sink.calls, IsEmpty());

    const std::string container = kHome + "/Library/Containers/com.apple.RemoteDesktop";
    volume.folder(container);
    scan.run("checkForARD");
    EXPECT_THAT(scan.sink.paths(), ElementsAre(container)) << "the one that is there";
    EXPECT_TRUE(scan.sink.calls[0].appended);

    ASSERT_TRUE(scan.defaults.set(preferences::kARD, false).ok());
    scan.run("checkForARD");
    EXPECT_THAT(scan.sink.calls, SizeIs(1));
    EXPECT_EQ(scan.defaults.objectForKey("ARD"), PreferenceValue(false));
}

TEST_F(SignaturesTest, NameSearchesReadTheSnapshot)
{
    SignatureScan scan(disk);
    for (const std::size_t there : {0U, 1U, 2U}) {
        scan.runner.prepareForScan();
        volume.plant("/Library/Caches/com.okaz." + std::to_string(there));
        EXPECT_THAT(scan.runner.defaultCheckingArray(), SizeIs(there));
        EXPECT_THAT(scan.runner.checkForSpywareNameFileInDefaultLocation("okaz"),
                    SizeIs(2 * there)); // a dot touches it on both sides
    }
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
