#include "scan/walker/WalkFixtures.h"

#include <gmock/gmock.h>

namespace pryvane::test {

using ::testing::IsEmpty;

TEST(DeepWalk, TellsWhatANaiveWalkTellsInTheSameOrderOnAnyNumberOfThreads)
{
    std::mt19937 random(11);
    for (int round = 0; round < 8; ++round) {
        const TemporaryFolder folder;
        // The host's names are none of the walk's business.
        const std::string top = "Sabpab/Users/alice/de Amac", host = folder.hostPath(top);
        growTree(folder, top, random, round == 0 ? 8'000 : 40 * round * round);
        const Expected expected = expectedWalk(host, kAlice);

        for (const unsigned threads : {1u, 2u, 8u}) {
            const Walk walk(host, threads);
            ASSERT_EQ(walk.only("match"), expected.matches) << threads << " threads";
            ASSERT_EQ(walk.only("progress"), expected.progress);
            ASSERT_THAT(walk.only("at"), IsEmpty());
            ASSERT_EQ(walk.state.totalCount, expected.totalCount);
            ASSERT_EQ(walk.state.totalScanCount, expected.totalScanCount);
            ASSERT_EQ(walk.outcome.entries, expected.walked);
        }
    }
}

TEST(DeepWalk, ComparesPathsAndSkipsWhatIsNoPlainFile)
{
    const TemporaryFolder folder;
    const struct {
        const char* path;
        bool isFound;
    } rows[] = {
        {"Library/mdsa1331", true},
        {"Library/.A_o_b_o/x", true}, // the text ends in the folder's slash
        {"Library/.A_o_b_o/.x", false},
        {"dev/sub/any name", true}, // the home's path and "de"
        {"devil/x", true},
        {"d/ev", false},
        {"x/OSX/iWorm/Sabpab", true}, // several texts, told once
        {"x/OSX iWorm", false},
        {"x/sabpab", false},
        {"x/.Sabpab", false},
        {".x/Sabpab", true},
        {"x.framework/.y/Sabpab", true},
        {"Sabpab.folder/", false},
        {"Sabpab.folder/x", true},
    };
    std::vector<std::string> expected;
    for (const auto& row : rows) {
        folder.plant(row.path);
        if (row.isFound)
            expected.push_back("match " + (kAlice + std::string(row.path)));
    }
    folder.link("x/Sabpab link", "Sabpab");
    folder.link("x/link to folder", "../Library");
    EXPECT_THAT(Walk(folder.path(), 2).only("match"),
                ::testing::UnorderedElementsAreArray(expected));
}

TEST(DeepWalk, EnumeratesHiddenRootsAndFrameworksWhole)
{
    const TemporaryFolder folder;
    folder.file("a/.Sabpab");
    folder.folder("empty");
    folder.link("link", "a");
    for (const char* root : {"/Users/.alice", "/Library/Some.framework/"}) {
        const Walk walk(folder.path(), 2, root);
        EXPECT_EQ(walk.only("match").size(), 1u) << root;
        EXPECT_EQ(walk.outcome.entries, 4);
    }
    EXPECT_THAT(Walk(folder.path(), 2).only("match"), IsEmpty());
}

TEST(DeepWalk, CountsFlatWhateverThereIs)
{
    const TemporaryFolder folder;
    folder.file("a/.hidden");
    folder.file("a/b");
    folder.link("link", "a");
    const OpenRoot root(folder.path(), kAlice);
    ScanState flat;
    ScanState nodes;
    RecordingWalk observer(true);
    FileCount(flat, observer).countFlat(root);
    EXPECT_THAT(observer.events, IsEmpty());
    FileCount(nodes, observer).countNodes(root);
    EXPECT_EQ(flat.totalCount, 4);
    EXPECT_EQ(nodes.totalCount, 2);
}

TEST(DeepWalk, StopsAtTheNextEntry)
{
    const TemporaryFolder folder;
    std::mt19937 random(5);
    growTree(folder, "", random, 2'000);
    const OpenRoot root(folder.path(), kAlice);
    const auto stopAfter = [](ScanState& state, RecordingWalk& walk, std::size_t events) {
        walk.onEvent = [&state, &walk, events] {
            if (walk.events.size() == events) {
                state.isScanStop.request();
                state.isScanStop.request(); // twice is once
            }
        };
    };
    ScanState counted;
    RecordingWalk counting(true);
    stopAfter(counted, counting, 1);
    EXPECT_TRUE(FileCount(counted, counting, {1}).countNodes(root).stopped);
    EXPECT_EQ(counting.events.size(), 1u);
    EXPECT_LT(counted.totalCount, 1'000);
    // And the pass behind it does nothing more.
    EXPECT_EQ(scanDirectory(counted, listedAutomaton(), counting).scan(root).entries, 0);

    ScanState state;
    RecordingWalk walk;
    stopAfter(state, walk, 3);
    const WalkOutcome outcome = scanDirectory(state, listedAutomaton(), walk, {8}).scan(root);
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(walk.only("match").size(), walk.only("").size() - walk.only("progress").size());
}

} // namespace pryvane::test
