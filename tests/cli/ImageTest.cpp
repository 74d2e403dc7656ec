#include "cli/CliFixture.h"
#include "core/Sha256.h"
#include "volume/image/ImageDisk.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <random>
#include <sys/stat.h>

namespace pryvane::test {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

#define REQUIRE_TOOL(tool)                                                                         \
    if (std::system("command -v " tool " >/dev/null") != 0)                                        \
    GTEST_SKIP() << tool " is missing"

/// A small Mac's disk as an HFS+ image.
class ImageTest : public CliFixture {
protected:
    void SetUp() override
    {
        REQUIRE_TOOL("xorriso");
        volume.file("/Library/LaunchAgents/com.refog.agent.plist", "<plist/>");
        volume.file("/Users/alice/Documents/Aobo Keylogger Pro.pdf");
        volume.file("/Users/alice/Library/mdsa1331", std::string(700, 'x'));
        volume.file("/private/tmp/.mdworker");
        volume.link("/tmp", "private/tmp");
        volume.file("/Applications/Firefox.app/Contents/Info.plist");
        volume.file("/Users/alice/Documents/caf\xc3\xa9");
        image = images.hostPath("mac.img");
        ASSERT_EQ(shell("xorriso -as mkisofs -quiet -hfsplus -o " + image + " " + volume.path()),
                  0);
    }

    static int shell(const std::string& command)
    {
        return std::system((command + " >/dev/null 2>&1").c_str());
    }

    /// The families and locations of a quick scan, one a line.
    std::string findings(std::vector<std::string> source)
    {
        source.insert(source.begin(),
                      {"scan", "--user", "alice", "--no-store", "--format", "json"});
        last = run(std::move(source));
        std::string found;
        if (last.out.empty())
            return found;
        const auto report = nlohmann::json::parse(last.out);
        for (const auto& record : report["report"]["spyWareList"])
            found += record["infections"].get<std::string>() + " " +
                     record["url"].get<std::string>() + "\n";
        return found;
    }

