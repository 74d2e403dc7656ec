#include "support/RemovalFixtures.h"

#include <gmock/gmock.h>

#include <atomic>
#include <fcntl.h>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace pryvane::test {
namespace {

namespace fs = std::filesystem;

/// So many folders one inside the other, a file beside each thousandth.
std::uint64_t makeDeep(const std::string& host, int levels)
{
    mkdir(host.c_str(), 0755);
    const UniqueFd top(open(host.c_str(), O_RDONLY | O_CLOEXEC));
    std::uint64_t entries = 1;
    growChain(top.get(), "d", levels - 1, [&](int folder) {
        if (++entries % 1'000 == 0)
            makeFile(folder, "file");
    });
    return entries + entries / 1'000;
}

/// So many entries in one folder.
std::uint64_t makeWide(const std::string& host, int width)
{
    mkdir(host.c_str(), 0755);
    growWide(UniqueFd(open(host.c_str(), O_PATH | O_CLOEXEC)).get(), "entry", width);
    return static_cast<std::uint64_t>(width) + 1;
}

/// The most memory this process ever had, in MiB.
long peak()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

TEST(HostileShapes, GoWithLittleMemoryAndFewDescriptors)
{
    const struct {
        std::uint64_t (*make)(const std::string& host, int size);
        int size;
    } shapes[] = {{makeDeep, sizeAsked("PRYVANE_DEEP", 100'000)},
                  {makeWide, sizeAsked("PRYVANE_WIDE", 200'000)}};
    for (const auto& [make, size] : shapes) {
        const InMemory inMemory;
        const RemovalDisk disk;
        disk.folder.folder("a");
        const auto entries = make(disk.folder.hostPath("a/finding"), size);
        const std::string answer = inChild([&, entries] {
            const rlimit few{64, 64};
            setrlimit(RLIMIT_NOFILE, &few);
            const long before = peak();
            const RemovalItem item = disk.seen("/a/finding");
            const auto planned = disk.plan(item);
            const auto result = disk.remove(item);
            const long grown = peak() - before;
            return inWords(result) + (planned.entries == entries ? "" : ", planned otherwise") +
                   (grown < 48 ? "" : ", memory grew by MiB " + std::to_string(grown));
        });
        EXPECT_EQ(answer, "removed " + std::to_string(entries));
        EXPECT_FALSE(disk.folder.contains("a/finding"));
    }
}

TEST(RemovalPlan, TellsWhatTheRemovalThenDoes)
{
    for (unsigned seed = 1; seed <= 25; ++seed) {
        const RemovalDisk disk;
        std::mt19937 random(seed);
        disk.folder.file("kept/file", std::string(9'000, 'x'));
        growTree(disk.folder, "a/finding", random, 40);
        const auto scope = seed % 3 ? RemovalScope::Item : RemovalScope::ContentsOf;
        const RemovalItem item = disk.seen("/a/finding", scope);
        const std::string before = treeBelow(disk.folder.path());
        const std::int64_t bytes = naiveSize(disk.folder.hostPath("a/finding"));
        const auto entries =
            std::distance(fs::recursive_directory_iterator(disk.folder.hostPath("a/finding")),
                          fs::recursive_directory_iterator()) +
            (scope == RemovalScope::Item ? 1 : 0);
        const auto planned = disk.plan(item);
        EXPECT_EQ(treeBelow(disk.folder.path()), before);
        const auto result = disk.remove(item);
        EXPECT_EQ(inWords(result), "removed " + std::to_string(entries)) << seed;
        EXPECT_EQ(planned.entries, result.entriesRemoved) << seed;
        EXPECT_EQ(planned.bytes, result.bytesRemoved) << seed;
        EXPECT_EQ(planned.bytes, bytes) << seed;
        EXPECT_EQ(planned.kind, FileKind::Folder);
        EXPECT_EQ(planned.obstacle, RemovalObstacle::None);
        EXPECT_TRUE(planned.countedWhole);
        EXPECT_EQ(treeBelow(disk.folder.path()),
                  std::string("/a\n") +
                      (entries && scope == RemovalScope::ContentsOf ? "/a/finding\n" : "") +
                      "/kept\n/kept/file 9000\n");
    }
}

/// However fast somebody fills the folder, the removal ends, and says how it ended.
TEST(Refilling, EndsAndIsTold)
{
    for (const auto scope : {RemovalScope::Item, RemovalScope::ContentsOf}) {
        const InMemory inMemory;
        const RemovalDisk disk;
        disk.folder.file("a/finding/in/x");
        const UniqueFd in(open(disk.folder.hostPath("a/finding/in").c_str(), O_PATH | O_CLOEXEC));
        const UniqueFd top(open(disk.folder.hostPath("a/finding").c_str(), O_PATH | O_CLOEXEC));
        std::atomic<bool> done{false};
        std::atomic<int> made{0};
        std::vector<std::thread> fillers;
        for (int filler = 0; filler < 4; ++filler)
            fillers.emplace_back([&, filler] {
                for (int i = 0; !done; ++i) {
                    const std::string name = std::to_string(filler) + "-" + std::to_string(i);
                    makeFile(in.get(), name);
                    mkdirat(top.get(), "in", 0755);
                    makeFile(top.get(), name);
                    ++made;
                }
            });
        while (made < 1'000) // well ahead
            std::this_thread::yield();
        const RemovalResult result = disk.remove(disk.seen("/a/finding", scope));
        done = true;
        for (std::thread& filler : fillers)
            filler.join();
        EXPECT_GT(result.entriesRemoved, 0u);
        const bool gone = result.outcome == RemovalOutcome::Removed;
        if (scope == RemovalScope::Item) {
            EXPECT_NE(gone, disk.folder.contains("a/finding"));
        }
        EXPECT_THAT(inWords(result), testing::HasSubstr(gone ? "removed" : "keeps filling"));
    }
}

} // namespace
} // namespace pryvane::test
