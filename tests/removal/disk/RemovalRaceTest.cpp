#include "support/RemovalFixtures.h"
#include "volume/folders/FolderHandle.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <set>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace pryvane::test {
namespace {

/// The attacker's disk: /lib/place/finding is to be removed, while another thread exchanges names.
/// Neither what is outside the volume nor what is in /other may lose anything.
struct Arena {
    explicit Arena(Confinement confinement) : disk(NameMatching::Exact, confinement)
    {
        disk.folder.folder("lib/place");
        for (const TemporaryFolder* victim : {&outside, &disk.folder})
            for (const char* name : {"f", "inner/f", "z/f"})
                victim->file((victim == &outside ? "finding/" : "other/finding/") +
                             std::string(name));
        disk.folder.file("other/y/f");
        disk.folder.file("other/z/f");
        disk.folder.folder("other/a");
        lib = UniqueFd(open(disk.folder.hostPath("lib").c_str(), O_PATH));
        place = UniqueFd(openat(lib.get(), "place", O_PATH));
        other = UniqueFd(open(disk.folder.hostPath("other").c_str(), O_PATH));
    }

    [[nodiscard]] std::string victims() const
    {
        return treeBelow(outside.path()) + treeBelow(disk.folder.hostPath("other/finding")) +
               treeBelow(disk.folder.hostPath("other/y")) +
               treeBelow(disk.folder.hostPath("other/z"));
    }

