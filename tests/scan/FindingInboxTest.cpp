#include "scan/FindingInbox.h"

#include "removal/session/RecordRemoval.h"
#include "scan/EngineFixture.h"

#include <gmock/gmock.h>

#include <thread>

namespace pryvane {
namespace {

class FindingInboxTest : public test::EngineFixture {
protected:
    void add(std::string_view path, std::string_view type = "Family", std::int64_t size = 7)
    {
        const auto url = FileURL::fileURLWithPath(path);
        inbox.addIfAvail(url, url.lastPathComponent(), type, kHighRisk, size);
    }
    std::vector<std::string> listed() const { return pathsOf(state.arrSpywareList.records()); }
    int updates = 0;
    NotificationCenter::Observation observation = notifications.observe(
        NotificationName::UpdateThreat, [this](const Notification&) { ++updates; });
    FindingInbox inbox{services(), state, [] {}};
};

TEST_F(FindingInboxTest, ListsOneRecordForOneExistingLocation)
{
    volume.file("/tmp/.mdworker");
    volume.folder("/Users/alice/Library/.A_o_b_o");
    add("/tmp/.mdworker", "Revir", 12);
    add("/tmp/missing");
    add("tmp/.mdworker");
    add("/Users/alice/Library/.A_o_b_o/");
    add("/Users/alice/Library/.A_o_b_o");
    mainQueue.drain();

    EXPECT_EQ(listed(),
              (std::vector<std::string>{"/tmp/.mdworker", "/Users/alice/Library/.A_o_b_o/"}));
    const Spyware& record = *state.arrSpywareList.records().front();
    EXPECT_EQ(std::tuple(record.name(), record.infections, record.risk),
              std::tuple(".mdworker", "Revir", "High Risk"));
    EXPECT_EQ(record.size, 12);
    EXPECT_TRUE(record.isAvail() && record.isChecked && !record.isDeleted && !record.isNoAction);
    EXPECT_EQ(record.seen, disk->sighting(record.url));
    EXPECT_EQ(record.kind, FileKind::RegularFile);
    EXPECT_EQ(state.arrSpywareList.records().back()->kind, FileKind::Folder);
    EXPECT_EQ(updates, 2);
    EXPECT_EQ(userNotifier.delivered,
              (std::vector<std::string>{"Pryvane: Spyware Found: .mdworker",
                                        "Pryvane: Spyware Found: .A_o_b_o"}));
}

TEST_F(FindingInboxTest, TheTimesAreThoseThatTheWalkSawOrElseTheDisks)
{
    volume.file("/Users/alice/one");
    volume.file("/Users/alice/two");
    const FileTimes seen{{}, DiskMoment::of(1), {}};
    for (const char* path : {"/Users/alice/one", "/Users/alice/two"}) {
        const FileURL url = FileURL::fileURLWithPath(path);
        inbox.addSeen(url, "name", "Type", "High Risk", 0,
                      {*disk->sighting(url),
                       url.relativePath().ends_with("one") ? std::optional(seen) : std::nullopt});
    }
    mainQueue.drain();
    const auto& records = state.arrSpywareList.records();
    EXPECT_EQ(records.front()->times, seen);
    EXPECT_EQ(records.back()->times, disk->times(records.back()->url));
    EXPECT_TRUE(records.back()->times.modified);
}

TEST_F(FindingInboxTest, ApplicationsAreHeldBackUnlessTheyPoseAsTheMakers)
{
    const std::string posing = "/Applications/Tidewell Quillmark Helper.app";
    for (const char* path : {"/Applications/Codec-M.app", "/Applications/Codec.App"})
        volume.folder(path);
    volume.folder(posing);
    workspace.applications = {
        {"Tidewell", FileURL::fileURLWithPath("/Applications/Tidewell.app")},
        {"Quillmark", FileURL::fileURLWithPath("/Applications/Quillmark.app")}};
    workspace.bundleIdentifiers = {{"/Applications/Tidewell.app", "com.someone.tidewell"},
                                   {"/Applications/Quillmark.app", "com.torvell.quillmark"}};
    add("/Applications/Codec-M.app");
    add("/Applications/Codec-M.app/");
    add("/Applications/Codec.App");
    add(posing);
    mainQueue.drain();

    // Both keys stand in the path and lead to the first product, whose identifier is not the
    // maker's.
    EXPECT_EQ(listed(), (std::vector<std::string>{"/Applications/Codec.App", posing, posing}));
    EXPECT_EQ(inbox.heldBack(), std::vector<std::string>{"/Applications/Codec-M.app"});
    EXPECT_EQ(updates, 4) << "what is held back is told, too";
}

TEST_F(FindingInboxTest, BundlesAreReadOnceAndNeverByTheMainThread)
{
    workspace.applications = {{"Tidewell", FileURL::fileURLWithPath("/Applications/Tidewell.app")}};
    const auto scan = [this](int first) {
        std::thread([&] {
            for (int i = first; i < first + 20; ++i) {
                const std::string path = "/Library/Tidewell " + std::to_string(i) + ".app";
                volume.folder(path);
                add(path);
            }
        }).join();
        mainQueue.drain();
    };
    scan(0);
    EXPECT_EQ(listed().size(), 20U);
    ASSERT_EQ(workspace.bundleReaders.size(), 1U);
    EXPECT_NE(workspace.bundleReaders.front(), std::this_thread::get_id());

    inbox.clear(); // as the next scan starts
    scan(20);
    EXPECT_EQ(workspace.bundleReaders.size(), 2U);
    inbox.clear();
    state.isScanStop.request();
    scan(40);
    EXPECT_EQ(workspace.bundleReaders.size(), 2U);
    EXPECT_EQ(listed().size(), 40U);
    EXPECT_THAT(inbox.heldBack(), testing::IsEmpty());
}

TEST_F(FindingInboxTest, AFloodFromTwoThreadsArrivesWholeAndBeforeTheEnd)
{
    constexpr int kEach = 3000;
    for (int i = 0; i < 2 * kEach; ++i)
        volume.file("/flood/" + std::to_string(i));
    const auto flood = [this](int first) {
        for (int i = first; i < first + kEach; ++i)
            add("/flood/" + std::to_string(i));
    };
    std::thread one([&] { flood(0); }), two([&] { flood(kEach); });
    one.join();
    two.join();
    std::size_t atEnd = 0;
    inbox.whenEmpty([&] { atEnd = state.arrSpywareList.records().size(); });
    EXPECT_TRUE(mainQueue.runUntil([&] { return atEnd > 0; }));
    EXPECT_EQ(atEnd, 2U * kEach);
    EXPECT_EQ(userNotifier.delivered.size(), 3U);
    EXPECT_LT(userNotifier.updated.size(), 50U);
}

} // namespace
} // namespace pryvane
