#include "scan/walker/WalkFixtures.h"
#include "support/HostForm.h"
#include "support/RemovalFixtures.h"
#include "support/ReportFixtures.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {

namespace {

constexpr const char* kHome = "/Users/alice/";

struct Found {
    ScanState state;
    RecordingWalk walk;
    WalkOutcome outcome;
};

std::unique_ptr<Found> scanned(const std::string& host, unsigned threads = 8)
{
    auto found = std::make_unique<Found>();
    const OpenRoot root(host, kHome);
    FileCount(found->state, found->walk, {threads}).countNodes(root);
    found->outcome =
        scanDirectory(found->state, listedAutomaton(), found->walk, {threads}).scan(root);
    return found;
}

/// Removes a tree that is too deep for the folder's own destructor.
struct DeepTree {
    TemporaryFolder folder;
    ~DeepTree() { EXPECT_EQ(std::system(("rm -rf '" + folder.path() + "'").c_str()), 0); }
};

} // namespace

TEST(HostileTrees, VeryManyNestedFolders)
{
    const struct {
        std::string name;
        int depth;
    } rows[] = {{"d", sizeAsked("PRYVANE_DEEP", 10'000)}, {std::string(255, '\xfe'), 3'000}};
    for (const auto& [name, depth] : rows) {
        const DeepTree tree;
        makeFile(growChain(openedFolder(tree.folder).get(), name, depth).get(), "Sabpab");
        const auto found = scanned(tree.folder.path());
        EXPECT_EQ(found->state.totalCount, depth + 1);
        const auto matches = found->walk.only("match");
        ASSERT_EQ(matches.size(), 1u);
        EXPECT_EQ(matches[0].size(), std::string("match /Users/alice/Sabpab").size() +
                                         (name.size() + 1) * static_cast<std::size_t>(depth));
    }
}

/// On the way back up from below, each level still has a folder to visit; far more levels than
/// handles.
TEST(HostileTrees, ComesBackToFoldersItHadToClose)
{
    const DeepTree tree;
    constexpr int kDepth = 2'000;
    UniqueFd at = openedFolder(tree.folder);
    for (int level = 0; level < kDepth; ++level) {
        UniqueFd a = growChain(at.get(), "a", 1), b = growChain(at.get(), "b", 1);
        makeFile(a.get(), "Sabpab");
        makeFile(b.get(), "Sabpab");
        at = std::move(level % 3 ? a : b);
    }
    const auto one = scanned(tree.folder.path(), 1);
    EXPECT_EQ(one->walk.only("match").size(), 2u * kDepth);
    EXPECT_EQ(one->outcome.refusals, 0);
    const auto many = scanned(tree.folder.path(), 8);
    EXPECT_EQ(many->walk.only("match"), one->walk.only("match"));
}

TEST(HostileTrees, VeryManyEntriesInOneFolder)
{
    const DeepTree tree;
    const int width = sizeAsked("PRYVANE_WIDE", 20'000);
    const UniqueFd at = openedFolder(tree.folder);
    for (int i = 0; i < width; ++i) {
        const std::string name = (i % 1'000 == 0 ? "Sabpab" : "entry") + std::to_string(i);
        if (i % 8 == 0)
            ASSERT_EQ(mkdirat(at.get(), name.c_str(), 0755), 0);
        else
            makeFile(at.get(), name);
    }
    tree.folder.file("Sabpab0/x");
    const auto found = scanned(tree.folder.path());
    EXPECT_EQ(found->state.totalCount, width + 1);
    EXPECT_EQ(found->walk.only("match").size(), 1u);
    // Each empty folder counts once more.
    EXPECT_EQ(found->outcome.entries, width + 1 + (width + 7) / 8 - 1);
}

TEST(HostileTrees, AnyBytesInNames)
{
    const TemporaryFolder folder;
    std::mt19937 random(3);
    std::set<std::string> planted;
    for (int i = 0; i < 5'000; ++i) {
        const std::string name = randomName(random).substr(0, 200);
        const std::string path = "x" + name + (i % 2 ? "/Sabpab" : "Sabpab" + name.substr(0, 40));
        folder.file(path, "");
        planted.insert("match " + (kHome + path));
    }
    const auto found = scanned(folder.path());
    const auto matches = found->walk.only("match");
    EXPECT_EQ(std::set<std::string>(matches.begin(), matches.end()), planted);
    EXPECT_EQ(matches.size(), planted.size());
}

/// While folders come, go and move, everything that stays is found once.
TEST(HostileTrees, ChangingDuringTheWalk)
{
    const TemporaryFolder folder;
    std::set<std::string> stable;
    for (int i = 0; i < 400; ++i) {
        const std::string place = "s" + std::to_string(i % 40) + "/t" + std::to_string(i);
        folder.file(place + "/Sabpab");
        folder.folder(place + "/churn");
        stable.insert("match " + (kHome + place) + "/Sabpab");
    }
    std::atomic<bool> done{false};
    std::thread changer([&] {
        for (int i = 0; !done; ++i) {
            const std::string place = folder.hostPath("s" + std::to_string(i % 40) + "/t" +
                                                      std::to_string(i % 400) + "/churn");
            const std::string made = place + "/x" + std::to_string(i);
            mkdir(made.c_str(), 0755);
            close(open((made + "/f").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
            unlink((made + "/f").c_str());
            if (i % 3 == 0) {
                rmdir(made.c_str());
                std::error_code ignored; // a link where a folder was
                std::filesystem::create_directory_symlink("/", made, ignored);
            } else if (i % 3 == 1) {
                rename(made.c_str(), (folder.hostPath("m") + std::to_string(i)).c_str());
            }
        }
    });
    for (int round = 0; round < 8; ++round) {
        const auto found = scanned(folder.path(), round % 2 ? 8 : 1);
        std::multiset<std::string> matches;
        for (const std::string& match : found->walk.only("match"))
            matches.insert(match);
        EXPECT_EQ(matches, std::multiset<std::string>(stable.begin(), stable.end()));
    }
    done = true;
    changer.join();
}

/// A folder that is moved away while the walk is deep below it loses nothing that stays.
TEST(HostileTrees, MovedWhileTheWalkIsBelow)
{
    const DeepTree tree;
    makeFile(growChain(openedFolder(tree.folder).get(), "d", 300).get(), "Sabpab");
    tree.folder.file("d/d/d/z/Sabpab");
    tree.folder.file("d/z/Sabpab");
    const OpenRoot root(tree.folder.path(), kHome);
    ScanState state;
    RecordingWalk walk;
    walk.onEvent = [&] {
        if (walk.events.back().ends_with("/d/Sabpab"))
            rename(tree.folder.hostPath("d/d/d/d").c_str(), tree.folder.hostPath("moved").c_str());
    };
    scanDirectory(state, listedAutomaton(), walk, {1}).scan(root);
    const auto matches = walk.only("match");
    for (const char* stays : {"d/d/d/z/Sabpab", "d/z/Sabpab"})
        EXPECT_THAT(matches, ::testing::Contains("match " + (kHome + std::string(stays))));
}

TEST(HostileTrees, UnreadableFoldersAreNamedAndTheRestIsWalked)
{
    const TemporaryFolder folder;
    folder.file("a/open/Sabpab");
    folder.file("a/shut/Sabpab");
    folder.file("b/Sabpab");
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(folder.hostPath("a/shut").c_str(), 0), 0);
    const std::string told = asNobody([&] {
        std::string text;
        for (const unsigned threads : {1u, 8u}) {
            const auto found = scanned(folder.path(), threads);
            text += std::to_string(found->walk.only("match").size()) + " ";
            for (const std::string& refused : found->walk.only("refused"))
                text += refused + "; ";
        }
        return text;
    });
    const std::string once = "2 refused /Users/alice/a/shut: permission denied; ";
    EXPECT_EQ(told, once + once);
    chmod(folder.hostPath("a/shut").c_str(), 0755);
}

TEST(HostileTrees, AFolderMountedBelowItselfIsNotEntered)
{
    const TemporaryFolder folder;
    folder.file("x/Sabpab");
    folder.folder("x/y/mounted");
    const std::string place = folder.hostPath("x/y/mounted");
    if (mount(folder.hostPath("x").c_str(), place.c_str(), nullptr, MS_BIND, nullptr) != 0)
        GTEST_SKIP() << "mounting is not allowed here";
    const auto found = scanned(folder.path());
    umount(place.c_str());
    EXPECT_EQ(found->walk.only("match").size(), 1u);
    EXPECT_THAT(found->walk.only("refused"),
                ::testing::ElementsAre("refused /Users/alice/x/y/mounted: it is one of the folders "
                                       "it lies in"));
}

/// On the disk that the system runs from, one folder may stand in two places, and others' disks in
/// some.
TEST(HostileTrees, OnTheOwnDiskOtherDisksAreNamedAndNoFolderIsWalkedTwice)
{
    const TemporaryFolder folder;
    for (const char* file : {"x/Sabpab", "System/Volumes/Data/x/Sabpab", "System/Sabpab"})
        folder.file(file);
    folder.folder("z/again");
    folder.folder("z/usb");
    const std::string again = folder.hostPath("z/again"), usb = folder.hostPath("z/usb");
    if (mount(folder.hostPath("x").c_str(), again.c_str(), nullptr, MS_BIND, nullptr) != 0 ||
        mount("tmpfs", usb.c_str(), "tmpfs", 0, "size=64k") != 0) {
        umount(again.c_str());
        GTEST_SKIP() << "mounting is not allowed here";
    }
    folder.file("z/usb/Sabpab");
    for (const unsigned threads : {1u, 8u}) {
        for (const bool own : {true, false}) {
            Found found;
            const OpenRoot opened(folder.path(), "/");
            WalkRoot root = opened;
            root.isOwnDisk = own;
            FileCount(found.state, found.walk, {threads}).countNodes(root);
            const auto outcome =
                scanDirectory(found.state, listedAutomaton(), found.walk, {threads}).scan(root);
            EXPECT_EQ(found.walk.only("match").size(), own ? 2u : 5u);
            EXPECT_EQ(outcome.refusals, 0);
            // Each is told once, though two passes meet it.
            std::vector<std::string> others;
            if (own)
                others = {"other /System/Volumes", "other /z/usb"};
            if (own && !isPosixForm()) // which sees no mount of the same device: it is walked once
                others.emplace_back("other /z/again");
            EXPECT_THAT(found.walk.only("other"), ::testing::UnorderedElementsAreArray(others));
        }
    }
    umount(usb.c_str());
    umount(again.c_str());
}

} // namespace pryvane::test
