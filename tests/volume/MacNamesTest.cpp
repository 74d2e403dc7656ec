#include "support/Volumes.h"
#include "volume/FoldedName.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace pryvane::test {
namespace {

using namespace std::string_literals;

constexpr const char* kComposed = "Caf\u00e9";    // é as one character
constexpr const char* kDecomposed = "Cafe\u0301"; // e and an accent

TEST(FoldedNameTest, SpellingsOfOneNameAreOneName)
{
    const struct {
        std::string a, b;
        bool same;
    } rows[] = {
        {"Library", "LIBRARY", true},
        {"a@b[c`d{e", "A@B[C`D{E", true},
        {"@", "`", false},
        {"[", "{", false},
        {"Z", "[", false},
        {"abcdefghijklm", "ABCDEFGHIJKLM", true},
        {"abcdefghijklm", "abcdefghijkl", false},
        {kComposed, kDecomposed, true},
        {"CAF\u00c9", kDecomposed, true},
        {"Cafe", kComposed, false},
        {"\u212aey", "key", true},              // the Kelvin sign
        {"mi\u017fs", "MISS", true},            // the long s
        {"stra\u00dfe", "STRASSE", true},       // ß
        {"\u03b1\u0345\u0301", "\u1fb4", true}, // marks in either order
        {"\ud55c", "\u1112\u1161\u11ab", true}, // a Hangul syllable and its letters
        {"\u0130", "i", false},                 // dotted I keeps its dot
        {"\ufb01x", "fix", true},               // a ligature
        {"x\u00b2", "x2", false},               // compatible, not canonical
        {"\xff\x41", "\xff\x61", false},        // not UTF-8: only its bytes
        {"\xff\x41", "\xff\x41", true},
        {"\xc3", "\xc3\x89", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(sameFoldedName(row.a, row.b), row.same) << row.a << " " << row.b;
        EXPECT_EQ(foldedName(row.a) == foldedName(row.b), row.same) << row.a << " " << row.b;
        EXPECT_EQ(foldedHash(row.a, 1) == foldedHash(row.b, 1), row.same) << row.a << " " << row.b;
    }
    // The eight-at-once path agrees with the table for every byte at every place.
    for (int c = 1; c < 128; ++c)
        for (std::size_t place = 0; place < 17; ++place) {
            std::string name(17, 'q');
            name[place] = static_cast<char>(c);
            EXPECT_EQ(foldedHash(name, 5), foldedHash(foldedName(name), 5)) << c;
        }
}

class MacNamesTest : public testing::TestWithParam<Confinement> {
protected:
    std::unique_ptr<VolumeFileSystem> volume() const
    {
        return volumeAt(disk, NameMatching::AsOnMac, GetParam());
    }

    TemporaryFolder disk;
};

INSTANTIATE_TEST_SUITE_P(Ways, MacNamesTest,
                         testing::Values(Confinement::BestAvailable, Confinement::ComponentWalk),
                         testing::PrintToStringParamName());

TEST_P(MacNamesTest, AnySpellingFindsWhatIsThere)
{
    disk.file(std::string("library/Application SUPPORT/") + kDecomposed + "/file");
    disk.folder("private/TMP");
    disk.file("private/TMP/X");
    disk.link("Tmp", "Private/tmp");
    disk.link("absolute", "/PRIVATE/Tmp/../tmp/./x");
    disk.link("LOOP", "loop/x");
    disk.link("dangling", "Nowhere");
    disk.link("out", "/../ETC/passwd");
    for (int i = 0; i < 45; ++i)
        disk.link("Chain" + std::to_string(i), "cHAIN" + std::to_string(i + 1));
    for (const char* path : {"chain45", "both/one", "Both/two", "same/NAME", "same/name"})
        disk.file(path);
    const std::string support = "/library/Application SUPPORT/";
    const struct {
        std::string path;
        std::string spelled;
    } rows[] = {
        {"/Library", "/library"},
        {"/Library/", "/library"},
        {"Library", "/library"},
        {"/Library/application support/" + std::string(kComposed) + "/FILE",
         support + kDecomposed + "/file"},
        {"/Library/Application Support/CAF\u00c9/file", support + kDecomposed + "/file"},
        {"/LIBRARY/../../Private/tmp/x", "/private/TMP/X"},
        {"/tmp/x", "/private/TMP/X"},
        {"/TMP", "/Tmp"},
        {"/tmp/", "/Tmp"},
        {"/Absolute", "/absolute"},
        {"/chain5", "/Chain5"}, // 40 links on
        {"/both/one", "/both/one"},
        {"/Both/TWO", "/Both/two"},
        {"/same/name", "/same/name"},
        {"/same/NAME", "/same/NAME"},
    };
    const auto volume = this->volume();
    for (const auto& row : rows) {
        EXPECT_TRUE(volume->exists(at(row.path))) << row.path;
        EXPECT_EQ(volume->spelledPath(at(row.path)), row.spelled) << row.path;
    }
    // One link more than 40, and one name behind a folder that is spelled exactly as asked.
    for (const std::string& path :
         {"/Library/Application Support/Cafe/file"s, support + kDecomposed + "/file/",
          support + kComposed + "/file/.", "/ABSOLUTE/"s, "/Loop"s, "/Dangling"s, "/OUT"s,
          "/chain4"s, "/both/two"s})
        EXPECT_FALSE(volume->exists(at(path))) << path;
    // A name in two spellings, asked for in a third, is one of them.
    EXPECT_THAT(volume->spelledPath(at("/SAME/Name")), testing::AnyOf("/same/name", "/same/NAME"));
    // Removal wants the dangling link itself.
    EXPECT_EQ(volume->spelledPath(at("/DANGLING")), "/dangling");
    EXPECT_EQ(volume->kind(at("/DANGLING")), FileKind::SymbolicLink);
    EXPECT_EQ(volume->spelledPath(at("/Nowhere")), std::nullopt);

    EXPECT_EQ(namesOf(volume->list(at("/TMP/"))), std::vector{"X"s});
    EXPECT_EQ(volume->readSmallFile(at("/TMP/x"), 9).value(), "x");
    EXPECT_GT(volume->allocatedSize(at("/LIBRARY")), 0);
    EXPECT_TRUE(volume->writable(at("/LIBRARY/application Support")));
    EXPECT_TRUE(volume->writable(at("/ABSOLUTE")));

    const auto exact = volumeAt(disk, NameMatching::Exact, GetParam());
    for (const char* path : {"/Library", "/tmp/x", "/absolute", "/Absolute"})
        EXPECT_FALSE(exact->exists(at(path))) << path;
    EXPECT_EQ(exact->spelledPath(at("/Library")), std::nullopt);
}

TEST_P(MacNamesTest, WhatIsRememberedNeverHidesAChangeOfTheAskedName)
{
    disk.file("folder/Old");
    const auto volume = this->volume();
    EXPECT_TRUE(volume->exists(at("/FOLDER/old")));
    EXPECT_FALSE(volume->exists(at("/FOLDER/new")));
    disk.remove("folder/Old");
    disk.file("folder/new");
    EXPECT_FALSE(volume->exists(at("/FOLDER/old")));
    EXPECT_TRUE(volume->exists(at("/folder/new")));
    EXPECT_EQ(volume->list(at("/FOLDER")).entries.size(), 1U);
    EXPECT_TRUE(volume->exists(at("/FOLDER/NEW"))); // through what the listing brought
    disk.file("folder/third");
    volume->forgetListings();
    EXPECT_TRUE(volume->exists(at("/FOLDER/THIRD")));
}

TEST(FolderNamesTest, AFolderFullOfSpellingsOfOneNameIsReadQuickly)
{
    // Were all its spellings tried against each other, this would run into the test's time limit.
    std::string name = "abcdefghijklmnopq";
    FolderListing listing{ListStatus::Listed, {}, {}};
    for (unsigned bits = 0; bits < 1U << name.size(); ++bits) {
        for (std::size_t i = 0; i < name.size(); ++i)
            name[i] = static_cast<char>((bits >> i & 1U ? 'A' : 'a') + static_cast<char>(i));
        listing.entries.push_back({name, FileKind::RegularFile});
    }
    const FolderNames names(listing);
    EXPECT_EQ(names.find("abcdefghijklmnopQ").spelling, "abcdefghijklmnopQ");
    EXPECT_EQ(names.find("abcdefghijklmnopR").kind, FileKind::Missing);
}

TEST_P(MacNamesTest, RandomNamesAreListedFoundAndMeasured)
{
    std::mt19937 random(11);
    std::vector<std::string> names;
    for (int i = 0; i < 5000; ++i) {
        // Few letters in short names give clashes of spelling, random bytes everything else.
        std::string name(random() % 255 + 1, ' ');
        const bool letters = random() % 4 == 0;
        if (letters)
            name.resize(name.size() % 3 + 1);
        for (char& c : name)
            do
                c = static_cast<char>(letters ? "aAbB.\xc3\xa9\x89"[random() % 8] : random());
            while (c == '\0' || c == '/');
        if (name != "." && name != "..")
            names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    for (const std::string& name : names)
        disk.file("names/" + name);

    const auto volume = this->volume();
    std::vector<std::string> listed;
    std::int64_t sum = 0;
    for (const FolderEntry& entry : volume->list(at("/NAMES")).entries) {
        EXPECT_EQ(entry.kind, FileKind::RegularFile);
        listed.push_back(entry.name);
        const FileURL url = at("/Names/" + entry.name);
        EXPECT_TRUE(volume->exists(url));
        EXPECT_EQ(volume->spelledPath(url), "/names/" + entry.name);
        sum += volume->allocatedSize(url);
    }
    std::sort(listed.begin(), listed.end());
    EXPECT_EQ(listed, names);
    EXPECT_EQ(sum, naiveSize(disk.hostPath("names")));
    EXPECT_EQ(volume->allocatedSize(at("/nameS")), sum);
}

} // namespace
} // namespace pryvane::test
