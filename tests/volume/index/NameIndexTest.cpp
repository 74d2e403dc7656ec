#include "support/Volumes.h"
#include "volume/index/IndexFileSystem.h"

#include <gmock/gmock.h>

namespace pryvane {

namespace {

using test::at;
using test::namesOf;
using testing::ElementsAre;

using Node = NameIndex::Node;

/// A small disk; tests add what they are about.
struct Disk {
    explicit Disk(NameMatching matching = NameMatching::AsOnMac)
        : names(std::make_unique<NameIndex>(matching)), builder(*names)
    {
    }

    Node add(std::string_view path, FileKind kind, std::int64_t size = NameIndex::kNotKnown,
             bool listed = true)
    {
        Node node = NameIndex::kRoot;
        std::size_t start = 1;
        while (start <= path.size()) {
            const auto end = std::min(path.find('/', start), path.size());
            node = builder.findOrAdd(node, path.substr(start, end - start));
            start = end + 1;
        }
        names->setFacts(node, {.kind = kind, .size = size, .isListed = listed});
        return node;
    }
    Node link(std::string_view path, std::string_view target)
    {
        const Node node = add(path, FileKind::SymbolicLink);
        names->setTarget(node, target);
        return node;
    }

    IndexFileSystem opened(NameCover cover = NameCover::WholeDisk, std::size_t deepest = 20)
    {
        IndexFileSystem::Parts parts;
        parts.names = std::move(names);
        parts.choice = std::make_shared<EveryEntry>();
        parts.cover = cover;
        parts.deepest = deepest;
        return IndexFileSystem(std::move(parts));
    }

