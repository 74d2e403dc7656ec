#include "support/RemovalFixtures.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <thread>

namespace pryvane::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kProtected = "failed after 0: this folder is never removed";

TEST(Refusals, KnowFoldersByWhatTheyAre)
{
    RemovalDisk disk;
    for (const char* path :
         {"Users/alice/Documents/letter", "Users/bob/x", "Users/Shared/x", "Library/Evil/x",
          "home/carol/x", "private/etc/hosts", "private/tmp/x", "private/var/db/x",
          "Users/alice/Library/Pryvane/data/store", "System/x", "Users/alice/Library/other"})
        disk.folder.file(path);
    disk.folder.link("etc", "private/etc");
    disk.folder.link("tmp", "/private/tmp");
    disk.folder.link("var", "private/var");
    disk.folder.link("Library/toUsers", "../Users");
    disk.folder.link("Library/toHome", "/Users/alice");
    disk.folder.link("Library/toStore", "../Users/alice/Library/Pryvane/data");
    disk.ownFolders = {disk.folder.hostPath("Library/toStore")}; // known by a link
    std::string deepUp = "/Library/Evil";
    for (int i = 0; i < 200; ++i)
        deepUp += "/..";
    const std::string paths[] = {
        "", ".", "..", "/", "//", "/.", "/..", "/Library/..", "Users", "/Users/", "/uSERS",
        "/Library", "/private", "/etc", "/etc/", "/tmp", "/private/etc", "/private/var/",
        "/Users/alice", "/Users/alice/", "Users//alice", "/users/ALICE", "/Users/Shared",
        "/home/carol", "/Library/Evil/../../Users/alice", "/../../Users/bob", deepUp + "/Users/bob",
        "/Library/toUsers/alice", "/Library/toUsers/../Users/alice", "/Library/toHome/../bob",
        // the program's own folder, what is above it, and what lies in it
        "/Users/alice/Library", "/Users/alice/Library/Pryvane", "/users/alice/library/pryvane/DATA",
        "/Users/alice/Library/Pryvane/data/store", "/Library/toStore/store"};
    const std::string before = treeBelow(disk.folder.path());
    for (const std::string& path : paths) {
        for (const auto scope : {RemovalScope::Item, RemovalScope::ContentsOf}) {
            const RemovalItem item = disk.seen(path, scope);
            EXPECT_THAT(inWords(disk.remove(item)), StartsWith(kProtected)) << path;
            EXPECT_EQ(disk.plan(item).obstacle, RemovalObstacle::ProtectedPlace) << path;
        }
        EXPECT_THAT(inWords(disk.remove(RemovalDisk::stored(path))), StartsWith("failed")) << path;
    }
    EXPECT_EQ(treeBelow(disk.folder.path()), before);

    // What lies in such folders goes, and a link to one goes itself.
    for (const char* path : {"/Users/alice/Documents", "/library/evil/", "/Library/toUsers/",
                             "/Library/toHome", "/Users/alice/../bob/x"})
        EXPECT_THAT(inWords(disk.remove(RemovalDisk::stored(path))), StartsWith("removed")) << path;
    EXPECT_TRUE(disk.folder.contains("Users/alice/Library/Pryvane/data/store"));
    EXPECT_FALSE(disk.folder.contains("Users/bob/x"));
}

/// What of the store's folders is the volume's own is protected where the volume lies inside it
/// too.
TEST(Refusals, KeepWhatTheVolumeItselfLiesIn)
{
    RemovalDisk outer(NameMatching::Exact);
    outer.folder.file("a/volume/x/file");
    const auto inner = std::move(
        VolumeFileSystem::open(outer.folder.hostPath("a/volume"), {NameMatching::Exact}).value());
    NoRemovalJournal none;
    const RemovalItem items[] = {RemovalDisk::stored("/x"), RemovalDisk::stored("/x/file"),
                                 RemovalDisk::stored("/../../a")};
    VolumeRemover remover(*inner, none, {outer.folder.hostPath("a/volume/x")});
    EXPECT_THAT(inWords(removed(remover, items)),
                testing::ElementsAre(StartsWith(kProtected), StartsWith(kProtected), "gone"));
    EXPECT_TRUE(outer.folder.contains("a/volume/x/file"));
}

