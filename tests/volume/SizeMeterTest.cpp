// Measuring many locations at once gives what a plain recursion gives, whatever the trees hold.
#include "support/Volumes.h"
#include "volume/VolumeFileSystem.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace pryvane::test {

namespace {

namespace fs = std::filesystem;

void growTree(const TemporaryFolder& volume, std::mt19937& random, int entries)
{
    const auto roll = [&](std::size_t below) {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
    };
    std::vector<std::string> folders{"/t"}, files;
    volume.folder("/t");
    for (int i = 0; i < entries; ++i) {
        const std::string path = folders[roll(folders.size())] + "/" + std::to_string(i);
        const std::string host = volume.hostPath(path);
        const std::size_t kind = roll(10);
        if (kind < 3) {
            volume.folder(path);
            folders.push_back(path);
        } else if (kind < 7 || files.empty()) {
            volume.file(path, std::string(roll(20'000), 'x'));
            files.push_back(path);
        } else if (kind == 7) { // sparse
            volume.file(path, "x");
            fs::resize_file(host, 1'000'000 + roll(1'000'000));
        } else if (kind == 8) {
            ASSERT_EQ(link(volume.hostPath(files[roll(files.size())]).c_str(), host.c_str()), 0);
        } else if (i % 2) {
            volume.link(path, i % 3 ? ".." : "/usr/bin");
        } else {
            ASSERT_EQ(mkfifo(host.c_str(), 0600), 0);
        }
    }
}

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
        growTree(volume, random, 600);
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
    int folder = open(volume.path().c_str(), O_RDONLY | O_DIRECTORY);
    for (int level = 0; level < 600; ++level) {
        for (const char* name : {"chain", "side"}) {
            ASSERT_EQ(mkdirat(folder, name, 0700), 0);
        }
        const int next = openat(folder, "chain", O_RDONLY | O_DIRECTORY);
        close(folder);
        folder = next;
        const int file = openat(folder, "file", O_WRONLY | O_CREAT, 0600);
        ASSERT_EQ(write(file, "x", 1), 1);
        close(file);
    }
    close(folder);
    sync();
    const auto disk = volumeAt(volume, NameMatching::Exact);
    const std::int64_t block = naiveSize(volume.hostPath("/chain/file"));
    ASSERT_GT(block, 0);
    const std::int64_t links = naiveSize(volume.hostPath("/linked"));
    for (const unsigned threads : {1U, 8U}) {
        EXPECT_EQ(measured(*disk, {at("/linked"), at("/inner"), at("/chain")}, threads),
                  (std::vector<std::int64_t>{links, links, 600 * block}));
    }
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
