#include "support/Volumes.h"
#include "volume/listing/ListingFormat.h"
#include "volume/listing/ListingReader.h"

#include <gmock/gmock.h>

#include <thread>
#include <unistd.h>

namespace pryvane {

namespace {

using test::at;
using testing::ElementsAre;
using testing::HasSubstr;

struct ListingTest : testing::Test {
    Result<std::unique_ptr<IndexFileSystem>> read(std::string_view text, std::string prefix = {})
    {
        folder.file("list", text);
        ListingOptions options;
        options.prefix = std::move(prefix);
        std::atomic<std::uint64_t> bytes{0};
        return openListing(folder.hostPath("list"), options, StopFlag(), bytes);
    }

    test::TemporaryFolder folder;
};

/// Every entry below a node with its kind, size, time and target, folder by folder.
std::vector<std::string> described(const NameIndex& names,
                                   NameIndex::Node folder = NameIndex::kRoot)
{
    std::vector<std::string> lines;
    if (names.refused(folder))
        lines.emplace_back("refused");
    auto node = NameIndex::kNone;
    while ((node = names.nextIn(folder, node)) != NameIndex::kNone) {
        const auto facts = names.facts(node);
        if (facts.isDeleted)
            continue;
        std::string line =
            "!dflo?"[static_cast<std::size_t>(facts.kind)] + (" " + names.path(node));
        if (facts.size >= 0)
            line += " " + std::to_string(facts.size);
        if (facts.modified >= 0)
            line += " @" + std::to_string(facts.modified);
        if (const std::string* target = names.target(node))
            line += " -> " + *target;
        lines.push_back(line);
        std::ranges::copy(described(names, node), std::back_inserter(lines));
    }
    return lines;
}

struct Case {
    const char* name;
    std::string text;
    const char* format;
    std::vector<std::string> entries;
    int skipped = 0;
    std::string prefix = {};
};

using std::string_literals::operator""s;

TEST_F(ListingTest, ReadsEachFormatAsItsToolsWriteIt)
{
    const Case cases[] = {
        {"find",
         ".\n./Users\n./Users/a b\n./Users/a b/.x\nof a name with a newline\n\n",
         "paths, one a line",
         {"d /Users", "d /Users/a b", "? /Users/a b/.x"},
         1},
        {"paths from the root, in any order, folders with a slash",
         "/Users/alice/x/y\n/Users/bob/\n/Users/alice\n//Users//./carol\n/Users/../etc\n",
         "paths, one a line",
         {"d /Users", "d /Users/alice", "d /Users/alice/x", "? /Users/alice/x/y", "d /Users/bob",
          "? /Users/carol"},
         1},
        {"Windows line ends and a byte-order mark",
         "\xEF\xBB\xBF/Users\r\n/Users/alice\r\n",
         "paths, one a line",
         {"d /Users", "? /Users/alice"}},
        {"NUL",
         "/Users\0/Users/a\nb\0/Users/\xff|\0"s,
         "paths with NUL behind each",
         {"d /Users", "? /Users/a\nb", "? /Users/\xff|"}},
        {"a prefix",
         "[root]/Users\n[root]/Users/alice\n[rootless]/x\n[root]\n",
         "paths, one a line",
         {"d /Users", "? /Users/alice"},
         1,
         "[root]/"},
        {"find -ls of GNU",
         "     1234      4 drwxr-xr-x   2 root     root         4096 Nov 22 01:21 ./Users\n"
         "     1235      4 -rw-r--r--   1 al       staff         700 Jan  1  2020 "
         "./Users/a\\ b\\\\\\n\\303\\251\n"
         "     1236      0 lrwxrwxrwx   1 al       staff           3 Jan  1  2020 ./Users/l\\ k -> "
         "a\\ b\n"
         "     1237      0 crw-rw-rw-   1 root     root       1,   3 Jan  1  2020 ./Users/null\n"
         "     1238      4 -rw-r--r--   1 al       staff 9 Jan  1  2020 ./Users/#\\ ->\\ \\377|\n"
         "find: './Users/x': Permission denied\n",
         "find -ls",
         {"d /Users", "f /Users/a b\\\n\xc3\xa9 700", "l /Users/l k -> a b", "o /Users/null",
          "f /Users/# -> \xff| 9"},
         1},
        {"bodyfile of fls",
         "0|/Users|20|d/drwxr-xr-x|0|0|0|1|2|3|4\n"
         "0|/Users/a|b \\ c|21|r/rrw-r--r--|501|20|700|1600000000|1600000001.25|-1|0\n"
         "0|/Users/l -> ../x -> y|22|l/lrwxr-xr-x|501|20|5|0|0|0|0\n"
         "0|/Users/gone (deleted)|23|r/-|0|0|0|0|0|0|0\n"
         "0|/Users/old|24|-/-|0|0|0|0|0|0|0\n"
         "0|/Users/short|24|r/r|0|0|x|0|0|0|0\n",
         "bodyfile",
         {"d /Users @2", "f /Users/a|b \\ c 700 @1600000001", "l /Users/l -> ../x -> y",
          "? /Users/old"},
         1},
        {"mtree -c of BSD",
         "#\t   user: root\n\n/set type=file uid=0\n"
         ".               type=dir time=5.0\n"
         "    Users           type=dir\n"
         "        a\\040b       size=12 \\\n"
         "                    time=7.5\n"
         "        l            type=link link=a\\040b\n"
         "        deep        type=dir\n"
         "        ..\n"
         "        dev         type=char\n"
         "    ..\n"
         "    tmp             size=3\n"
         "..\n..\n",
         "mtree",
         {"d /Users", "f /Users/a b 12 @7", "l /Users/l -> a b", "d /Users/deep", "o /Users/dev",
          "f /tmp 3"},
         1},
        {"mtree with whole paths",
         "#mtree\n./Users type=dir\n./Users/x type=file size=4 time=9.000\n"
         "./Users/\\043\\040->\\040\\377\\134 type=file size=1\n",
         "mtree",
         {"d /Users", "f /Users/x 4 @9", "f /Users/# -> \xff\\ 1"}},
        {"JSON Lines",
         "{\"path\":\"/Users\",\"type\":\"directory\",\"x\":{\"path\":[\"no\",{\"}\":1}]}}\n"
         " { \"columns\" : { \"path\":\"/Users/\\u00e9\\ud83d\\ude00\\n\\\"\", \"size\":\"12\","
         "\"mtime\":\"34\",\"type\":\"regular\" } , \"name\":\"x\" }\n"
         "{\"path\":\"/Users/l\",\"type\":\"symlink\",\"target\":\"/x\"}\n"
         "{\"path\":\"/Users/\\ud83d\"}\n{\"size\":1}\n{\"path\":\"/Users/cut\n{\"path\":7}\n"
         "{\"path\":\"/Users/q\\\\ -> \xff\",\"size\":null,\"type\":\"-rw-r--r--\"}",
         "JSON Lines",
         {"d /Users", "f /Users/\xc3\xa9\xf0\x9f\x98\x80\n\" 12 @34", "l /Users/l -> /x",
          "f /Users/q\\ -> \xff"},
         4},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        auto disk = read(row.text, row.prefix);
        ASSERT_TRUE(disk.ok()) << disk.error().message;
        EXPECT_EQ((*disk)->names()->facts().format, row.format);
        EXPECT_EQ((*disk)->names()->facts().skipped, row.skipped);
        EXPECT_EQ(described((*disk)->index()), row.entries);
    }
}

TEST_F(ListingTest, ShowsTheFirstThreeLinesThatItDoesNotUnderstand)
{
    auto disk =
        read("./Users\none\ntwo\nthree\nfour\n" + std::string(70'000, 'x') + "\n./Users/a\n");
    ASSERT_TRUE(disk.ok()) << disk.error().message;
    const SourceFacts& facts = (*disk)->names()->facts();
    EXPECT_EQ(facts.entries, 2);
    EXPECT_EQ(facts.skipped, 5);
    EXPECT_THAT(facts.firstSkipped, ElementsAre("one", "two", "three"));
}

TEST_F(ListingTest, SaysWhatIsWrongWithAListThatIsNone)
{
    const struct {
        std::string text;
        const char* says;
    } rows[] = {
        {"", "is empty"},
        {"hello\nworld\n", "no list of names that is known"},
        {"/mnt/mac/Users/alice/Library/x\n", "try --strip /mnt/mac"},
        {"/etc/passwd\n", "holds no Mac's disk"},
        {"{\"path\":\"\"}\n{}\n", "no list of names"},
    };
    for (const auto& row : rows) {
        const auto disk = read(row.text);
        ASSERT_FALSE(disk.ok()) << row.text;
        EXPECT_THAT(disk.error().message, HasSubstr(row.says));
    }
    std::atomic<std::uint64_t> bytes{0};
    EXPECT_FALSE(openListing(folder.hostPath("none"), {}, StopFlag(), bytes).ok());
    EXPECT_FALSE(openListing(folder.path(), {}, StopFlag(), bytes).ok());
}

TEST_F(ListingTest, DoesNotTakeTheEndOfACutListForTheEndOfAFolder)
{
    const std::string whole = "/\n/Users\n/Users/alice\n/Users/alice/a\n/Users/alice/b/c/d\n";
    auto disk = read(whole);
    EXPECT_EQ((*disk)->presence(at("/Users/alice/x")), Presence::Absent);
    disk = read(whole.substr(0, whole.size() - 2));
    EXPECT_EQ((*disk)->presence(at("/Users/alice/x")), Presence::Unknown);
    EXPECT_EQ((*disk)->presence(at("/Users/alice/a")), Presence::Present);
}

TEST_F(ListingTest, TakesNothingDeletedForPresentAndNothingUnreadForAbsent)
{
    const auto line = [](const std::string& path, const char* mode) {
        return "0|" + path + "|1|" + mode + "|0|0|5|0|0|0|0\n";
    };
    // Folders that only deleted names lead to are gone with them, until something else is in them.
    auto disk =
        read(line("/", "d/d") + line("/Users", "d/d") + line("/Users/a", "d/d") +
             line("/Users/a/old/x (deleted)", "r/r") + line("/Users/a/back/x (deleted)", "r/r") +
             line("/Users/a/back/y", "r/r") + line("/Users/a/gone (deleted)", "d/d") +
             line("/Users/a/gone/x (deleted)", "r/r") + line("/Users/a/again (deleted)", "r/r") +
             line("/Users/a/again", "r/r") + "# not all read: /Users/a/closed\n");
    ASSERT_TRUE(disk.ok()) << disk.error().message;
    using enum Presence;
    const std::map<const char*, Presence> rows{
        {"/Users/a/old", Absent},       {"/Users/a/old/x", Absent},   {"/Users/a/back", Present},
        {"/Users/a/back/x", Absent},    {"/Users/a/back/y", Present}, {"/Users/a/gone", Absent},
        {"/Users/a/gone/x", Absent},    {"/Users/a/again", Present},  {"/Users/a/closed", Present},
        {"/Users/a/closed/x", Unknown}, {"/Users/a/missing", Absent}};
    for (const auto& [path, presence] : rows)
        EXPECT_EQ((*disk)->presence(at(path)), presence) << path;
    EXPECT_THAT(
        (*disk)->names()->deletedPaths(10),
        ElementsAre("/Users/a/old/x", "/Users/a/back/x", "/Users/a/gone", "/Users/a/gone/x"));
    EXPECT_THAT((*disk)->names()->deletedPaths(1), ElementsAre("/Users/a/old/x"));
    EXPECT_THAT(described((*disk)->index()),
                ElementsAre("d /Users", "d /Users/a", "d /Users/a/back", "f /Users/a/back/y 5",
                            "f /Users/a/again 5", "d /Users/a/closed", "refused"));
    EXPECT_EQ((*disk)->allocatedSize(at("/Users/a")), 1024);
    EXPECT_EQ((*disk)->names()->facts().entries, 10);
}

TEST_F(ListingTest, IsToldFromAnImageByItsBeginning)
{
    for (const auto& list :
         {"/Users\n/Library\n"s, "./Users\0./Users/a\0"s, "0|/|2|d/d|0|0|0|0|0|0|0\n"s})
        EXPECT_TRUE(beginsLikeListing(list)) << list;
    for (const auto& other :
         {std::string(65'000, '\0'), "EVF\t\r\n\xff\0\1"s, "NXSB\0\0"s, "no disk at all\n"s, ""s})
        EXPECT_FALSE(beginsLikeListing(other)) << other.substr(0, 20);
}

TEST_F(ListingTest, ReadsWhatComesInPiecesOfAnySize)
{
    std::string text = "/\n/Users\n";
    std::string longPath = "/Users/" + std::string(200, 'x');
    for (int i = 0; i < 40; ++i)
        longPath += "/" + std::string(249, 'n');
    text += longPath + "\n";
    for (int i = 0; i < 40'000; ++i)
        text += "/Users/alice/some folder/file number " + std::to_string(i) + "\n";
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    std::thread writer([&] {
        std::size_t at = 0;
        for (std::size_t piece = 1; at < text.size(); piece = piece * 3 % 70'001) {
            const std::size_t size = std::min(piece, text.size() - at);
            const ssize_t wrote = write(ends[1], text.data() + at, size);
            if (wrote < 0)
                break;
            at += static_cast<std::size_t>(wrote);
        }
        close(ends[1]);
    });
    std::atomic<std::uint64_t> bytes{0};
    auto disk = readListing(ends[0], "-", {}, StopFlag(), bytes);
    writer.join();
    close(ends[0]);
    ASSERT_TRUE(disk.ok()) << disk.error().message;
    EXPECT_EQ((*disk)->names()->facts().entries, 40'003);
    EXPECT_EQ((*disk)->presence(at(longPath)), Presence::Present);
    EXPECT_EQ((*disk)->presence(at("/Users/alice/some folder/file number 39999")),
              Presence::Present);
    EXPECT_EQ(bytes, text.size());
}

} // namespace

} // namespace pryvane