struct LinkRow {
    const char* path;
    const char* asSeen; ///< beginnings of what is told
    const char* asStored;
};

class LinkTest : public testing::TestWithParam<Confinement> {};
INSTANTIATE_TEST_SUITE_P(Ways, LinkTest,
                         testing::Values(Confinement::BestAvailable, Confinement::ComponentWalk));

TEST_P(LinkTest, OnTheWayAreFollowedOnlyToWhereTheItemWasSeen)
{
    const char* const link = "failed after 0: a link on the way";
    const LinkRow rows[] = {
        {"/Library/link/file", "removed 1", link},
        {"/library/LINK/FILE", "removed 1", link},
        {"/Library/link/", "removed 1", "removed 1"}, // the link itself
        {"/Library/absolute/file/", "gone", link},    // no folder
        {"/Library/absolute/sub/", "removed 2", link},
        {"/Library/absolute/..", "failed after 0: this folder", "failed after 0: this folder"},
        {"/Library/absolute/../file", "removed 1", link}, // that of real/.., not of Library
        {"/tmp/file", "removed 1", "removed 1"},
        {"/TMP/file", "removed 1", "removed 1"},
        {"/etc/file", "removed 1", link}, // not the system's: leads elsewhere
        {"/var/up/file", "removed 1", link},
        {"/Library/nowhere/file", "gone", link},
        {"/Library/missing/file", "gone", "gone"},
        {"/Library/real/none", "gone", "gone"},
        {"/Library/real/deep/none/x", "gone", "gone"},
    };
    for (const LinkRow& row : rows) {
        for (const bool stored : {false, true}) {
            const RemovalDisk disk(NameMatching::AsOnMac, GetParam());
            for (const char* path :
                 {"place/real/file", "place/real/sub/x", "place/file", "Library/file",
                  "private/tmp/file", "private/etc2/file", "private/var/x", "place/real/deep/x"})
                disk.folder.file(path);
            disk.folder.link("Library/link", "../place/real");
            disk.folder.link("Library/absolute", "/place/real");
            disk.folder.link("Library/nowhere", "nothing");
            disk.folder.link("Library/real", "../place/real");
            disk.folder.link("tmp", "private/tmp");
            disk.folder.link("etc", "private/etc2");
            disk.folder.link("var", "private/var");
            disk.folder.link("private/var/up", "../tmp");
            const std::string path = row.path;
            if (path.starts_with("/Library/real")) // nothing of a link there
                disk.folder.remove("Library/real");
            const RemovalItem item = stored ? RemovalDisk::stored(path) : disk.seen(path);
            const std::string before = treeBelow(disk.folder.path());
            const auto forecast = disk.plan(item);
            EXPECT_EQ(treeBelow(disk.folder.path()), before);
            if (forecast.obstacle == RemovalObstacle::None && forecast.kind != FileKind::Missing) {
                // The plan names the place without links.
                const std::filesystem::path place = disk.folder.hostPath(
                    forecast.place.empty() ? at(path).absolutePath() : forecast.place);
                EXPECT_EQ(std::filesystem::canonical(place.parent_path()), place.parent_path());
                EXPECT_TRUE(std::filesystem::exists(std::filesystem::symlink_status(place)))
                    << place;
            }
            const auto result = disk.remove(item);
            EXPECT_THAT(inWords(result),
                        StartsWith(stored || !item.seen ? row.asStored : row.asSeen))
                << path;
            EXPECT_EQ(forecast.obstacle, result.obstacle) << path;
            EXPECT_EQ(forecast.kind == FileKind::Missing,
                      result.outcome == RemovalOutcome::AlreadyGone)
                << path;
            EXPECT_TRUE(disk.folder.contains("Library/file")) << path;
            EXPECT_EQ(result.outcome == RemovalOutcome::Removed,
                      treeBelow(disk.folder.path()) != before);
        }
    }
}

