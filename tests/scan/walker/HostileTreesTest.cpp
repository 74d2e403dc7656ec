#include "scan/walker/WalkFixtures.h"
#include "support/HostForm.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <set>
#include <sys/mount.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {

namespace {

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
        const Walk found(tree.folder.path());
        EXPECT_EQ(found.state.totalCount, depth + 1);
        const auto matches = found.only("match");
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
    const Walk one(tree.folder.path(), 1);
    EXPECT_EQ(one.only("match").size(), 2u * kDepth);
    EXPECT_EQ(one.outcome.refusals, 0);
    const Walk many(tree.folder.path(), 8);
    EXPECT_EQ(many.only("match"), one.only("match"));
}

TEST(HostileTrees, VeryManyEntriesInOneFolder)
{
    const DeepTree tree;
    const int width = sizeAsked("PRYVANE_WIDE", 20'000);
    growWide(openedFolder(tree.folder).get(), "Sabpab", width);
    const Walk walk(tree.folder.path());
    EXPECT_EQ(walk.state.totalCount, width);
    EXPECT_EQ(walk.only("match").size(), static_cast<std::size_t>(width - (width + 3) / 4));
}

/// While folders come, go and move, everything that stays is found once.
TEST(HostileTrees, ChangingDuringTheWalk)
{
    const TemporaryFolder folder;
    std::multiset<std::string> stable;
    for (int i = 0; i < 400; ++i) {
        const std::string place = "s" + std::to_string(i % 40) + "/t" + std::to_string(i);
        folder.file(place + "/Sabpab");
        folder.folder(place + "/churn");
        stable.insert("match " + (kAlice + place) + "/Sabpab");
    }
    std::atomic<bool> done{false};
    std::thread changer([&] {
        // Names come again, so that a slow walk does not meet an ever larger tree.
        for (int i = 0; !done; i = (i + 1) % 4'000) {
            const std::string made =
                folder.hostPath("s" + std::to_string(i % 40) + "/t" + std::to_string(i % 400) +
                                "/churn/x" + std::to_string(i));
            if (mkdir(made.c_str(), 0755) != 0) {
                remove(made.c_str());
            } else if (i % 3 == 0) {
                rmdir(made.c_str());
                [[maybe_unused]] const int failed = symlink("/", made.c_str()); // for a folder
            } else if (i % 3 == 1) {
                rename(made.c_str(), (folder.hostPath("m") + std::to_string(i)).c_str());
            }
        }
    });
    for (int round = 0; round < 8; ++round) {
        const auto matches = Walk(folder.path(), round % 2 ? 8 : 1).only("match");
        EXPECT_EQ(std::multiset<std::string>(matches.begin(), matches.end()), stable);
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
    const OpenRoot root(tree.folder.path(), kAlice);
    ScanState state;
    RecordingWalk walk;
    walk.onEvent = [&] {
        if (walk.events.back().ends_with("/d/Sabpab"))
            rename(tree.folder.hostPath("d/d/d/d").c_str(), tree.folder.hostPath("moved").c_str());
    };
    scanDirectory(state, listedAutomaton(), walk, {1}).scan(root);
    const auto matches = walk.only("match");
    for (const char* stays : {"d/d/d/z/Sabpab", "d/z/Sabpab"})
        EXPECT_THAT(matches, ::testing::Contains("match " + (kAlice + std::string(stays))));
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
            const Walk found(folder.path(), threads);
            text += std::to_string(found.only("match").size()) + " ";
            for (const std::string& refused : found.only("refused"))
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
    const Walk found(folder.path());
    umount(place.c_str());
    EXPECT_EQ(found.only("match").size(), 1u);
    EXPECT_THAT(found.only("refused"),
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
            const OpenRoot opened(folder.path(), "/");
            WalkRoot root = opened;
            root.isOwnDisk = own;
            const Walk walk(root, threads);
            EXPECT_EQ(walk.only("match").size(), own ? 2u : 5u);
            EXPECT_EQ(walk.outcome.refusals, 0);
            // Each is told once, though two passes meet it.
            std::vector<std::string> others;
            if (own)
                others = {"other /System/Volumes", "other /z/usb"};
            if (own && !isPosixForm()) // which sees no mount of the same device: it is walked once
                others.emplace_back("other /z/again");
            EXPECT_THAT(walk.only("other"), ::testing::UnorderedElementsAreArray(others));
        }
    }
    umount(usb.c_str());
    umount(again.c_str());
}

} // namespace pryvane::test
