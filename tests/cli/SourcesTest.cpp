#include "cli/CliFixture.h"
#include "core/Sha256.h"
#include "signatures/CatalogRows.h"
#include "signatures/Catalogue.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

namespace pryvane::test {

namespace {

namespace fs = std::filesystem;
using testing::ElementsAreArray;
using testing::HasSubstr;
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
        // The deep scan's texts hold wherever homes lie, even one in another.
        constexpr const char* kElsewhere[] = {"/Volumes/Old", "/Users", "/Users/bob",
                                              "/Users/Users"};
        if (row.rule == RuleKind::FullSystemSubstring && below(3) == 0)
            path = kElsewhere[below(std::size(kElsewhere))] + path;
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
    for (const char* path :
         {"/Users/alice/default/a", "/Users/Users/default/b", "/Users/Users/alice/javax2",
          "/Volumes/Old/Users/bob/Library/Manager/c", "/Users/bob/Users/Users/default/d",
          "/Users/alice/Documents/default/no", "/Users/carols/users/alice/default/no",
          "/opt/alice/default/no", "/Users/bob/Library/Manager.no"})
        volume.file(path);
    for (const char* name : {"a|b (deleted)", "\xff\xfe", "caf\xc3\xa9", " -> ", "back\\slash",
                             "#hash", ".hidden keylogger", "trailing "})
        volume.file("/Users/alice/Documents/" + std::string(name), "y");
    volume.link("/Users/alice/Library/Caches/a link", "../../Documents");
    volume.file("/a/b/c/d/e/f/g/h/i/deeper than any place");
}

/// How a list tells of a folder, a file and a link: their path is $p, a size $s, a target $t.
struct Format {
    const char* name;
    std::string folder, file, link;
};

const std::string kNul(1, '\0');
const Format kBodyfile{"bodyfile", "0|$p|1|d/drwxrwxrwx|0|0|0|0|0|0|0\n",
                       "0|$p|1|r/rrwxrwxrwx|0|0|$s|0|0|0|0\n",
                       "0|$p -> $t|1|l/lrwxrwxrwx|0|0|0|0|0|0|0\n"};
// Those whose names are escaped are read in the tests of the lists.
const Format kFormats[] = {{"paths", ".$p\n", ".$p\n", ".$p\n"},
                           {"NUL", ".$p" + kNul, ".$p" + kNul, ".$p" + kNul},
                           kBodyfile};

/// What stands below the folder as such a list.
std::string listOf(const std::string& top, const Format& format)
{
    std::string text;
    const auto add = [&](const std::string& path, const fs::directory_entry& entry) {
        const bool isLink = entry.is_symlink(), isFolder = entry.is_directory() && !isLink;
        const std::string& line = isLink ? format.link : isFolder ? format.folder : format.file;
        for (std::size_t at = 0; at < line.size(); ++at) {
            const char what = line[at] == '$' ? line[++at] : '\0';
            if (what == 'p')
                text += path;
            else if (what == 't')
                text += fs::read_symlink(entry.path()).string();
            else if (what == 's')
                text += std::to_string(entry.file_size());
            else
                text += line[at];
        }
    };
    add("/", fs::directory_entry(top));
    for (const auto& entry : fs::recursive_directory_iterator(top))
        add(entry.path().string().substr(top.size()), entry);
    return text;
}

class SourcesTest : public CliFixture {
protected:
    using Findings = std::vector<std::string>;

    enum class Depth : std::uint8_t { Quick, Deep };

