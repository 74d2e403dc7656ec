#include "support/RemovalFixtures.h"

#include <gtest/gtest.h>

#include <array>

namespace pryvane::test {
namespace {

/// A disk as a Mac since macOS 10.15 has it: without the links of its system volume, or with them.
void fill(const TemporaryFolder& disk, bool links)
{
    disk.file("private/tmp/.hidden", std::string(5000, 'x'));
    disk.file("private/etc/manpath.d/a", "text");
    disk.folder("private/var/folders/zz");
    disk.file("private/var/folders/zz/cache", std::string(9000, 'y'));
    disk.file("Users/alice/file");
    disk.link("Users/alice/byVar", "/var/folders");
    disk.link("Users/alice/upAndBy", "../../tmp");
    disk.link("Users/alice/toFile", "/etc/manpath.d/a");
    disk.link("private/tmp/around", "/tmp/../tmp/.hidden");
    if (links) {
        for (const std::string name : {"etc", "tmp", "var"})
            disk.link(name, "private/" + name);
    }
}

struct Way {
    NameMatching matching;
    Confinement confinement;
};
constexpr std::array<Way, 4> kWays = {{{NameMatching::AsOnMac, Confinement::BestAvailable},
                                       {NameMatching::AsOnMac, Confinement::ComponentWalk},
                                       {NameMatching::Exact, Confinement::BestAvailable},
                                       {NameMatching::Exact, Confinement::ComponentWalk}}};

constexpr const char* kPaths[] = {
    // by the links in the root
    "/tmp", "/tmp/", "tmp/.hidden", "/tmp/.hidden/", "/tmp/missing", "//tmp/./.hidden",
    "/Users/../tmp/.hidden", "/tmp/../etc/manpath.d/a", "/tmp/..", "/tmp/around", "/etc/manpath.d/",
    "/etc/manpath.d/a", "/VAR/Folders/ZZ/cache", "/var/folders/zz",
    // by links further down, and by none
    "/Users/alice/byVar/zz/cache", "/Users/alice/byVar/zz/none", "/Users/alice/upAndBy/.hidden",
    "/Users/alice/toFile", "/Users/tmp/.hidden", "/private/tmp/.hidden"};

std::string answers(VolumeFileSystem& volume, const std::string& path)
{
    const FileURL url = at(path);
    std::string text = std::to_string(static_cast<int>(volume.presence(url)));
    // Of a link in the root only what is behind it can be the same.
    if (path != "/tmp" && path != "/tmp/")
        text += " " + std::to_string(static_cast<int>(volume.kind(url))) + " " +
                std::to_string(volume.allocatedSize(url)) + " " + volume.placeBehindLinks(url);
    const FolderListing listing = volume.list(url);
    text += " " + std::to_string(static_cast<int>(listing.status));
    for (const std::string& name : namesOf(listing))
        text += " " + name;
    const int folder = volume.openFolder(url);
    text += folder < 0 ? " none" : " opened";
    if (folder >= 0)
        close(folder);
    const auto content = volume.readSmallFile(url, 100);
    return text + " " + (content ? *content : content.error().message) +
           (volume.writable(url) ? " writable" : " not") + (volume.sighting(url) ? " seen" : "");
}

TEST(DataVolume, AnswersAsTheWholeDiskDoes)
{
    TemporaryFolder whole, data;
    fill(whole, true);
    fill(data, false);
    for (const Way& way : kWays) {
        const auto links = volumeAt(whole, way.matching, way.confinement);
        const auto implied = volumeAt(data, way.matching, way.confinement);
        EXPECT_FALSE(links->impliedLinks().any());
        EXPECT_TRUE(implied->impliedLinks().any());
        EXPECT_EQ(implied->presence(at("/tmp/.hidden")), Presence::Present);
        EXPECT_EQ(implied->presence(at("/Users/alice/byVar/zz/cache")), Presence::Present);
        for (const char* path : kPaths) {
            SCOPED_TRACE(std::string(path) + (way.matching == NameMatching::Exact ? " exact" : "") +
                         (way.confinement == Confinement::ComponentWalk ? " walk" : ""));
            EXPECT_EQ(answers(*implied, path), answers(*links, path));
        }
    }
}

TEST(DataVolume, IsOnlyWhatLacksTheLinks)
{
    const struct {
        const char* what;
        std::vector<const char*> planted;
        bool ownLink;
        bool tmpIsThere;
    } rows[] = {
        {"a data volume", {"private/tmp/x"}, false, true},
        {"one with a folder of that name", {"private/tmp/x", "tmp/"}, false, false},
        {"a whole disk that lost a link", {"private/tmp/x"}, true, false},
        {"a file called private", {"private"}, false, false},
    };
    for (const auto& row : rows) {
        TemporaryFolder disk;
        for (const char* path : row.planted)
            disk.plant(path);
        if (row.ownLink)
            disk.link("var", "private/var");
        for (const Way& way : kWays)
            EXPECT_EQ(volumeAt(disk, way.matching, way.confinement)->exists(at("/tmp/x")),
                      row.tmpIsThere)
                << row.what;
    }
}

TEST(DataVolume, LosesTheRealFileAndNothingElse)
{
    for (const Way& way : kWays) {
        RemovalDisk disk(way.matching, way.confinement);
        fill(disk.folder, false);
        disk.volume = volumeAt(disk.folder, way.matching, way.confinement);
        const auto victim = RemovalDisk::stored("/tmp/.hidden");
        EXPECT_EQ(disk.plan(victim).place, "/private/tmp/.hidden");
        EXPECT_EQ(inWords(disk.remove(victim)), "removed 1");
        EXPECT_FALSE(disk.folder.contains("private/tmp/.hidden"));

        // Behind a link of the disk, as ever, only where it was seen.
        EXPECT_EQ(disk.remove(RemovalDisk::stored("/Users/alice/byVar/zz/cache")).obstacle,
                  RemovalObstacle::LinkOnTheWay);
        EXPECT_EQ(inWords(disk.remove(disk.seen("/Users/alice/byVar/zz/cache"))), "removed 1");
        for (const char* kept : {"/tmp", "/tmp/", "/var", "/private/etc", "/tmp/../etc"})
            EXPECT_EQ(disk.remove(RemovalDisk::stored(kept)).obstacle,
                      RemovalObstacle::ProtectedPlace)
                << kept;
        EXPECT_TRUE(disk.folder.contains("private/var/folders/zz"));
    }
}

} // namespace
} // namespace pryvane::test