    const InMemory inMemory;
    RemovalDisk disk;
    TemporaryFolder outside;
    UniqueFd lib, place, other; ///< lead to the real folders, whatever they are called just now
};

/// Changes names once; whether the host can exchange names at all.
bool exchange(int folder, const char* name, int otherFolder, const char* otherName)
{
    return renameat2(folder, name, otherFolder, otherName, RENAME_EXCHANGE) == 0 || errno == ENOENT;
}

/// Where the name is free; while names are exchanged it may not be.
void makeLink(const char* target, int folder, const char* name)
{
    if (symlinkat(target, folder, name) != 0) {
        EXPECT_EQ(errno, EEXIST) << name;
    }
}

struct Race {
    const char* name;
    int percent;                         ///< of all removals, for each way of confinement
    void (*prepare)(const Arena&);       ///< once
    void (*plant)(const Arena&);         ///< before each removal, relative to the real folders
    bool (*change)(const Arena&, int i); ///< again and again, from another thread
    std::vector<std::string> outcomes;   ///< those that may be told, by their beginnings
    std::size_t telling;                 ///< of those, the first so many must all have been told
    FileKind seenAs = FileKind::Folder;
};

/// Four entries.
void plantTree(const Arena& arena)
{
    mkdirat(arena.place.get(), "finding", 0755);
    mkdirat(arena.place.get(), "finding/inner", 0755);
    makeFile(arena.place.get(), "finding/f");
    makeFile(arena.place.get(), "finding/inner/f");
}

/// Among three names a file, a folder and a link. Without the finding nobody exchanges any.
void plantKinds(const Arena& arena)
{
    for (const char* name : {"finding", "alt1", "alt2"}) {
        const auto kindOf = [&](const char* of) { return kindAt(arena.place.get(), of); };
        if (kindOf(name) != FileKind::Missing)
            continue;
        const std::set<FileKind> there = {kindOf("finding"), kindOf("alt1"), kindOf("alt2")};
        if (!there.contains(FileKind::SymbolicLink)) {
            makeLink("../../other/finding", arena.place.get(), name);
        } else if (there.contains(FileKind::Folder)) {
            makeFile(arena.place.get(), name);
        } else {
            mkdirat(arena.place.get(), name, 0755);
            makeFile(arena.place.get(), name + std::string("/f"));
        }
    }
}

constexpr int kLevels = 40; // far more than folders are held open

const Race kRaces[] = {
    {"AncestorForALink",
     30,
     [](const Arena& arena) {
         makeLink(arena.outside.path().c_str(), arena.lib.get(), "out");
         makeLink("../other", arena.lib.get(), "in");
     },
     plantTree,
     [](const Arena& arena, int i) {
         return exchange(arena.lib.get(), "place", arena.lib.get(), i / 2 % 2 ? "out" : "in");
     },
     {"removed 4", "failed after 0: a link on the way"},
     2},
    {"FolderInsideForALink",
     8,
     [](const Arena&) {},
     [](const Arena& arena) {
         plantTree(arena);
         makeLink((arena.outside.path() + "/finding").c_str(), arena.place.get(), "finding/out");
         makeLink("../../../other/finding", arena.place.get(), "finding/in");
     },
     [](const Arena& arena, int i) {
         return exchange(arena.place.get(), "finding/inner", arena.place.get(),
                         i % 2 ? "finding/out" : "finding/in");
     },
     {"removed 6", "failed after"}, // the latter when it is exchanged too often
     1},
    {"TheFindingForAFileAFolderAndALink",
     10,
     [](const Arena&) {},
     plantKinds,
     [](const Arena& arena, int i) {
         return exchange(arena.place.get(), "finding", arena.place.get(), i % 2 ? "alt1" : "alt2");
     },
     {"removed ", "failed after 0: it is no longer", "failed after 0: its name or one in it",
      "failed after 1: "},
     1,
     FileKind::RegularFile},
    {"LevelsMovedAwayFromBelowAnother",
     2,
     [](const Arena&) {},
     [](const Arena& arena) {
         std::string path = "finding";
         mkdirat(arena.place.get(), path.c_str(), 0755);
         for (int level = 0; level < kLevels; ++level) {
             for (const char* name : {"/y", "/a", "/z"}) // one before and one behind in any order
                 mkdirat(arena.place.get(), (path + name).c_str(), 0755);
             path += "/a";
         }
         mkdirat(arena.other.get(), "a", 0755);
     },
     [](const Arena& arena, int) {
         return exchange(arena.place.get(), "finding/a/a/a", arena.other.get(), "a");
     },
     {"removed ", "failed after "},
     1},
};

class RemovalRaceTest : public testing::TestWithParam<std::tuple<Race, Confinement>> {
protected:
    /// Calls `removal` so often, after planting, while another thread changes names.
    template <typename Removal>
    void run(const Arena& arena, int times, Removal removal)
    {
        const Race& race = std::get<0>(GetParam());
        race.prepare(arena);
        race.plant(arena);
        std::atomic<bool> done{false};
        std::atomic<bool> possible{true};
        std::thread attacker([&] {
            for (int i = 0; !done && possible; ++i)
                possible = race.change(arena, i);
        });
        for (int i = 0; i < times && possible && removal(i); ++i)
            race.plant(arena);
        done = true;
        attacker.join();
        if (!possible)
            GTEST_SKIP() << "this file system cannot exchange names";
    }
};

INSTANTIATE_TEST_SUITE_P(All, RemovalRaceTest,
                         testing::Combine(testing::ValuesIn(kRaces),
                                          testing::Values(Confinement::BestAvailable,
                                                          Confinement::ComponentWalk)),
                         [](const auto& row) {
                             return std::get<0>(row.param).name +
                                    testing::PrintToString(std::get<1>(row.param));
                         });

TEST_P(RemovalRaceTest, TakesNothingElseAndTellsTheTruth)
{
    const auto& [race, confinement] = GetParam();
    const Arena arena(confinement);
    const std::string before = arena.victims();
    RemovalItem item = RemovalDisk::stored("/lib/place/finding");
    std::map<std::string, int> told;
    run(arena, sizeAsked("PRYVANE_TEST_RACES", 20'000) * race.percent / 100, [&](int i) {
        struct stat parent {};
        fstat(arena.place.get(), &parent);
        item.seen.reset(); // as from a stored report
        if (i % 2)
            item.seen = {parent.st_dev, parent.st_ino, race.seenAs};
        const RemovalResult result = arena.disk.remove(item);
        const std::string words = inWords(result);
        EXPECT_EQ(result.outcome == RemovalOutcome::Removed,
                  kindAt(arena.place.get(), "finding") == FileKind::Missing)
            << words;
        std::string known = "unexpected: " + words;
        for (const std::string& outcome : race.outcomes)
            known = words.starts_with(outcome) ? outcome : known;
        ++told[known];
        return !testing::Test::HasFailure();
    });
    EXPECT_EQ(arena.victims(), before);
    std::size_t expected = 0;
    for (std::size_t i = 0; i < race.outcomes.size(); ++i)
        expected += told.erase(race.outcomes[i]) > 0 && i < race.telling ? 1 : 0;
    EXPECT_EQ(told, (std::map<std::string, int>())) << "outcomes that may not be";
    if (!IsSkipped()) {
        EXPECT_EQ(expected, race.telling) << "the race was not run";
    }
}

} // namespace
} // namespace pryvane::test
