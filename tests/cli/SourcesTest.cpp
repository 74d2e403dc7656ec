#include "cli/CliFixture.h"
#include "signatures/CatalogRows.h"
#include "signatures/Catalogue.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>

namespace pryvane::test {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// A tree with findings and near misses, planted at random.
void plantRandomTree(const TemporaryFolder& volume, unsigned seed)
{
    std::mt19937 random(seed);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    for (const char* link : {"tmp", "var", "etc"}) {
        volume.folder("/private/" + std::string(link));
        volume.link(link, "private/" + std::string(link));
    }
    for (const char* folder : {"/Library/LaunchAgents", "/System/Library", "/Applications",
                               "/Users/Shared", "/Users/bob/Library", "/usr/lib"})
        volume.folder(folder);
    const std::vector<CatalogRow> rows = catalogRows();
    for (int i = 0; i < 25; ++i) {
        const CatalogRow& row = rows[below(rows.size())];
        std::string path = catalogue::filled(row.signature, {below(4) ? "alice" : "bob"});
        if (row.rule == RuleKind::LibraryScope)
            path = "/Library/" + path;
        else if (row.rule == RuleKind::NameFragment || row.rule == RuleKind::BareWord)
            path = "/Users/alice/Library/LaunchAgents/com." + path + ".plist";
        else if (row.rule == RuleKind::FullSystemSubstring && path.front() != '/')
            path = "/Users/alice/Documents/some " + path + " file";
        while (path.ends_with('/'))
            path.pop_back();
        std::error_code error; // where a file stands in the way of a folder
        const fs::path host = volume.hostPath(path);
        fs::create_directories(below(3) ? host.parent_path() : host, error);
        // Nothing is left empty, as a mere list of paths has files and empty folders look alike.
        if (!error)
            std::ofstream(fs::is_directory(host) ? host / ".inside" : host)
                << std::string(below(3000), 'x');
    }
    for (const char* name : {"a|b (deleted)", "\xff\xfe", "caf\xc3\xa9", " -> ", "back\\slash",
                             "#hash", ".hidden keylogger", "trailing "})
        volume.file("/Users/alice/Documents/" + std::string(name), "y");
    volume.link("/Users/alice/Library/Caches/a link", "../../Documents");
    volume.file("/a/b/c/d/e/f/g/h/i/deeper than any place");
}

/// What stands below the folder, as lines of a format.
template <typename Line>
std::string linesOf(const std::string& top, Line line)
{
    std::string text = line(".", fs::directory_entry(top));
    for (const auto& entry : fs::recursive_directory_iterator(top))
        text += line("." + entry.path().string().substr(top.size()), entry);
    return text;
}

std::string targetOf(const fs::directory_entry& entry)
{
    return entry.is_symlink() ? fs::read_symlink(entry.path()).string() : std::string();
}

std::int64_t sizeOf(const fs::directory_entry& entry)
{
    return entry.is_regular_file() && !entry.is_symlink()
               ? static_cast<std::int64_t>(entry.file_size())
               : 0;
}

std::string escaped(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        char octal[8];
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = byte > ' ' && byte < 0x7f && c != '\\' && c != '#';
        std::snprintf(octal, sizeof octal, "\\%03o", byte);
        out += plain ? std::string(1, c) : std::string(octal);
    }
    return out;
}

/// The string with its quotes. Bytes that are no UTF-8 stay as they are, as tools write them.
std::string inJson(const std::string& text)
{
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        out += c;
    }
    return out + "\"";
}

struct Format {
    const char* name;
    std::string (*write)(const std::string& top);
};

const Format kFormats[] = {
    {"paths",
     [](const std::string& top) {
         return linesOf(
             top, [](const std::string& path, const fs::directory_entry&) { return path + "\n"; });
     }},
    {"NUL",
     [](const std::string& top) {
         return linesOf(top, [](const std::string& path, const fs::directory_entry&) {
             return path + std::string(1, '\0');
         });
     }},
    {"find -ls",
     [](const std::string& top) {
         return linesOf(top, [](const std::string& path, const fs::directory_entry& entry) {
             const bool link = entry.is_symlink();
             return "12 4 " +
                    std::string(link                   ? "l"
                                : entry.is_directory() ? "d"
                                                       : "-") +
                    "rw-r--r-- 1 al staff " + std::to_string(sizeOf(entry)) + " Jan  1 2020 " +
                    escaped(path) + (link ? " -> " + escaped(targetOf(entry)) : "") + "\n";
         });
     }},
    {"bodyfile",
     [](const std::string& top) {
         return linesOf(top, [](const std::string& path, const fs::directory_entry& entry) {
             const bool link = entry.is_symlink();
             return "0|" + path.substr(1) + (path == "." ? "/" : "") +
                    (link ? " -> " + targetOf(entry) : "") + "|1|" +
                    (link                   ? "l/l"
                     : entry.is_directory() ? "d/d"
                                            : "r/r") +
                    "rwxrwxrwx|0|0|" + std::to_string(sizeOf(entry)) + "|0|0|0|0\n";
         });
     }},
    {"mtree",
     [](const std::string& top) {
         return "#mtree\n" +
                linesOf(top, [](const std::string& path, const fs::directory_entry& entry) {
                    const bool link = entry.is_symlink();
                    return escaped(path) + (path == "." ? "/" : "") + " type=" +
                           (link                   ? "link link=" + escaped(targetOf(entry))
                            : entry.is_directory() ? "dir"
                                                   : "file size=" + std::to_string(sizeOf(entry))) +
                           "\n";
                });
     }},
    {"JSON Lines",
     [](const std::string& top) {
         return linesOf(top, [](const std::string& path, const fs::directory_entry& entry) {
             const bool link = entry.is_symlink();
             return "{\"path\":" + inJson(path.substr(1) + (path == "." ? "/" : "")) +
                    ",\"type\":\"" +
                    (link ? "symlink\",\"target\":" + inJson(targetOf(entry))
                          : std::string(entry.is_directory() ? "directory\"" : "regular\"")) +
                    ",\"size\":" + std::to_string(sizeOf(entry)) + "}\n";
         });
     }},
};

