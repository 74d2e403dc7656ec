#include "removal/disk/HostRemoval.h"
#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <linux/magic.h>
#include <sys/statfs.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pryvane::test {
namespace {

/// What the next disk says it is, when it is asked for its file system; 0: what it really is.
long g_fileSystem = 0;

// In place of the C library's.
extern "C" int fstatfs(int file, struct statfs* data)
{
    const auto result = static_cast<int>(syscall(SYS_fstatfs, file, data));
    if (g_fileSystem != 0)
        data->f_type = g_fileSystem;
    return result;
}

/// A file system in user space need not say how many blocks a file has, so that each looks like one
/// of holes alone.
TEST(BlocklessFileSystem, IsMeasuredByLength)
{
    const TemporaryFolder disk;
    const std::pair<std::int64_t, std::int64_t> lengths[] = {
        {0, 0}, {1, 512}, {512, 512}, {513, 1024}, {3'000'000'000, 3'000'000'000 / 512 * 512}};
    std::int64_t sum = 0;
    for (const auto& [length, size] : lengths) {
        disk.file("d/" + std::to_string(length), "");
        std::filesystem::resize_file(disk.hostPath("d/" + std::to_string(length)),
                                     static_cast<std::uintmax_t>(length));
        sum += size;
    }
    for (const bool inUserSpace : {false, true}) {
        g_fileSystem = inUserSpace ? FUSE_SUPER_MAGIC : 0;
        const auto volume = volumeAt(disk, NameMatching::AsOnMac);
        for (const auto& [length, size] : lengths)
            EXPECT_EQ(volume->allocatedSize(at("/d/" + std::to_string(length))),
                      inUserSpace ? size : 0);
        EXPECT_EQ(volume->allocatedSize(at("/d")), inUserSpace ? sum : 0);
        const UniqueFd folder(volume->openFolder(at("/d")));
        const auto facts = factsOf(folder.get(), "513");
        ASSERT_TRUE(facts);
        EXPECT_EQ(facts->bytes, inUserSpace ? 1024 : 0);
    }
    g_fileSystem = 0;
}

} // namespace
} // namespace pryvane::test
