#include "support/Volumes.h"

#include <gmock/gmock.h>

#include <atomic>
#include <filesystem>
#include <map>
#include <sys/stat.h>
#include <thread>

namespace fs = std::filesystem;

namespace pryvane::test {
namespace {

using testing::HasSubstr;

class VolumeContentTest : public testing::Test {
protected:
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
    using enum FileKind;
    const std::map<std::string, FileKind> kinds{
        {"file", RegularFile}, {".hidden", RegularFile}, {"sub", Folder}, {"link", SymbolicLink}};
    std::map<std::string, FileKind> found;
    for (const FolderEntry& entry : volume->list(at("toFolder/")).entries)
        found[entry.name] = entry.kind;
    EXPECT_EQ(found, kinds);
    for (const auto& [name, kind] : kinds)
        EXPECT_EQ(volume->kind(at("/folder/" + name)), kind) << name;
    for (const char* path : {"missing", "folder/file", "folder/file/", ""})
        EXPECT_EQ(volume->list(at(path)).status, ListStatus::Missing) << path;
    EXPECT_EQ(volume->list(at("/folder/sub")).status, ListStatus::Listed);
    EXPECT_EQ(volume->list(at("/")).entries.size(), 2U);

    const auto expectKind = [&](FileKind kind, std::initializer_list<const char*> paths) {
        for (const char* path : paths)
            EXPECT_EQ(volume->kind(at(path)), kind) << path;
    };
    expectKind(Folder, {"/", "..", "folder/sub/.."});
    expectKind(Missing, {"folder/file/", "none", ""});
    expectKind(SymbolicLink, {"toFolder/"});
    expectKind(RegularFile, {"toFolder/file"});
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
    const auto allow = [this](const char* path, mode_t mode) {
        chmod(disk.hostPath(path).c_str(), mode);
    };
    allow("", 0755);
    allow("open", 0777);
    allow("open/file", 0666);
    allow("closed", 0555);
    allow("closed/file", 0444);
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
    const auto host = VolumeFileSystem::open("/").value();
    EXPECT_EQ(host->presence(at("/etc/passwd")), Presence::Present);
    EXPECT_EQ(host->presence(at("/etc/Passwd")), Presence::Absent);
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
} // namespace pryvane::test