class SourcesTest : public CliFixture {
protected:
    using Findings = std::vector<std::string>;

    enum class Depth : std::uint8_t { Quick, Deep };

    /// The locations of the findings; those of a quick scan with their families. Which of its two
    /// parts finds something first is chance in a deep scan.
    Findings findings(std::vector<std::string> source, Depth depth)
    {
        source.insert(source.begin(),
                      {"scan", "--user", "alice", "--no-store", "--format", "json"});
        if (depth == Depth::Deep)
            source.insert(source.end(), {"--deep", "--whole-disk"});
        last = run(std::move(source));
        Findings found;
        if (last.out.empty())
            return found;
        const auto report = nlohmann::json::parse(last.out);
        for (const auto& record : report["report"]["spyWareList"]) {
            const auto family = record["infections"].get<std::string>() + " ";
            found.push_back((depth == Depth::Quick ? family : std::string()) +
                            record["url"].get<std::string>());
        }
        std::ranges::sort(found);
        return found;
    }

    std::string asList(const std::string& text)
    {
        lists.file("list", text);
        return lists.hostPath("list");
    }

    TemporaryFolder lists;
    Outcome last{};
};

TEST_F(SourcesTest, OneTreeHasTheSameFindingsHoweverItIsRead)
{
    for (unsigned seed = 1; seed <= 2; ++seed) {
        const TemporaryFolder tree;
        plantRandomTree(tree, seed);
        const Findings quick = findings({"--volume", tree.path()}, Depth::Quick);
        const Findings deep = findings({"--volume", tree.path()}, Depth::Deep);
        ASSERT_LT(quick.size(), deep.size());
        for (const Format& format : kFormats) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", " + format.name);
            const std::string list = asList(format.write(tree.path()));
            EXPECT_THAT(findings({"--listing", list}, Depth::Quick), ElementsAreArray(quick));
            EXPECT_THAT(findings({"--listing", list}, Depth::Deep), ElementsAreArray(deep));
            EXPECT_EQ(last.code, 1);
        }
    }
}

TEST_F(SourcesTest, AListOfAPartOfADiskIsNeverClean)
{
    volume.file("/Users/alice/Library/LaunchAgents/com.example.plist");
    const std::string users = kFormats[3].write(volume.path());
    const auto whole = run({"scan", "--no-store", "--user", "alice", "--listing", asList(users)});
    EXPECT_THAT(whole.out, HasSubstr("Read from: a list of names"));

    const std::string part = "/Users\n/Users/alice\n/Users/alice/Documents\n/Users/alice/x/y\n";
    const auto partly = run({"scan", "--no-store", "--user", "alice", "--listing", asList(part)});
    EXPECT_THAT(partly.out, Not(HasSubstr("Clean: nothing found")));
    EXPECT_THAT(partly.out, HasSubstr("/Library/LaunchAgents"));
}

TEST_F(SourcesTest, WhatChangesADiskIsRefusedBeforeAnythingIsAsked)
{
    terminal = true;
    input = "yes\n";
    const std::string list = asList("/Users/alice/x\n");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"remove", "latest", "--all"},
          std::vector<std::string>{"privacy", "clear", "--item", "Safari/History"}}) {
        auto arguments = command;
        arguments.insert(arguments.end(), {"--listing", list});
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2);
        EXPECT_THAT(outcome.err,
                    HasSubstr("nothing can be removed from a list of names or an image"));
        EXPECT_THAT(outcome.out, IsEmpty());
    }
}

TEST_F(SourcesTest, InventoryAndPrivacyListWorkOnAList)
{
    volume.file("/Users/alice/Library/LaunchAgents/com.example.plist");
    volume.folder("/Applications/Firefox.app");
    volume.file("/Users/alice/Library/Logs/x.log", std::string(1000, 'x'));
    const std::string list = asList(kFormats[3].write(volume.path()));
    const auto inventory = run({"inventory", "--user", "alice", "--listing", list});
    EXPECT_EQ(inventory.code, 0);
    EXPECT_THAT(inventory.err, HasSubstr("a list of names holds no contents"));
    EXPECT_THAT(inventory.out, HasSubstr("com.example.plist"));
    const auto privacy = run({"privacy", "list", "--user", "alice", "--listing", list});
    EXPECT_EQ(privacy.code, 0) << privacy.err;
    EXPECT_THAT(privacy.out, HasSubstr("1.0 KB"));
}

} // namespace

} // namespace pryvane::test
