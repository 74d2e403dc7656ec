#include "support/Volumes.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace pryvane {
namespace {

using namespace test;
using testing::HasSubstr;

class VolumeContentTest : public testing::Test {
protected:
    /// Nests `levels` folders below `folder`, deeper than a path can say, and leaves a file there.
    void nest(const std::string& folder, int levels) const
    {
        disk.folder(folder);
        UniqueFd at(open(disk.hostPath(folder).c_str(), O_RDONLY | O_DIRECTORY));
        for (int i = 0; i < levels; ++i) {
            ASSERT_EQ(mkdirat(at.get(), "n", 0755), 0);
            at = UniqueFd(openat(at.get(), "n", O_RDONLY | O_DIRECTORY));
        }
        const UniqueFd file(openat(at.get(), "file", O_WRONLY | O_CREAT, 0644));
        ASSERT_EQ(write(file.get(), "x", 1), 1);
    }

    TemporaryFolder disk;
    std::unique_ptr<VolumeFileSystem> volume = volumeAt(disk, NameMatching::AsOnMac);
};

TEST_F(VolumeContentTest, ListsEntriesWithTheirKinds)
{
    disk.file("folder/file");
    disk.file("folder/.hidden");
    disk.folder("folder/sub");
    disk.link("folder/link", "sub");
    disk.link("toFolder", "folder");
    std::vector<std::pair<std::string, FileKind>> found;
    for (const FolderEntry& entry : volume->list(at("toFolder/")).entries) {
        found.emplace_back(entry.name, entry.kind);
        EXPECT_EQ(volume->kind(at("/folder/" + entry.name)), entry.kind) << entry.name;
    }
    EXPECT_THAT(found,
                testing::UnorderedElementsAre(testing::Pair("file", FileKind::RegularFile),
                                              testing::Pair(".hidden", FileKind::RegularFile),
                                              testing::Pair("sub", FileKind::Folder),
                                              testing::Pair("link", FileKind::SymbolicLink)));
    for (const char* path : {"missing", "folder/file", "folder/file/", ""})
        EXPECT_EQ(volume->list(at(path)).status, ListStatus::Missing) << path;
    EXPECT_EQ(volume->list(at("/folder/sub")).status, ListStatus::Listed);
    EXPECT_EQ(volume->list(at("/")).entries.size(), 2U);

    const struct {
        const char* path;
        FileKind kind;
    } kinds[] = {{"/", FileKind::Folder},
                 {"..", FileKind::Folder},
                 {"folder/sub/..", FileKind::Folder},
                 {"folder/file/", FileKind::Missing},
                 {"toFolder/", FileKind::SymbolicLink},
                 {"toFolder/file", FileKind::RegularFile},
                 {"none", FileKind::Missing},
                 {"", FileKind::Missing}};
    for (const auto& row : kinds)
        EXPECT_EQ(volume->kind(at(row.path)), row.kind) << row.path;
}

/// Few are asked for one by one, many by way of their folder's list; links are followed either way.
TEST_F(VolumeContentTest, ManyNamesAtOnceGetTheAnswersThatEachGets)
{
    std::vector<std::string> texts = {"file", "sub", "link", "dangling", "FILE", "gone", "out"};
    for (const char* name : {"file", "sub/in", "with space"})
        disk.file(std::string("folder/") + name);
    disk.link("folder/link", "sub");
    disk.link("folder/dangling", "nothing");
    disk.link("folder/out", "../../../../etc/passwd");
    disk.link("byLink", "folder");
    for (int i = 0; i < 200; ++i) {
        texts.push_back("n" + std::to_string(i));
        if (i % 3 == 0)
            disk.file("folder/" + texts.back());
    }
    const std::vector<std::string_view> all(texts.begin(), texts.end());
    for (const char* folder : {"/folder/", "/byLink/", "/missing/", "/folder/file/", "/"}) {
        for (const std::size_t count : {std::size_t{7}, std::size_t{90}, all.size()}) {
            const std::span names(all.data(), count);
            EXPECT_EQ(volume->presencesIn(at(folder), names),
                      volume->FileSystem::presencesIn(at(folder), names))
                << folder << " " << count;
        }
    }
    const auto there = volume->presencesIn(at("/folder/"), all);
    EXPECT_THAT(std::vector(there.begin(), there.begin() + 7),
                testing::ElementsAre(Presence::Present, Presence::Present, Presence::Present,
                                     Presence::Absent, Presence::Absent, Presence::Absent,
                                     Presence::Absent));
}

TEST_F(VolumeContentTest, MeasuresFoldersNestedDeeperThanAPathReaches)
{
    nest("deep", 5000);
    // Whatever is visited first, some of these wait until the way back up, past closed handles.
    for (int i = 0; i < 20; ++i)
        disk.file("deep/n/n/n/beside" + std::to_string(i) + "/file", "x");
    const std::string answer = inChild([this] {
        const rlimit few{100, 100};
        if (setrlimit(RLIMIT_NOFILE, &few) != 0)
            return std::string("no limit");
        const auto firstFree = [] { return UniqueFd(open("/", O_RDONLY)).get(); };
        const int before = firstFree();
        const std::int64_t size = volume->allocatedSize(at("deep"));
        return std::to_string(size) + (firstFree() == before ? "" : ", handles left open");
    });
    const std::int64_t one = naiveSize(disk.hostPath("deep/n/n/n/beside0/file"));
    EXPECT_EQ(answer, std::to_string(21 * one));
}

TEST_F(VolumeContentTest, ReadsOnlySmallRegularFiles)
{
    disk.file("ten", "0123456789");
    disk.file("empty", "");
    disk.file("zeros", std::string(200'000, '\0'));
    disk.link("link", "ten");
    disk.link("folderLink", ".");
    EXPECT_EQ(volume->readSmallFile(at("ten"), 10).value(), "0123456789");
    EXPECT_EQ(volume->readSmallFile(at("folderLink/ten"), 10).value(), "0123456789");
    EXPECT_EQ(volume->readSmallFile(at("empty"), 0).value(), "");
    EXPECT_EQ(volume->readSmallFile(at("zeros"), 200'000).value(), std::string(200'000, '\0'));
    const struct {
        const char* path;
        std::size_t limit;
        const char* reason;
    } refused[] = {{"ten", 9, "longer than 9 bytes"},   {"zeros", 199'999, "longer than"},
                   {"link", 100, "not a regular file"}, {"/", 100, "not a regular file"},
                   {"ten/", 100, "not a directory"},    {"none", 100, "no such file"}};
    for (const auto& row : refused) {
        const auto result = volume->readSmallFile(at(row.path), row.limit);
        ASSERT_FALSE(result.ok()) << row.path;
        EXPECT_THAT(result.error().message, HasSubstr(row.reason)) << row.path;
    }
    // Endless for its reader, though the size it tells is 0.
    if (fs::exists("/proc/kallsyms")) {
        const auto host = std::move(VolumeFileSystem::open("/").value());
        EXPECT_THAT(host->readSmallFile(at("/proc/kallsyms"), 1000).error().message,
                    HasSubstr("longer than 1000 bytes"));
    }
}

TEST_F(VolumeContentTest, WritableSaysWhatTheSystemSays)
{
    disk.file("open/file");
    disk.link("toFile", "open/file");
    disk.file("closed/file");
    chmod(disk.path().c_str(), 0755);
    chmod(disk.hostPath("open").c_str(), 0777);
    chmod(disk.hostPath("open/file").c_str(), 0666);
    chmod(disk.hostPath("closed").c_str(), 0555);
    chmod(disk.hostPath("closed/file").c_str(), 0444);
    const auto answers = asNobody([this] {
        std::string text;
        for (const char* path : {"open", "open/", "OPEN", "open/file", "toFile", "closed",
                                 "closed/file", "none", "open/none"})
            text += volume->writable(at(path)) ? '+' : '-';
        return text;
    });
    EXPECT_EQ(answers, "+++++----");
    chmod(disk.hostPath("closed").c_str(), 0755);
}

TEST_F(VolumeContentTest, UnreadableFoldersCountNothingAndAreRefused)
{
    disk.file("t/closed/file", std::string(9000, 'x'));
    disk.file("t/file");
    chmod(disk.path().c_str(), 0755);
    chmod(disk.hostPath("t/closed").c_str(), 0000);
    const auto answers = asNobody([this] {
        const auto listing = volume->list(at("/T/closed"));
        return std::to_string(volume->allocatedSize(at("t"))) +
               (listing.status == ListStatus::Refused ? " refused: " : " ") + listing.reason;
    });
    EXPECT_EQ(answers,
              std::to_string(naiveSize(disk.hostPath("t/file"))) + " refused: permission denied");
    chmod(disk.hostPath("t/closed").c_str(), 0755);
}

TEST_F(VolumeContentTest, IdentityTellsVolumesApart)
{
    const TemporaryFolder other;
    EXPECT_EQ(volume->identity(), volumeAt(disk, NameMatching::Exact)->identity());
    EXPECT_NE(volume->identity(), volumeAt(other, NameMatching::Exact)->identity());
    EXPECT_EQ(volume->identity().find_first_not_of("0123456789abcdef-."), std::string::npos);
}

TEST_F(VolumeContentTest, AVolumeThatCannotBeOpenedSaysWhatToDo)
{
    disk.file("file");
    disk.folder("closed");
    chmod(disk.path().c_str(), 0755);
    chmod(disk.hostPath("closed").c_str(), 0000);
    const auto messageFor = [](const std::string& path) {
        const auto opened = VolumeFileSystem::open(path);
        return opened ? std::string("opened") : opened.error().message;
    };
    EXPECT_THAT(messageFor(""), HasSubstr("no volume was named"));
    EXPECT_THAT(messageFor(disk.hostPath("none")), HasSubstr("there is no folder"));
    EXPECT_THAT(messageFor(disk.hostPath("file")),
                HasSubstr("is not a folder; give the folder at which the Mac disk is mounted"));
    EXPECT_THAT(messageFor(disk.hostPath("bad\n\x1b[0m")), HasSubstr("bad\\n\\x1b[0m"));
    EXPECT_THAT(asNobody([&] { return messageFor(disk.hostPath("closed")); }),
                HasSubstr("cannot be read (permission denied); "));
    EXPECT_EQ(messageFor(disk.path() + "/"), "opened");
    chmod(disk.hostPath("closed").c_str(), 0755);
}

TEST_F(VolumeContentTest, NamesOnTheHostsOwnRootMatchExactly)
{
    const auto host = std::move(VolumeFileSystem::open("/").value());
    ASSERT_TRUE(host->exists(at(disk.path())));
    std::string other = disk.path();
    std::transform(other.begin(), other.end(), other.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    EXPECT_EQ(host->presence(at(other)), Presence::Absent);
}

TEST(VolumeThreadsTest, ManyThreadsGetTheRightAnswersWhileListingsAreForgotten)
{
    const TemporaryFolder disk;
    for (int i = 0; i < 100; ++i)
        disk.file("Folder" + std::to_string(i % 5) + "/File" + std::to_string(i));
    disk.link("Link", "FOLDER0");
    for (const auto way : {Confinement::BestAvailable, Confinement::ComponentWalk}) {
        const auto volume = volumeAt(disk, NameMatching::AsOnMac, way);
        std::atomic<int> wrong{0};
        std::vector<std::thread> threads;
        for (int t = 0; t < 4; ++t)
            threads.emplace_back([&, t] {
                for (int i = 0; i < 2000; ++i) {
                    const std::string number = std::to_string(i % 100);
                    const std::string folder = "/folder" + std::to_string(i % 5);
                    wrong += volume->exists(at(folder + "/file" + number)) ? 0 : 1;
                    wrong += volume->exists(at(folder + "/gone" + number)) ? 1 : 0;
                    if (i % 50 == t)
                        wrong += volume->list(at("/LINK")).entries.size() == 20 ? 0 : 1;
                    if (i % 17 == t)
                        volume->forgetListings();
                }
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(wrong, 0);
    }
}

} // namespace
} // namespace pryvane
