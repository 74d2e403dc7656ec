#include "support/TemporaryFolder.h"
#include "volume/FolderStream.h"
#include "volume/folders/FailingReads.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <set>
#include <string>

namespace pryvane {
namespace {

using namespace test;

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

struct Reading {
    std::set<std::string> names;
    int error = 0;
};

Reading readWith(const TemporaryFolder& host, int failing, int error)
{
    FolderStream stream(UniqueFd(::open(host.path().c_str(), O_RDONLY | O_DIRECTORY)));
    FailingReads::arm(failing, error);
    Reading reading;
    FolderStream::Entry entry;
    while (stream.next(entry))
        EXPECT_TRUE(reading.names.insert(entry.name).second) << entry.name << " came twice";
    reading.error = stream.error();
    return reading;
}

/// A folder that could be read only in part would otherwise count as looked at.
TEST(FolderReading, AFailureAtAnyCallIsToldAndKeepsWhatWasRead)
{
    const TemporaryFolder host;
    const std::set<std::string> names = manyFiles(host);
    const Reading whole = readWith(host, 0, 0);
    EXPECT_EQ(whole.names, names);
    EXPECT_EQ(whole.error, 0);
    const int calls = FailingReads::counted();
    ASSERT_GE(calls, 3);

    std::size_t before = 0;
    for (int failing = 1; failing <= calls; ++failing) {
        const Reading part = readWith(host, failing, EIO);
        ASSERT_EQ(part.error, EIO) << "at call " << failing << " of " << calls;
        EXPECT_GE(part.names.size(), before) << "what came before call " << failing << " is lost";
        before = part.names.size();
    }
    EXPECT_GT(before, names.size() / 2) << "only the last call failed";
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
} // namespace pryvane