    std::unique_ptr<NameIndex> names;
    NameIndexBuilder builder;
};

/// Has each of the paths answer like that.
void expectAll(IndexFileSystem& disk, Presence presence, std::initializer_list<const char*> paths)
{
    for (const char* path : paths)
        EXPECT_EQ(disk.presence(at(path)), presence) << path;
}

TEST(NameIndex, ResolvesAsAMacsDiskDoes)
{
    Disk disk;
    disk.add("/Users/alice/Library/Foo.plist", FileKind::RegularFile, 700);
    disk.add("/Users/alice/Library/caf\xc3\xa9", FileKind::Folder);
    disk.add("/Users/alice/Library/\xff\xfe\n|", FileKind::RegularFile);
    disk.add("/Users/alice", FileKind::Folder);
    disk.add("/Users/alice/Library", FileKind::Folder);
    disk.add("/Users", FileKind::Folder);
    disk.add("/private/tmp/.x", FileKind::RegularFile);
    disk.add("/private/tmp", FileKind::Folder);
    disk.add("/private", FileKind::Folder);
    disk.link("/abs", "/Users/alice");
    disk.link("/up", "../../Users/alice/Library/Foo.plist");
    disk.link("/dangling", "/Users/carol");
    disk.link("/loop", "/loop");
    disk.link("/Users/alice/rel", "Library");
    auto opened = disk.opened();

    expectAll(opened, Presence::Present,
              {"/Users/alice/Library/Foo.plist", "/users/ALICE/library/foo.PLIST",
               "Users/alice/./Library//Foo.plist", "/Users/alice/Library/cafe\xcc\x81/",
               "/Users/alice/Library/\xff\xfe\n|", "/Users/alice/../../../Users", "/tmp/.x",
               "/abs/Library/", "/abs/rel/Foo.plist", "/up"});
    expectAll(opened, Presence::Absent,
              {"/Users/alice/Library/Foo.plist/", "/Users/alice/Library/Foo.plist/x",
               "/Users/alice/Library/\xff\xfe\n", "/dangling", "/loop", ""});
    EXPECT_EQ(opened.kind(at("/abs")), FileKind::SymbolicLink);
    EXPECT_EQ(opened.kind(at("/abs/")), FileKind::SymbolicLink);
    EXPECT_EQ(opened.allocatedSize(at("/Users")), 1024);
    EXPECT_THAT(namesOf(opened.list(at("/abs/rel"))),
                ElementsAre("Foo.plist", "caf\xc3\xa9", "\xff\xfe\n|"));
    EXPECT_FALSE(opened.readSmallFile(at("/up"), 100).ok());

    Disk exact(NameMatching::Exact);
    exact.add("/Users/alice", FileKind::Folder);
    EXPECT_EQ(exact.opened().presence(at("/users/alice")), Presence::Absent);
}

TEST(NameIndex, SaysUnknownOfWhatAListDoesNotHold)
{
    Disk disk;
    disk.add("/Users/alice/Documents/a/b/letter", FileKind::RegularFile);
    disk.add("/Users/alice", FileKind::Folder);
    disk.add("/Users/alice/Empty", FileKind::Folder);
    disk.add("/Users/alice/Documents/a/b/End", FileKind::Folder); // as deep as the list goes
    disk.add("/Users/alice/Either", FileKind::Unknown);
    const Node gap = disk.add("/Users/alice/Gap", FileKind::Folder);
    disk.names->setRefused(gap, "no");
    disk.add("/Users/alice/link", FileKind::SymbolicLink); // whose target the list leaves out
    disk.names->setFolder(disk.add("/Users", FileKind::Folder, 0, false));
    auto opened = disk.opened(NameCover::AsListed, 6);

    expectAll(opened, Presence::Unknown,
              {"/Library", "/Library/x", "/Users/bob", "/Users/alice/Either/",
               "/Users/alice/Documents/x", "/Users/alice/Documents/a/b/End/x", "/Users/alice/Gap/x",
               "/Users/alice/link"});
    expectAll(opened, Presence::Absent,
              {"/Users/alice/x", "/Users/alice/Empty/x", "/Users/alice/Either/x"});
    expectAll(opened, Presence::Present, {"/Users/alice/Either"});
    EXPECT_EQ(opened.list(at("/Users/alice")).status, ListStatus::Listed);
    EXPECT_EQ(opened.list(at("/Users")).status, ListStatus::Refused);
    EXPECT_THAT(namesOf(opened.list(at("/Users"))), ElementsAre("alice"));
    EXPECT_EQ(opened.list(at("/Library")).status, ListStatus::Refused);
    EXPECT_THAT(opened.list(at("/Users/alice/Gap")).reason, "no");
}

/// What a visit tells, as one text.
class Told final : public NameVisitor {
public:
    void enterFolder(std::string_view name) override { text.append(name).append("("); }
    void leaveFolder() override { text.append(") "); }
    void entry(std::string_view name, FileKind) override { text.append(name).append(" "); }
    void unnamed(std::int64_t entries) override { text += "+" + std::to_string(entries) + " "; }
    void refused(std::string_view) override { text += "? "; }
    std::string text;
};

TEST(NameIndex, IsVisitedFolderByFolderHoweverDeep)
{
    Disk disk;
    disk.add("/a/b/c", FileKind::RegularFile);
    disk.add("/a/d", FileKind::Folder);
    disk.names->addUnnamed(disk.add("/a/b", FileKind::Folder), 3, 100);
    disk.names->setRefused(disk.add("/a/e", FileKind::Folder), "no");
    Node deep = disk.add("/a/f", FileKind::Folder);
    for (int i = 0; i < 100'000; ++i)
        deep = disk.names->add(deep, "x", {.kind = FileKind::Folder});
    auto opened = disk.opened();
    Told told;
    const StopFlag stop;
    ASSERT_TRUE(opened.names()->visit(at("/A"), stop, told));
    EXPECT_THAT(told.text.substr(0, 29), "b(+3 c ) d() e(? ) f(x(x(x(x(");
    EXPECT_FALSE(opened.names()->visit(at("/none"), stop, told));
    EXPECT_EQ(opened.allocatedSize(at("/a")), 100);
}

} // namespace

} // namespace pryvane