TEST_P(LinkTest, TurnedSinceTheScanAreNotFollowed)
{
    const RemovalDisk disk(NameMatching::AsOnMac, GetParam());
    disk.folder.file("good/file");
    disk.folder.file("bad/file");
    disk.folder.link("way", "bad");
    const RemovalItem item = disk.seen("/way/FILE");
    disk.folder.remove("way");
    for (const char* target : {"good", "/good", "good/../good", "nowhere"}) {
        disk.folder.link("way", target);
        EXPECT_THAT(inWords(disk.remove(item)), StartsWith("failed after 0: a link")) << target;
        disk.folder.remove("way");
    }
    disk.folder.link("way", "good/../bad"); // another way to the same folder
    EXPECT_EQ(inWords(disk.remove(item)), "removed 1");
    disk.folder.remove("way");
    disk.folder.file("way/file"); // without a link what stands there is the finding
    EXPECT_EQ(inWords(disk.remove(item)), "removed 1");
    EXPECT_TRUE(disk.folder.contains("good/file"));
}

/// An item is what was found, and not what has a similar name.
TEST(Removal, TakesNoTwinOfAnotherSpelling)
{
    const struct {
        const char* asked;
        const char* found; ///< as the disk spells it
        const char* twin;
        const char* link = nullptr; ///< from the root to where the twin and what was found lie
        const char* behind = nullptr;
    } rows[] = {
        {"/Applications/Loompa.App", "/Applications/Loompa.App", "/Applications/Loompa.app"},
        {"/Library/evil", "/Library/EVIL", "/Library/evil"}, // the twin as it was asked for
        {"/Library/evil", "/Library/EVIL", "/Library/Evil"},
        {"/Library/evil/x", "/Library/EVIL/x", "/library/evil/x"},
        {"/Library/\u00e9", "/Library/e\u0301", "/Library/\u00e9"},
        {"/tmp/evil", "/private/tmp/EVIL", "/private/tmp/evil", "tmp", "private/tmp"},
        {"/TMP/evil", "/private/tmp/EVIL", "/private/tmp/evil", "tmp", "private/tmp"},
        {"/way/evil", "/place/EVIL", "/place/evil", "way", "place"},
    };
    for (const auto& row : rows) {
        const RemovalDisk disk;
        disk.folder.file(row.found);
        if (row.link)
            disk.folder.link(row.link, row.behind);
        RemovalItem item = disk.seen(row.asked);
        const auto spelled = disk.volume->spelledPath(at(row.asked));
        ASSERT_EQ(spelled, row.found);
        item.spelling = *spelled;
        disk.folder.file(row.twin);
        EXPECT_EQ(disk.plan(item).kind, FileKind::RegularFile) << row.asked;
        EXPECT_THAT(inWords(disk.remove(item)), StartsWith("removed 1")) << row.asked;
        EXPECT_FALSE(disk.folder.contains(row.found)) << row.asked;
        EXPECT_EQ(disk.plan(item).kind, FileKind::Missing) << row.asked;
        EXPECT_EQ(inWords(disk.remove(item)), "gone") << row.asked;
        EXPECT_TRUE(disk.folder.contains(row.twin)) << row.asked;
        disk.folder.file(row.found);
        EXPECT_THAT(inWords(disk.remove(item)), StartsWith("removed 1")) << "made anew";
    }
}