    TemporaryFolder images;
    std::string image;
    Outcome last{};
};

TEST_F(ImageTest, HasTheFindingsOfTheFolderItWasMadeOfAndIsNotChanged)
{
    const std::string expected = findings({"--volume", volume.path()});
    const std::string bytes = contentOf(image);
    const std::string before = sha256Hex(bytes);
    EXPECT_THAT(expected, HasSubstr("/tmp/.mdworker"));
    EXPECT_EQ(findings({"--image", image}), expected) << last.err;
    EXPECT_EQ(last.code, 1);
    EXPECT_EQ(sha256Hex(contentOf(image)), before);

    // In three pieces.
    const std::size_t third = bytes.size() / 3 + 1;
    for (std::size_t i = 0; i < 3; ++i)
        images.file("split.00" + std::to_string(i + 1), bytes.substr(i * third, third));
    EXPECT_EQ(findings({"--image", images.hostPath("split.001")}), expected) << last.err;

    // By way of a list of its names.
    const auto list = run({"listing", "--image", image});
    EXPECT_EQ(list.code, 0) << list.err;
    images.file("list", list.out);
    EXPECT_EQ(findings({"--listing", images.hostPath("list")}), expected) << last.err;

    const auto parts = run({"listing", "--image", image, "--list"});
    EXPECT_THAT(parts.out, HasSubstr("Apple_HFS"));
    EXPECT_THAT(parts.out, HasSubstr("HFS+"));
}

TEST_F(ImageTest, ExpertWitnessFilesAreReadByTheirFirst)
{
    REQUIRE_TOOL("ewfacquire");
    ASSERT_EQ(shell("ewfacquire -u -S 1048576 -c none -t " + images.hostPath("mac") + " " + image),
              0);
    EXPECT_EQ(findings({"--image", images.hostPath("mac.E01")}),
              findings({"--volume", volume.path()}))
        << last.err;
}

TEST_F(ImageTest, DeepScanInventoryAndPrivacyReadIt)
{
    const auto deep = run({"scan", "--deep", "--user", "alice", "--no-store", "--image", image});
    EXPECT_THAT(deep.out, HasSubstr("/Users/alice/Documents/Aobo Keylogger Pro.pdf"));
    const auto inventory = run({"inventory", "--kind", "applications", "--image", image});
    EXPECT_THAT(inventory.out, HasSubstr("/Applications/Firefox.app"));
    EXPECT_EQ(run({"privacy", "list", "--user", "alice", "--image", image}).code, 0);
    const auto remove = run({"remove", "latest", "--all", "--yes", "--image", image});
    EXPECT_EQ(remove.code, 2);
    EXPECT_THAT(remove.err, HasSubstr("or an image"));
}

TEST_F(ImageTest, DamagedImagesEndInASentence)
{
    const std::string bytes = contentOf(image);
    std::mt19937 random(7);
    for (int i = 0; i < 60; ++i) {
        std::string damaged = bytes;
        if (i % 3 == 0) {
            damaged.resize(random() % bytes.size());
        } else {
            // Mostly where the catalogue's bytes are.
            for (int hits = 0; hits < 40; ++hits)
                damaged[random() % (i % 3 == 1 ? bytes.size() : bytes.size() / 20)] =
                    static_cast<char>(random());
        }
        images.file("damaged.img", damaged);
        const auto outcome = run(
            {"scan", "--user", "alice", "--no-store", "--image", images.hostPath("damaged.img")});
        EXPECT_THAT(outcome.code, testing::AnyOf(1, 2, 3, 0)) << i;
        if (outcome.code == 2) {
            EXPECT_THAT(outcome.err, HasSubstr("cannot be read: "));
        }
        EXPECT_THAT(outcome.out, Not(HasSubstr("Clean: nothing found"))) << i;
    }
}

TEST_F(ImageTest, AReaderThatMisbehavesIsAnErrorInWords)
{
    const struct {
        const char* does;
        const char* says;
    } rows[] = {
        {"exit 0", "ended before it was done"},
        {"kill -9 $$", "ended"},
        {"head -c 100000 /dev/zero | tr '\\0' x", "cannot be understood"},
        {"printf '\\000\\000\\000\\000D'; sleep 9", "cannot be understood"},
        {"printf '\\004\\000\\000\\000C\\000\\000\\000\\000'; sleep 9", "cannot be understood"},
        {"sleep 60", "says nothing any more"},
    };
    for (const auto& row : rows) {
        images.file("reader", std::string("#!/bin/sh\n") + row.does + "\n");
        chmod(images.hostPath("reader").c_str(), 0700);
        ImageOptions options;
        options.program = images.hostPath("reader");
        options.patience = std::chrono::milliseconds(1500);
        std::atomic<std::uint64_t> entries{0};
        const auto disk = openImage(image, options, StopFlag(), entries);
        ASSERT_FALSE(disk.ok()) << row.does;
        EXPECT_THAT(disk.error().message, HasSubstr(row.says)) << row.does;
    }
    const TemporaryFolder other;
    other.file("/photos/beach.jpg");
    const std::string noMac = images.hostPath("other.img");
    ASSERT_EQ(shell("xorriso -as mkisofs -quiet -hfsplus -o " + noMac + " " + other.path()), 0);
    const auto refused = run({"scan", "--no-store", "--image", noMac});
    EXPECT_EQ(refused.code, 2);
    EXPECT_THAT(refused.err, HasSubstr("no Mac"));
    EXPECT_THAT(refused.err, HasSubstr("listing --image FILE --list"));
    EXPECT_THAT(refused.err, Not(HasSubstr("mounted")));
    EXPECT_THAT(run({"listing", "--image", noMac}).out, HasSubstr("/photos/beach.jpg"));

    const auto none = run({"scan", "--image", images.hostPath("none.img")});
    EXPECT_EQ(none.code, 2);
    EXPECT_THAT(none.err, HasSubstr("none.img"));
}

} // namespace

} // namespace pryvane::test
