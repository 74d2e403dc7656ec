#include "support/Volumes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <random>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <thread>
#include <unistd.h>
#ifdef __linux__
#include <sched.h>
#endif

namespace pryvane::test {
namespace {

/// Runs on the kernel's confinement and on our own walk.
class ConfinementTest : public testing::TestWithParam<Confinement> {
protected:
    std::unique_ptr<VolumeFileSystem> volume() const
    {
        return volumeAt(disk, NameMatching::Exact, GetParam());
    }

    TemporaryFolder disk, outside;
};

INSTANTIATE_TEST_SUITE_P(Ways, ConfinementTest,
                         testing::Values(Confinement::BestAvailable, Confinement::ComponentWalk),
                         testing::PrintToStringParamName());

TEST_P(ConfinementTest, NoPathAndNoLinkReachesTheHost)
{
    outside.file("secret/file");
    disk.file("Library/present");
    disk.folder("a/b/c");
    disk.link("a/hostAbsolute", outside.path());
    disk.link("a/hostRelative", "../../../../../../../../.." + outside.path());
    disk.link("a/root", "/");
    disk.link("a/up", "..");
    disk.link("a/upFar", "../../../../../../../..");
    disk.link("a/proc", "/proc/self/root");
    disk.link("a/loop", "loop");
    disk.link("a/ping", "pong");
    disk.link("a/pong", "ping");
    disk.link("a/inside", "/Library");
    disk.link("a/fileSlash", "/Library/present/");
    disk.link("a/dangling", "nowhere");
    disk.link("a/long", std::string(4000, 'x'));
    const auto volume = this->volume();
    const auto expect = [&](Presence presence, const std::vector<std::string>& paths) {
        for (const std::string& path : paths)
            EXPECT_EQ(volume->presence(at(path)), presence) << path.substr(0, 100);
    };
    expect(Presence::Present,
           {"/", "//", "..", "/../../..", "/../../Library/present", "Library/present",
            "Library//present", "./Library/./present", "/Library/", "/a/root/Library/present",
            "/a/up/Library/present", "/a/upFar/Library/present", "/a/inside/present", "/a/inside/",
            "/a/inside/../a/b", "/a/b/c/../../../../../../../Library/present"});
    const std::string host = outside.path();
    expect(Presence::Absent, {"", "/Library/present/", "/Library/present/.", "/Library/present/..",
                              "/Library/missing/../present", "/" + std::string(300, 'n'),
                              // the host's own
                              "/etc/passwd", host, "../../../../../../.." + host, "/a/hostAbsolute",
                              "/a/hostAbsolute/secret/file", "/a/hostRelative/secret/file",
                              "/a/root" + host, "/a/upFar" + host, "/a/proc", "/a/proc/etc",
                              // links to nothing
                              "/a/up/up/up/Library", "/a/loop", "/a/ping/x", "/a/fileSlash",
                              "/a/dangling", "/a/long"});
    EXPECT_EQ(volume->list(at("/a/hostAbsolute")).status, ListStatus::Missing);
    EXPECT_EQ(volume->list(at("/a/upFar")).entries.size(), 2U);
    EXPECT_EQ(volume->allocatedSize(at("/a/hostAbsolute/secret")), 0);
    EXPECT_EQ(volume->kind(at("/a/hostRelative/secret/file")), FileKind::Missing);
    EXPECT_FALSE(volume->readSmallFile(at("/a/hostRelative/secret/file"), 10).ok());
    EXPECT_FALSE(volume->writable(at(outside.path())));
    EXPECT_FALSE(volume->writable(at("/a/hostAbsolute/secret/file")));
}

TEST_P(ConfinementTest, PathsOfAnyLengthGetAnAnswer)
{
    disk.file("f");
    disk.folder("d/e");
    std::string dots = "/", ups = "/d/e";
    for (int i = 0; i < 20'000; ++i) {
        dots += "./";
        ups += "/../e";
    }
    const auto volume = this->volume();
    EXPECT_EQ(volume->presence(at(dots + "f")), Presence::Present);
    EXPECT_EQ(volume->presence(at(dots + "g")), Presence::Absent);
    EXPECT_EQ(volume->presence(at(ups)), Presence::Present);
    EXPECT_EQ(volume->presence(at("/d" + std::string(100'000, '/') + "e")), Presence::Present);
    EXPECT_EQ(volume->presence(at(std::string(1'000'000, 'x'))), Presence::Absent);

    // Deeper than one path reaches, and back up again past the folders held open.
    growChain(openedFolder(disk).get(), "deep", 1500);
    std::string deep, back;
    for (int i = 0; i < 1500; ++i) {
        deep += "/deep";
        back += "/..";
    }
    EXPECT_EQ(volume->presence(at(deep + "/")), Presence::Present);
    EXPECT_EQ(volume->presence(at(deep + "/deep")), Presence::Absent);
    EXPECT_EQ(volume->presence(at(deep + back + "/f")), Presence::Present);
    EXPECT_EQ(volume->list(at(deep)).status, ListStatus::Listed);
    EXPECT_EQ(volume->kind(at(deep)), FileKind::Folder);
}

TEST_P(ConfinementTest, NothingThatBlocksOrActsIsOpened)
{
    ASSERT_EQ(mkfifo(disk.hostPath("fifo").c_str(), 0644), 0);
    disk.link("toFifo", "fifo");
    const auto volume = this->volume();
    for (const char* path : {"fifo", "toFifo"}) {
        EXPECT_EQ(volume->presence(at(path)), Presence::Present) << path;
        EXPECT_EQ(volume->list(at(path)).status, ListStatus::Missing) << path;
        EXPECT_FALSE(volume->readSmallFile(at(path), 100).ok()) << path;
    }
    EXPECT_EQ(volume->kind(at("fifo")), FileKind::Other);
    EXPECT_EQ(volume->presence(at("fifo/")), Presence::Absent);
    EXPECT_EQ(volume->allocatedSize(at("fifo")), 0);

    if (mknod(disk.hostPath("device").c_str(), S_IFCHR | 0666, makedev(1, 5)) != 0)
        GTEST_SKIP() << "no right to make a device node";
    EXPECT_EQ(volume->presence(at("device")), Presence::Present);
    EXPECT_EQ(volume->kind(at("device")), FileKind::Other);
    EXPECT_FALSE(volume->readSmallFile(at("device"), 100).ok());
}

TEST_P(ConfinementTest, WhatMayNotBeSearchedIsUnknown)
{
    disk.file("closed/file");
    disk.file("open/file");
    disk.file("searchOnly/file");
    disk.link("link", "closed/file");
    chmod(disk.path().c_str(), 0755);
    chmod(disk.hostPath("closed").c_str(), 0000);
    chmod(disk.hostPath("searchOnly").c_str(), 0711);
    const auto answers = asNobody([this] {
        std::string text;
        for (const auto matching : {NameMatching::Exact, NameMatching::AsOnMac}) {
            const auto volume = volumeAt(disk, matching, GetParam());
            for (const char* path :
                 {"closed", "closed/file", "closed/.", "closed/../open", "link", "open/file",
                  "open/none", "searchOnly/file", "searchOnly/none"})
                text += std::to_string(static_cast<int>(volume->presence(at(path))));
            const auto listing = volume->list(at("closed"));
            text += (listing.status == ListStatus::Refused ? " refused: " : " ") + listing.reason;
            text += ", " + std::to_string(static_cast<int>(volume->kind(at("closed/file"))));
            text += volume->writable(at("open")) ? " writable" : " read-only";
            text += volume->readSmallFile(at("closed/file"), 9).error().message + ", ";
            text += std::to_string(volume->allocatedSize(at("/"))) + "; ";
        }
        return text;
    });
    // 0 absent, 1 present, 2 unknown. Where only an exact name can be asked for, another spelling
    // of a missing one cannot be ruled out.
    const std::string unknown = std::to_string(static_cast<int>(FileKind::Unknown));
    const std::string words = std::string(runningAsRoot() ? " read-only" : " writable") +
                              "permission denied, " +
                              std::to_string(naiveSize(disk.hostPath("open"))) + "; ";
    EXPECT_EQ(answers, "122221010 refused: permission denied, " + unknown + words +
                           "122221012 refused: permission denied, " + unknown + words);
    chmod(disk.hostPath("closed").c_str(), 0755);
}

/// The kernel gives up on a path with ".." while anything on the machine is being renamed.
TEST_P(ConfinementTest, WhatOthersRenameChangesNoAnswer)
{
    disk.folder("a/b");
    std::string path = "/a/b";
    for (int i = 0; i < 300; ++i)
        path += "/../b";
    const auto volume = this->volume();
    std::atomic<bool> done{false};
    std::vector<std::thread> others;
    for (const std::string name : {"x", "y", "z"})
        others.emplace_back(
            [&, one = outside.hostPath(name), other = outside.hostPath(name + name)] {
                mkdir(one.c_str(), 0755);
                while (!done)
                    if (rename(one.c_str(), other.c_str()) == 0)
                        rename(other.c_str(), one.c_str());
            });
    int wrong = 0;
    for (int i = 0; i < 200; ++i) {
        wrong += volume->presence(at(path)) != Presence::Present;
        wrong += volume->list(at(path)).status != ListStatus::Listed;
        wrong += volume->presence(at(path + "/none")) != Presence::Absent;
    }
    done = true;
    for (std::thread& other : others)
        other.join();
    EXPECT_EQ(wrong, 0);
}

#ifdef __linux__
TEST_P(ConfinementTest, MountsBelowTheVolumeBelongToItAndLeadNowhereElse)
{
    outside.file("secret");
    disk.folder("mnt");
    disk.file("inside");
    const auto answers = inChild([this] {
        if (unshare(CLONE_NEWNS) != 0 ||
            mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) ||
            mount("none", disk.hostPath("mnt").c_str(), "tmpfs", 0, nullptr) != 0)
            return std::string("skipped");
        disk.link("mnt/out", "../../../../../.." + outside.path() + "/secret");
        disk.link("mnt/in", "/inside");
        disk.file("mnt/file", std::string(5000, 'x'));
        const auto volume = this->volume();
        std::string text;
        for (const char* path : {"mnt/out", "mnt/in", "mnt/..", "mnt/../../inside", "mnt/../file"})
            text += volume->exists(at(path)) ? '+' : '-';
        return text + std::to_string(volume->allocatedSize(at("mnt")));
    });
    if (answers == "skipped")
        GTEST_SKIP() << "no right to mount";
    EXPECT_EQ(answers, "-+++-8192");
}

/// A tree in which most entries are links to anywhere, in it and out of it.
std::vector<std::string> makeMaze(const TemporaryFolder& disk, const TemporaryFolder& outside,
                                  std::mt19937& random)
{
    const auto pick = [&random](const auto& from) -> std::string {
        return from[random() % std::size(from)];
    };
    const char* names[] = {"a", "b", "c", "d", "e"};
    const std::vector<std::string> steps = {"a", "b", "c", "d", "e", ".",  "..", "..",
                                            "",  "a", "b", "c", "d", "..", "e"};
    const auto anyPath = [&] {
        std::string path = random() % 2 ? "/" : "";
        for (auto parts = random() % 6 + 1; parts > 0; --parts)
            path += pick(steps) + (parts > 1 ? "/" : "");
        return path;
    };
    const std::string targets[] = {
        outside.path(), "../../../../.." + outside.path(), "/etc", "/", "/proc/self/root", "."};
    std::vector<std::string> folders = {""};
    for (int i = 0; i < 60; ++i) {
        const std::string path = pick(folders) + "/" + pick(names);
        if (disk.contains(path))
            continue;
        const auto kind = random() % 10;
        if (kind < 3) {
            disk.folder(path);
            folders.push_back(path);
        } else if (kind < 4) {
            disk.file(path);
        } else {
            const std::string target = kind < 6 ? pick(targets) : anyPath();
            disk.link(path, target.empty() ? "." : target);
        }
    }
    std::vector<std::string> paths;
    for (int i = 0; i < 400; ++i)
        paths.push_back(anyPath() + (random() % 4 ? "" : "/"));
    for (const std::string& folder : folders)
        paths.push_back(folder + outside.path());
    return paths;
}

using Exists = std::function<bool(const std::string&)>;
using Names = std::function<std::vector<std::string>(const std::string&)>;

std::string answersFor(const std::vector<std::string>& paths, const Exists& exists,
                       const Names& names)
{
    std::string text;
    for (const std::string& path : paths) {
        text += path + (exists(path) ? " is there:" : " is not there:");
        for (const std::string& name : names(path))
            text += " " + name;
        text += '\n';
    }
    return text;
}

/// Sorted; none where the folder cannot be read.
std::vector<std::string> namesOnHost(const std::string& path)
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(path, error))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

TEST_P(ConfinementTest, AnswersAsAProcessWhoseRootTheVolumeIs)
{
    if (!runningAsRoot())
        GTEST_SKIP() << "only root may change its root";
    outside.file("secret");
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const TemporaryFolder maze;
        std::mt19937 random(seed);
        const auto paths = makeMaze(maze, outside, random);
        const std::string expected = inChild([&] {
            if (chroot(maze.path().c_str()) != 0 || chdir("/") != 0)
                return std::string("no chroot");
            return answersFor(
                paths, [](const std::string& path) { return access(path.c_str(), F_OK) == 0; },
                namesOnHost);
        });
        const auto inside = volumeAt(maze, NameMatching::Exact, GetParam());
        const std::string found = answersFor(
            paths, [&](const std::string& path) { return inside->exists(at(path)); },
            [&](const std::string& path) { return namesOf(inside->list(at(path))); });
        ASSERT_EQ(found, expected) << "seed " << seed;
    }
}
#endif

} // namespace
} // namespace pryvane::test