/// Where the spelling is not known the disk decides, also after a scan has remembered one.
TEST(Removal, TakesTheSpellingOfTheDisk)
{
    const RemovalDisk disk;
    disk.folder.file("Library/EVIL/x");
    const RemovalItem item = disk.seen("/library/evil");
    ASSERT_TRUE(item.seen);
    std::filesystem::rename(disk.folder.hostPath("Library/EVIL"),
                            disk.folder.hostPath("Library/eVIL"));
    disk.folder.file("Library/evil2/x");
    EXPECT_EQ(inWords(disk.remove(item)), "removed 2");
    disk.folder.file("Library/eviL");
    disk.folder.file("Library/evil"); // the exact one first
    EXPECT_EQ(inWords(disk.remove(item)),
              "removed 1; another one is there, spelled \"eviL\"; scan again");
    EXPECT_TRUE(disk.folder.contains("Library/eviL"));
    EXPECT_EQ(inWords(disk.remove(item)), "removed 1");
    EXPECT_EQ(inWords(disk.remove(item)), "gone");
    EXPECT_EQ(treeBelow(disk.folder.path()), "/Library\n/Library/evil2\n/Library/evil2/x 1\n");
}

/// Each of several spellings tells of the next, however many are removed from the folder at once.
TEST(Removal, TellsOfTheOtherSpellingsThatStay)
{
    const RemovalDisk disk;
    std::vector<RemovalItem> items;
    for (const char* name : {"plain", "MDSA1331", "other", "caf\u00e9", "MDSa1331"}) {
        disk.folder.file(std::string("tmp/") + name);
        items.push_back(disk.seen(std::string("/tmp/") + name));
    }
    disk.folder.file("tmp/mdsa1331\u00e9");
    disk.folder.file("tmp/Mdsa1331");
    disk.folder.file("tmp/cafe\u0301");
    const auto twin = testing::StartsWith("removed 1; another one is there, spelled");
    EXPECT_THAT(inWords(disk.remove(items)),
                testing::ElementsAre("removed 1", twin, "removed 1", twin, twin));

    const RemovalDisk exact(NameMatching::Exact);
    exact.folder.file("tmp/A");
    exact.folder.file("tmp/a");
    EXPECT_EQ(inWords(exact.remove(exact.seen("/tmp/A"))), "removed 1");
}

TEST(Removal, KeepsTheFolderWhoseContentIsAsked)
{
    const RemovalDisk disk;
    disk.folder.file("place/in/x");
    disk.folder.file("place/file");
    disk.folder.link("place/link", "/other");
    disk.folder.file("other/x");
    disk.folder.link("toOther", "other");
    const auto contents = [&](const char* path) {
        return inWords(disk.remove(disk.seen(path, RemovalScope::ContentsOf)));
    };
    EXPECT_THAT(contents("/place"), StartsWith(kProtected)); // top-level
    disk.folder.file("a/place/in/x");
    disk.folder.file("a/place/y");
    EXPECT_EQ(contents("/a/place"), "removed 3");
    EXPECT_TRUE(disk.folder.contains("a/place"));
    EXPECT_EQ(contents("/a/place/"), "removed 0");
    EXPECT_EQ(contents("/a/none"), "gone");
    EXPECT_THAT(contents("/place/link"), StartsWith("failed after 0: it is no longer"));
    EXPECT_THAT(contents("/place/file"), StartsWith("failed after 0: it is no longer"));
    EXPECT_TRUE(disk.folder.contains("other/x"));
}

TEST(Removal, AsRootTakesNoFolderForAFile)
{
    const RemovalDisk disk;
    disk.folder.file("a/file");
    const RemovalItem item = disk.seen("/a/file");
    disk.folder.remove("a/file");
    disk.folder.file("a/file/precious");
    const std::string told = inWords(disk.remove(item));
    EXPECT_THAT(told,
                StartsWith(runningAsRoot() ? "failed after 0: it is no longer" : "removed 2"));
    EXPECT_EQ(disk.folder.contains("a/file/precious"), runningAsRoot());
    disk.folder.remove("a/file");
    disk.folder.link("a/file", "/elsewhere"); // but a link for a file, which goes itself
    EXPECT_EQ(inWords(disk.remove(item)), "removed 1");
}

