// Measuring many locations at once gives what a plain recursion gives, whatever the trees hold.
#include "support/Volumes.h"
#include "volume/VolumeFileSystem.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pryvane::test {

namespace {

namespace fs = std::filesystem;

std::vector<std::int64_t> measured(VolumeFileSystem& disk, const std::vector<FileURL>& locations,
                                   unsigned threads)
{
    std::vector<std::int64_t> sizes(locations.size(), -1);
    SizeProgress progress;
    const StopFlag never;
    VolumeSizeMeter(disk, threads)
        .measure(locations, never, progress, [&](std::size_t location, std::int64_t bytes) {
            EXPECT_EQ(sizes[location], -1) << "told twice";
            sizes[location] = bytes;
        });
    return sizes;
}

} // namespace

TEST(SizeMeter, SumsTheAllocatedBlocksOfRandomTrees)
{
    for (unsigned seed = 1; seed <= 8; ++seed) {
        const TemporaryFolder volume;
        std::mt19937 random(seed);
        growTree(volume, "/t", random, 600);
        sync(); // delayed allocation
        const auto disk = volumeAt(volume, NameMatching::AsOnMac);
        std::vector<FileURL> locations{at("/t"), at("/T/"), at("/none")};
        std::vector<std::int64_t> expected{naiveSize(volume.hostPath("/t")),
                                           naiveSize(volume.hostPath("/t")), 0};
        for (const auto& entry : fs::directory_iterator(volume.hostPath("/t"))) {
            locations.push_back(at("/t/" + entry.path().filename().string()));
            expected.push_back(naiveSize(entry.path()));
        }
        for (const unsigned threads : {1U, 3U, 8U})
            EXPECT_EQ(measured(*disk, locations, threads), expected) << "seed " << seed;
        EXPECT_EQ(disk->allocatedSize(at("/t")), expected[0]);
    }
}

TEST(SizeMeter, FollowsNoLinkAndKeepsWithinItsHandles)
{
    const TemporaryFolder volume, outside;
    outside.file("/big", std::string(100'000, 'x'));
    volume.link("/linked", outside.path());
    volume.link("/inner", "/chain");
    // Deeper than handles are held, with something to come back to on every level.
    growChain(openedFolder(volume).get(), "chain", 1500, [](int folder) {
        mkdirat(folder, "side", 0700);
        const UniqueFd file(openat(folder, "file", O_WRONLY | O_CREAT, 0600));
        EXPECT_EQ(write(file.get(), "x", 1), 1);
    });
    sync();
    const auto disk = volumeAt(volume, NameMatching::Exact);
    const std::int64_t block = naiveSize(volume.hostPath("/chain/file"));
    ASSERT_GT(block, 0);
    const std::int64_t links = naiveSize(volume.hostPath("/linked"));
    const auto told = inChild([&] {
        const rlimit few{100, 100};
        setrlimit(RLIMIT_NOFILE, &few);
        const auto firstFree = [] { return UniqueFd(open("/", O_RDONLY)).get(); };
        const int before = firstFree();
        std::string text;
        for (const unsigned threads : {1U, 8U})
            for (const auto size :
                 measured(*disk, {at("/linked"), at("/inner"), at("/chain")}, threads))
                text += std::to_string(size) + " ";
        return text + (firstFree() == before ? "" : "handles left open");
    });
    const std::string once = std::to_string(links) + " " + std::to_string(links) + " " +
                             std::to_string(1500 * block) + " ";
    EXPECT_EQ(told, once + once);
}

TEST(SizeMeter, AStopEndsItWithoutTellingHalfSums)
{
    const TemporaryFolder volume;
    for (int i = 0; i < 200; ++i)
        volume.file("/t/" + std::to_string(i % 20) + "/" + std::to_string(i));
    const auto disk = volumeAt(volume, NameMatching::Exact);
    std::vector<FileURL> locations;
    for (int i = 0; i < 20; ++i)
        locations.push_back(at("/t/" + std::to_string(i)));
    StopFlag stop;
    SizeProgress progress;
    std::size_t told = 0;
    VolumeSizeMeter(*disk, 2).measure(locations, stop, progress, [&](std::size_t, std::int64_t) {
        if (++told == 5)
            stop.request();
    });
    EXPECT_EQ(told, 5U);
    EXPECT_GT(progress.entries.load(), 0U);
}

} // namespace pryvane::test