    /// The locations of the findings; those of a quick scan with their families. Which of its two
    /// parts finds something first is chance in a deep scan.
    Findings findings(std::vector<std::string> source, Depth depth)
    {
        source.insert(source.begin(), {"scan", "--no-store", "--format", "json"});
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

/// The first file of the tree as an image: raw, in three pieces, and as an Expert Witness file, for
/// as many of them as there are tools.
std::vector<std::pair<std::string, std::string>> imagesOf(const std::string& tree,
                                                          const TemporaryFolder& folder)
{
    const auto shell = [](const std::string& command) {
        return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
    };
    const std::string raw = folder.hostPath("mac.img");
    if (!makeImage(tree, raw))
        return {};
    std::vector<std::pair<std::string, std::string>> images = {{"raw image", raw}};
    if (shell("split -n 3 -d -a 3 --numeric-suffixes=1 " + raw + " " + folder.hostPath("mac.")))
        images.emplace_back("split image", folder.hostPath("mac.001"));
    if (shell("ewfacquire -u -S 1048576 -c none -t " + folder.hostPath("mac") + " " + raw))
        images.emplace_back("E01", folder.hostPath("mac.E01"));
    return images;
}

TEST_F(SourcesTest, OneTreeHasTheSameFindingsHoweverItIsRead)
{
    std::size_t images = 0;
    for (unsigned seed = 1; seed <= 2; ++seed) {
        const TemporaryFolder tree;
        plantRandomTree(tree, seed);
        const Findings quick = findings({"--volume", tree.path()}, Depth::Quick);
        const Findings deep = findings({"--volume", tree.path()}, Depth::Deep);
        ASSERT_LT(quick.size(), deep.size());
        const auto expectTheSame = [&](const std::string& name, const std::string& option,
                                       const std::string& file) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", " + name);
            EXPECT_THAT(findings({option, file}, Depth::Quick), ElementsAreArray(quick))
                << last.err;
            EXPECT_THAT(findings({option, file}, Depth::Deep), ElementsAreArray(deep));
            EXPECT_EQ(last.code, 1);
        };
        for (const Format& format : kFormats)
            expectTheSame(format.name, "--listing", asList(listOf(tree.path(), format)));
        expectTheSame("written of the folder", "--listing",
                      asList(run({"listing", "--volume", tree.path()}).out));
        const TemporaryFolder files;
        for (const auto& [name, file] : imagesOf(tree.path(), files)) {
            ++images;
            expectTheSame(name, "--image", file);
            expectTheSame("written of the " + name, "--listing",
                          asList(run({"listing", "--image", file}).out));
        }
    }
    if (images < 6)
        GTEST_SKIP() << "xorriso or ewfacquire is missing: " << images << " images of 6";
}

TEST_F(SourcesTest, WhatAListCannotHoldOrWasNotReadIsNotTakenForAbsent)
{
    volume.file("/Users/alice/Library/a\nb");
    volume.file("/Users/alice/Documents/report (deleted)");
    volume.file("/Library/LaunchAgents/com.example.plist");
    const auto written = run({"listing", "--volume", volume.path()});
    EXPECT_THAT(written, remarks(1, "2 names left out"));
    EXPECT_THAT(written, says(1, "# not all read: /Users/alice/Library\n"));
    const auto scanned =
        run({"scan", "--deep", "--no-store", "--user", "alice", "--listing", asList(written.out)});
    EXPECT_THAT(scanned, says(3, "/Users/alice/Documents (not all its names are on the list)"));
    EXPECT_THAT(scanned.out, Not(HasSubstr("deleted, but")));
    EXPECT_THAT(run({"listing", "--volume", volume.hostPath("/none")}),
                refuses("cannot be read: no such file or directory"));

    // A list of a part of a disk is never clean.
    const std::string part = "/Users\n/Users/alice\n/Users/alice/Documents\n/Users/alice/x/y\n";
    const auto partly = run({"scan", "--no-store", "--user", "alice", "--listing", asList(part)});
    EXPECT_THAT(partly, says(3, "/Library/LaunchAgents"));
    EXPECT_THAT(partly.out, Not(HasSubstr("Clean: nothing found")));
}

TEST_F(SourcesTest, DeletedNamesAreShownButNeverCountedAsThere)
{
    const std::string lines =
        "0|/|2|d/d|0|0|0|0|0|0|0\n"
        "0|/Library|3|d/d|0|0|0|0|0|0|0\n"
        "0|/Users|4|d/d|0|0|0|0|0|0|0\n"
        "0|/Users/alice|5|d/d|0|0|0|0|0|0|0\n"
        "0|/Users/alice/Library/mdsa1331 (deleted)|6|r/r|0|0|9|0|0|0|0\n"
        "0|/Users/bob/Library/mdsa1331 (deleted)|7|r/r|0|0|9|0|0|0|0\n"
        "0|/Users/alice/x Keylogger|8|r/r|0|0|9|0|0|0|0\n"
        "0|/Users/alice/Aobo Keylogger Pro.pdf (deleted)|9|r/r|0|0|9|0|0|0|0\n"
        "broken\n";
    const std::vector<std::string> from{"--hash", "--user", "alice", "--listing", asList(lines)};
    const auto scan = [&](std::vector<std::string> command) {
        command.insert(command.end(), from.begin(), from.end());
        return run(command).out;
    };
    const auto report = nlohmann::json::parse(scan({"scan", "--no-store", "--format", "json"}));
    EXPECT_EQ(report["report"]["findings"], 0);
    EXPECT_NE(report["verdict"], "found");
    const auto& deleted = report["coverage"]["deleted"];
    ASSERT_EQ(deleted.size(), 1U) << deleted; // bob was not asked for, the other is deep
    EXPECT_EQ(deleted[0]["path"], "/Users/alice/Library/mdsa1331");
    EXPECT_EQ(deleted[0]["state"], "deleted");
    EXPECT_EQ(report["coverage"]["source"]["entries"], 8);
    EXPECT_EQ(report["coverage"]["source"]["notUnderstood"], 1);

    // Stored, the report still says all that, on every face.
    for (const std::string& face : {scan({"scan", "--deep"}), run({"report", "show", "latest"}).out,
                                    run({"report", "export", "latest", "--format", "html"}).out,
                                    run({"report", "export", "latest", "--format", "json"}).out}) {
        for (const std::string& part :
             {std::string("/Users/alice/Aobo Keylogger Pro.pdf"), std::string("broken"),
              std::string("/Users/alice/Library/mdsa1331"), std::string("bodyfile"),
              sha256Hex(lines)})
            EXPECT_THAT(face, HasSubstr(part));
    }
    EXPECT_THAT(run({"inventory", "--hash", "--volume", volume.path()}), refuses("--hash"));
}

TEST_F(SourcesTest, WhatChangesADiskIsRefusedBeforeAnythingIsAsked)
{
    terminal = true;
    input = "yes\n";
    const std::string list = asList("/Users/alice/x\n");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"remove", "latest", "--all", "--listing", list},
          {"remove", "latest", "--all", "--image", list},
          {"privacy", "clear", "--item", "Safari/History", "--listing", list}})
        EXPECT_THAT(run(command),
                    refuses("nothing can be removed from a list of names or an image"));
}

TEST_F(SourcesTest, InventoryAndPrivacyListWorkOnAList)
{
    volume.file("/Users/alice/Library/LaunchAgents/com.example.plist");
    volume.file("/Users/alice/Library/Logs/x.log", std::string(1000, 'x'));
    const std::string list = asList(listOf(volume.path(), kBodyfile));
    const auto inventory = run({"inventory", "--user", "alice", "--listing", list});
    EXPECT_THAT(inventory, remarks(0, "a list of names holds no contents"));
    EXPECT_THAT(inventory, says(0, "com.example.plist"));
    EXPECT_THAT(run({"privacy", "list", "--user", "alice", "--listing", list}), says(0, "1.0 KB"));
}

} // namespace

} // namespace pryvane::test