/// Writes down what it is told, and can fail.
class WatchingJournal final : public RemovalJournal {
public:
    Result<Done> begin(std::span<const RemovalItem> items) override
    {
        const bool fails = ++m_begun == failingBegin;
        log += "begin " + std::to_string(items.size()) + (fails ? " fails\n" : "\n");
        m_ended = 0;
        return fails ? Result<Done>(Error{"no space left on device"}) : Result<Done>(Done{});
    }
    void ended(std::size_t item, const RemovalResult&) override { EXPECT_EQ(item, m_ended++); }
    Result<Done> flush() override
    {
        log += "flush " + std::to_string(m_ended) + "\n";
        return Done{};
    }

    int failingBegin = 0;
    std::string log;

private:
    std::size_t m_ended = 0;
    int m_begun = 0;
};

/// That this comes before and after each removal is seen where the program is killed
/// (RemovalCrash).
TEST(Removal, IsJournalledInBatchesAndNothingGoesUnwritten)
{
    const RemovalDisk disk;
    std::vector<RemovalItem> items;
    for (int i = 0; i < 150; ++i) {
        const std::string path = "/all/" + std::to_string(i);
        disk.folder.file(path);
        items.push_back(disk.seen(path));
    }
    WatchingJournal journal;
    journal.failingBegin = 2;
    VolumeRemover remover(*disk.volume, journal, {});
    const std::vector<std::string> told = inWords(removed(remover, items));
    EXPECT_EQ(journal.log, "begin 64\nflush 64\nbegin 64 fails\nbegin 22\nflush 22\n");
    ASSERT_EQ(told.size(), 150u);
    for (std::size_t i = 0; i < told.size(); ++i) {
        const bool unwritten = i / 64 == 1;
        EXPECT_THAT(told[i], unwritten ? HasSubstr("without an account") : HasSubstr("removed 1"));
        EXPECT_EQ(disk.folder.contains(items[i].url.absolutePath()), unwritten);
    }
}

TEST(Removal, StopsBetweenTwoFilesOfOneFolder)
{
    namespace fs = std::filesystem;
    const RemovalDisk disk;
    const int files = 20'000;
    disk.folder.folder("all/wide");
    growWide(openedFolder(disk.folder, "all/wide").get(), "", files);
    std::vector<RemovalItem> items;
    for (const char* path : {"/all/1", "/all/wide", "/all/2", "/all/3"}) {
        disk.folder.plant(path);
        items.push_back(disk.seen(path));
    }
    NoRemovalJournal journal;
    VolumeRemover remover(*disk.volume, journal, {});
    StopFlag stop;
    const fs::path host = disk.folder.hostPath("all/wide");
    std::thread user([&, before = fs::last_write_time(host)] {
        while (fs::last_write_time(host) == before) // until the first of them go
            std::this_thread::yield();
        stop.request();
    });
    const auto told = removed(remover, items, stop);
    user.join();
    ASSERT_EQ(told.size(), 4u);
    EXPECT_EQ(inWords(told[0]), "removed 1");
    for (const std::size_t i : {1u, 2u, 3u})
        EXPECT_EQ(told[i].obstacle, RemovalObstacle::Stopped) << i;
    EXPECT_EQ(told[2].entriesRemoved, 0u);
    const auto left = std::distance(fs::directory_iterator(host), fs::directory_iterator());
    EXPECT_GT(left, files / 4) << "more than its folders, whose turn comes last";
    EXPECT_EQ(static_cast<std::uint64_t>(left) + told[1].entriesRemoved, std::uint64_t{files});
    remover.plan(items, stop, [](std::size_t, const RemovalForecast&) { FAIL() << "planned"; });
}

} // namespace
} // namespace pryvane::test
