#include "platform/posix/VolumeFileSystem.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <random>
#include <set>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pryvane {
namespace {

using test::TemporaryFolder;

std::unique_ptr<VolumeFileSystem> exactVolume(const TemporaryFolder& folder, Confinement confinement)
{
    return std::move(
        VolumeFileSystem::open(folder.path(), {NameMatching::Exact, confinement}).value());
}

FileURL at(std::string_view path)
{
    return FileURL::fileURLWithPath(path);
}

/// Runs on the kernel's confinement and on our own walk.
class ConfinementTest : public testing::TestWithParam<Confinement> {
protected:
    TemporaryFolder disk;
    TemporaryFolder outside;
};

INSTANTIATE_TEST_SUITE_P(Ways, ConfinementTest,
                         testing::Values(Confinement::BestAvailable, Confinement::ComponentWalk),
                         [](const auto& way) {
                             return way.param == Confinement::BestAvailable ? "BestAvailable"
                                                                            : "ComponentWalk";
                         });

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
    const struct {
        std::string path;
        Presence expected;
    } rows[] = {
        {"/", Presence::Present},
        {"//", Presence::Present},
        {"", Presence::Absent},
        {"..", Presence::Present},
        {"/../../..", Presence::Present},
        {"/../../Library/present", Presence::Present},
        {"Library/present", Presence::Present},
        {"Library//present", Presence::Present},
        {"./Library/./present", Presence::Present},
        {"/Library/present/", Presence::Absent},
        {"/Library/present/.", Presence::Absent},
        {"/Library/present/..", Presence::Absent},
        {"/Library/", Presence::Present},
        {"/Library/missing/../present", Presence::Absent},
        {outside.path(), Presence::Absent},
        {"../../../../../../.." + outside.path(), Presence::Absent},
        {"/a/hostAbsolute", Presence::Absent},
        {"/a/hostAbsolute/secret/file", Presence::Absent},
        {"/a/hostRelative/secret/file", Presence::Absent},
        {"/a/root/Library/present", Presence::Present},
        {"/a/root" + outside.path(), Presence::Absent},
        {"/a/up/Library/present", Presence::Present},
        {"/a/up/up/up/Library", Presence::Absent},
        {"/a/upFar/Library/present", Presence::Present},
        {"/a/upFar" + outside.path(), Presence::Absent},
        {"/a/proc", Presence::Absent},
        {"/a/proc/etc", Presence::Absent},
        {"/a/loop", Presence::Absent},
        {"/a/ping/x", Presence::Absent},
        {"/a/inside/present", Presence::Present},
        {"/a/inside/", Presence::Present},
        {"/a/inside/../a/b", Presence::Present},
        {"/a/fileSlash", Presence::Absent},
        {"/a/dangling", Presence::Absent},
        {"/a/long", Presence::Absent},
        {"/a/b/c/../../../../../../../Library/present", Presence::Present},
        {"/" + std::string(300, 'n'), Presence::Absent},
    };
    const auto volume = exactVolume(disk, GetParam());
    for (const auto& row : rows)
        EXPECT_EQ(volume->presence(at(row.path)), row.expected) << row.path.substr(0, 100);
    EXPECT_EQ(volume->list(at("/a/hostAbsolute")).status, ListStatus::Missing);
    EXPECT_EQ(volume->list(at("/a/upFar")).entries.size(), 2U);
    EXPECT_EQ(volume->allocatedSize(at("/a/root/..//a/hostAbsolute/secret")), 0);
    EXPECT_FALSE(volume->readSmallFile(at("/a/hostRelative/secret/file"), 10).ok());
    EXPECT_FALSE(volume->writable(at(outside.path())));
}

} // namespace
} // namespace pryvane
