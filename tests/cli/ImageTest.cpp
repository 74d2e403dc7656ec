#include "cli/CliFixture.h"
#include "volume/image/ImageDisk.h"
#include "volume/image/ImageFrames.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace pryvane::test {

namespace {

using testing::HasSubstr;

class ImageTest : public CliFixture {
protected:
    ImageTest() { images.file("mac.img"); }

    TemporaryFolder images;
    const std::string image = images.hostPath("mac.img");
};

/// A frame as a reader sends it.
std::string frame(frames::Kind kind, const frames::Writer& body = {})
{
    frames::Writer head;
    head.number(static_cast<std::uint32_t>(body.bytes().size()));
    head.number(static_cast<std::uint8_t>(kind));
    return head.bytes() + body.bytes();
}

/// One volume, which is the one chosen.
std::string beginning()
{
    frames::Writer volume, chosen;
    volume.number(std::uint32_t{0});
    volume.number(std::uint32_t{0});
    volume.number(std::uint16_t{0});
    volume.number(std::uint8_t{0});
    volume.text("HFS+");
    volume.text("");
    chosen.number(std::uint32_t{0});
    chosen.number(std::uint8_t{1});
    return frame(frames::Kind::Volume, volume) + frame(frames::Kind::Chosen, chosen);
}

/// One record of names.
std::string named(frames::Step step, std::string_view name)
{
    frames::Writer body;
    body.number(static_cast<std::uint8_t>(step));
    body.text(name);
    if (step == frames::Step::File) {
        body.number(std::int64_t{0});
        body.number(std::int64_t{0});
    }
    return frame(frames::Kind::Entries, body);
}

TEST_F(ImageTest, AReaderThatMisbehavesIsAnErrorInWords)
{
    const std::string chosenOfNone = frame(frames::Kind::Chosen);
    const std::string file = named(frames::Step::File, "x");
    const struct {
        std::string does;
        const char* says;
        std::string first = {}, again = {}; ///< what "first" and "again" hold
    } rows[] = {
        {"exit 0", "ended before it was done"},
        {"kill -9 $$", "ended by signal 9"},
        {"cat first; kill -9 $$", "ended by signal 9", beginning() + file},
        {"head -c 100000 /dev/zero | tr '\\0' x", "cannot be understood"},
        {"cat first; sleep 9", "cannot be understood", frame(frames::Kind::Done)},
        {"cat first; sleep 9", "cannot be understood", chosenOfNone},
        {"cat first; sleep 9", "cannot be understood",
         beginning() + named(frames::Step::File, "..")},
        {"cat first; sleep 9", "cannot be understood",
         beginning() + named(frames::Step::File, "a/b")},
        {"cat first; sleep 9", "says nothing any more", beginning() + file.substr(0, 7)},
        {"sleep 60", "says nothing any more"},
        // Forever: nothing new, names without end, folders that cannot be read, and now and then.
        {"cat first; while :; do cat again; done", "cannot be understood", beginning(),
         frame(frames::Kind::Entries)},
        {"cat first; while :; do cat again; done", "more names than any disk", beginning(), file},
        {"cat first; while :; do cat again; done", "cannot be understood", beginning(),
         named(frames::Step::Refused, "x")},
        {"cat first; while :; do cat again; sleep 0.3; done", "comes to no end", beginning(), file},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.does + ": " + row.says);
        images.file("first", row.first);
        images.file("again", row.again);
        images.file("reader", "#!/bin/sh\ncd " + images.path() + "\n" + row.does + "\n");
        chmod(images.hostPath("reader").c_str(), 0700);
        ImageOptions options;
        options.program = images.hostPath("reader");
        options.patience = std::chrono::milliseconds(1500);
        options.longest = std::chrono::seconds(4);
        options.mostEntries = 30;
        ImageProgress progress;
        const auto disk = openImage(image, options, StopFlag(), progress);
        ASSERT_FALSE(disk.ok());
        EXPECT_THAT(disk.error().message, HasSubstr(row.says));
    }
    // Once open, what it says of a file's content is bounded as well.
    std::string content = frame(frames::Kind::Done) + frame(frames::Kind::Bytes);
    images.file("first", beginning() + file + content);
    images.file("reader", "#!/bin/sh\ncat " + images.hostPath("first") + "; sleep 9\n");
    ImageOptions options;
    options.program = images.hostPath("reader");
    ImageProgress progress;
    const auto disk = openImage(image, options, StopFlag(), progress);
    ASSERT_TRUE(disk.ok()) << disk.error().message;
    const auto read = (*disk)->readSmallFile(FileURL::fileURLWithPath("/x"), 100);
    ASSERT_FALSE(read.ok());
    EXPECT_THAT(read.error().message, HasSubstr("cannot be understood"));
}

} // namespace

} // namespace pryvane::test
