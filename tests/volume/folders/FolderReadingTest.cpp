#include "support/TemporaryFolder.h"
#include "volume/FolderStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <set>
#include <string>
#include <unistd.h>

namespace pryvane::test {
namespace {

/// So many that every host needs several calls and more than one filled buffer.
std::set<std::string> manyFiles(const TemporaryFolder& host)
{
    std::set<std::string> names;
    for (int i = 1000; i < 1500; ++i) {
        names.insert(std::string(200, 'n') + std::to_string(i));
        host.file(*names.rbegin());
    }
    return names;
}

/// A folder that could be read only in part would otherwise count as looked at.
TEST(FolderReading, AFailureAtAnyCallIsToldAndKeepsWhatWasRead)
{
    const TemporaryFolder host;
    const std::set<std::string> names = manyFiles(host);
    const UniqueFd noFolder(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    int failures = 0; // none where all had been read ahead
    for (std::size_t before = 0; before <= names.size(); before += 20) {
        const int fd = ::open(host.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        FolderStream stream{UniqueFd(fd)};
        std::set<std::string> read;
        FolderStream::Entry entry;
        while (read.size() < before && stream.next(entry))
            EXPECT_TRUE(read.insert(entry.name).second) << entry.name << " came twice";
        EXPECT_EQ(read.size(), before);
        EXPECT_EQ(stream.error(), 0);
        ASSERT_EQ(dup2(noFolder.get(), fd), fd); // the next call of the host's fails
        while (stream.next(entry))
            EXPECT_TRUE(read.insert(entry.name).second) << entry.name << " came twice";
        failures += stream.error() == ENOTDIR ? 1 : 0;
        EXPECT_TRUE(stream.error() == ENOTDIR || read == names) << "behind " << before;
        EXPECT_TRUE(std::ranges::includes(names, read));
        EXPECT_EQ(before == 0, read.empty()) << "what was read is kept";
    }
    EXPECT_GT(failures, 10);
}

/// What is taken for missing may be linked elsewhere, or left out of what stays.
TEST(FolderReading, OnlyWhatIsNotThereIsMissing)
{
    const TemporaryFolder host;
    host.file("file");
    const UniqueFd folder(::open(host.path().c_str(), O_RDONLY | O_DIRECTORY));
    EXPECT_EQ(kindAt(folder.get(), "file"), FileKind::RegularFile);
    EXPECT_EQ(kindAt(folder.get(), "none"), FileKind::Missing);
    EXPECT_EQ(kindAt(-1, "file"), FileKind::Unknown);
}

} // namespace
} // namespace pryvane::test
