#include "removal/disk/JournalScene.h"
#include "removal/disk/VolumeRemover.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace pryvane::test {

namespace {

namespace fs = std::filesystem;

void add(const std::string& path, std::string_view content)
{
    std::ofstream(path, std::ios::binary | std::ios::app) << content;
}

/// Lets no file of this process grow any further than that.
void limitFiles(rlim_t bytes)
{
    static_cast<void>(signal(SIGXFSZ, SIG_IGN));
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

RemovalResult resultOf(RemovalOutcome outcome, RemovalObstacle obstacle = RemovalObstacle::None)
{
    RemovalResult result;
    result.outcome = outcome;
    result.obstacle = obstacle;
    result.detail = obstacle == RemovalObstacle::None ? "" : "the \x1b system\n";
    result.entriesRemoved = 3;
    result.bytesRemoved = 4096;
    return result;
}

class RemovalJournalTest : public testing::Test {
protected:
    std::unique_ptr<RemovalJournalFile> opened()
    {
        auto journal = RemovalJournalFile::open(scene.data.path(), *scene.disk, scene.clock);
        EXPECT_TRUE(journal.ok()) << (journal ? "" : journal.error().message);
        return std::move(journal).value();
    }
    /// Begins all items and tells each as removed, which they then are.
    void removeAll()
    {
        const auto journal = opened();
        ASSERT_TRUE(journal->begin(scene.items()));
        for (std::size_t i = 0; i < scene.items().size(); ++i)
            journal->ended(i, resultOf(RemovalOutcome::Removed));
        ASSERT_TRUE(journal->flush());
    }
    void emptyVolume() const
    {
        for (const char* path : {"/a", "/b", "/c/cache/5", "/c/cache/deep"})
            fs::remove_all(scene.volume.hostPath(path));
    }
    JournalScene scene;
};

TEST_F(RemovalJournalTest, KeepsEachOutcomeWithTheBytesOfItsName)
{
    const auto journal = opened();
    ASSERT_TRUE(journal->begin(scene.items()));
    journal->ended(0, resultOf(RemovalOutcome::Removed));
    journal->ended(2, resultOf(RemovalOutcome::Failed, RemovalObstacle::Locked));
    ASSERT_TRUE(journal->flush());

    const auto records = scene.records();
    ASSERT_EQ(records.size(), scene.items().size() + 2);
    EXPECT_EQ(records[1].entries, 7U) << "the intention tells what was there";
    const RemovalRecord& failed = records.back();
    EXPECT_EQ(failed.url.relativePath(), "/b/\xff\n\"name");
    EXPECT_EQ(failed.volume, scene.disk->identity());
    EXPECT_EQ(failed.outcome, "failed");
    EXPECT_LT(scene.clock.now() - failed.time, std::chrono::minutes(1));
    EXPECT_NE(failed.reason.find("system"), std::string::npos);
    EXPECT_EQ(failed.bytes, 4096);

    std::istringstream lines(contentOf(scene.journal()));
    for (std::string line; std::getline(lines, line);) {
        const auto object = nlohmann::json::parse(line);
        EXPECT_EQ(object["path"].get<std::string>().find('\n'), std::string::npos);
        EXPECT_EQ(line.find('\x1b'), std::string::npos);
    }
    EXPECT_EQ(fs::status(scene.journal()).permissions(), fs::perms(0600));
}

TEST_F(RemovalJournalTest, KnowsTheDisksFromWhichFindingsWereRemoved)
{
    const TemporaryFolder other;
    const auto otherDisk = volumeAt(other, NameMatching::AsOnMac);
    RemovalJournalFile elsewhere(scene.data.path(), *otherDisk, scene.clock);
    const auto journal = opened();
    EXPECT_FALSE(journal->tellsOfEarlier());
    const auto ended = [&](RemovalOutcome outcome, const std::string& purpose) {
        RemovalItem item = scene.items().front();
        item.purpose = purpose;
        EXPECT_TRUE(journal->begin(std::span(&item, 1)));
        journal->ended(0, resultOf(outcome));
        EXPECT_TRUE(journal->flush());
        return journal->tellsOfEarlier();
    };
    EXPECT_FALSE(ended(RemovalOutcome::Removed, "Safari Cookies")) << "no finding";
    EXPECT_FALSE(ended(RemovalOutcome::Failed, ""));
    EXPECT_TRUE(ended(RemovalOutcome::Removed, ""));
    EXPECT_FALSE(elsewhere.tellsOfEarlier()) << "of another disk";

    const std::size_t before = scene.records().size();
    ASSERT_TRUE(journal->conclude({2, 1, 40}));
    EXPECT_EQ(scene.records().size(), before) << "it is about none by itself";
    const std::string content = contentOf(scene.journal());
    auto line = nlohmann::json::parse(content.substr(content.rfind('\n', content.size() - 2)));
    line.erase("time");
    EXPECT_EQ(line, (nlohmann::json{{"event", "summary"},
                                    {"volume", scene.disk->identity()},
                                    {"removed", 2},
                                    {"failed", 1},
                                    {"left", 40}}));
}

TEST_F(RemovalJournalTest, TellsFromTheDiskWhatBecameOfAnInterruptedRemoval)
{
    std::vector<RemovalItem> items = scene.items();
    items.push_back({at("/never/there"), std::nullopt, RemovalScope::Item});
    const TemporaryFolder other;
    const auto otherDisk = volumeAt(other, NameMatching::AsOnMac);
    {
        RemovalJournalFile elsewhere(scene.data.path(), *otherDisk, scene.clock);
        ASSERT_TRUE(elsewhere.begin(items));
    }
    ASSERT_TRUE(opened()->begin(items)); // and then the power goes
    for (const char* path : {"/a/file", "/a/folder/x/4", "/c/cache/5", "/c/cache/deep"})
        fs::remove_all(scene.volume.hostPath(path));

    const std::size_t before = scene.records().size();
    opened();
    const auto records = scene.records();
    ASSERT_EQ(records.size(), before + items.size());
    std::map<std::string, std::string> told;
    for (std::size_t i = before; i < records.size(); ++i) {
        told[records[i].url.relativePath()] = records[i].reason;
        EXPECT_EQ(records[i].volume, scene.disk->identity());
    }
    EXPECT_EQ(told, (std::map<std::string, std::string>{
                        {"/a/file", "interrupted; it is gone"},
                        {"/a/folder", "interrupted; it is partly removed: 6 of 7 entries are left"},
                        {"/a/link", "interrupted; it is untouched"},
                        {"/b/empty", "interrupted; it is untouched"},
                        {"/b/\xff\n\"name", "interrupted; it is untouched"},
                        {"/c/cache", "interrupted; it is gone"},
                        {"/never/there", "interrupted; nothing was there"}}));
    opened();
    EXPECT_EQ(scene.records().size(), records.size()) << "told once";
    ASSERT_TRUE(RemovalJournalFile::open(scene.data.path(), *otherDisk, scene.clock));
    EXPECT_EQ(scene.records().size(), records.size() + items.size())
        << "the other volume came back";
}

/// A power cut may take any part of what was not yet put on the device.
TEST_F(RemovalJournalTest, APowerCutLeavesAJournalThatAgreesWithTheDisk)
{
    std::size_t synced = 0;
    {
        const auto journal = opened();
        ASSERT_TRUE(journal->begin(scene.items()));
        synced = contentOf(scene.journal()).size();
        for (std::size_t i = 0; i < scene.items().size(); ++i)
            journal->ended(i, resultOf(RemovalOutcome::Removed));
    }
    const std::string whole = contentOf(scene.journal());
    // Under a sanitizer, which is when fewer kills are asked for, not every byte.
    const std::size_t stride = std::getenv("PRYVANE_TEST_KILLS") ? 17 : 1;
    const auto cutAt = [&](std::size_t size) {
        fs::resize_file(scene.journal(), 0);
        // Some file systems leave zeros where data was not yet written.
        add(scene.journal(), whole.substr(0, size) + std::string(size % 3, '\0'));
        const std::string wrong = scene.disagreement();
        EXPECT_EQ(wrong, "") << "cut at " << size << " of " << whole.size();
        return wrong.empty();
    };
    for (std::size_t size = 0; size < synced; size += stride) // nothing was removed yet
        ASSERT_TRUE(cutAt(size));
    emptyVolume();
    for (std::size_t size = synced; size <= whole.size(); size += stride)
        ASSERT_TRUE(cutAt(size));
}

/// A path may be far longer than a line of the journal.
TEST_F(RemovalJournalTest, AnEndlessPathKeepsNoOtherFromBeingRemoved)
{
    constexpr int kLevels = 1150;
    const std::string name(255, '\xff');
    std::string path = "/deep";
    scene.volume.folder(path);
    growChain(openedFolder(scene.volume, path).get(), name, kLevels);
    for (int level = 0; level < kLevels; ++level)
        path += "/" + name;
    std::vector<RemovalItem> items = {{test::at(path), std::nullopt}};
    for (int i = 0; i < 63; ++i) {
        items.push_back({test::at("/many/" + std::to_string(i)), std::nullopt});
        scene.volume.file(items.back().url.relativePath());
    }
    ASSERT_TRUE(opened()->begin(items)) << "and then the power goes";
    const auto journal = opened();
    const auto interrupted = scene.records();
    ASSERT_EQ(interrupted.size(), 2 * items.size());
    EXPECT_EQ(
        std::ranges::count(interrupted, "interrupted; it is untouched", &RemovalRecord::reason),
        63);

    VolumeRemover remover(*scene.disk, *journal, {});
    for (const std::string& words : inWords(removed(remover, items)))
        EXPECT_TRUE(words.starts_with("removed ") && words.find(';') == words.npos) << words;
    EXPECT_LT(fs::file_size(scene.journal()), 200'000U);
    EXPECT_EQ(std::ranges::count(scene.records(), journalKey(items[0].url), &RemovalRecord::key), 4)
        << "begun, interrupted, begun, removed";
    EXPECT_NE(contentOf(scene.journal()).find("\"pathBytes\":294405"), std::string::npos);
}

TEST_F(RemovalJournalTest, AnotherProgramsTornLineHidesNone)
{
    const auto journal = opened();
    add(scene.journal(), R"({"event":"outcome","time":)");
    ASSERT_TRUE(journal->begin(scene.items()));
    EXPECT_EQ(scene.records().size(), scene.items().size());
}

TEST_F(RemovalJournalTest, AFailingWriteIsToldAndLeavesWholeLines)
{
    removeAll();
    const auto lines = scene.records().size();
    const auto size = static_cast<rlim_t>(fs::file_size(scene.journal()));
    int refused = 0;
    for (rlim_t room = 0; room < 4000; room += 97) {
        const std::string answer = inChild([&]() -> std::string {
            RemovalJournalFile journal(scene.data.path(), *scene.disk, scene.clock);
            limitFiles(size + room);
            const auto begun = journal.begin(scene.items());
            return begun ? "" : begun.error().message;
        });
        if (answer.empty())
            break;
        ++refused;
        EXPECT_NE(answer.find("journal of removals cannot be written"), std::string::npos)
            << answer;
        EXPECT_EQ(fs::file_size(scene.journal()), size) << "with room for " << room;
    }
    EXPECT_GT(refused, 5);
    EXPECT_GE(scene.records().size(), lines + scene.items().size()) << "there was room at last";
}

TEST_F(RemovalJournalTest, OutcomesThatFoundNoRoomAreWrittenLater)
{
    EXPECT_EQ(inChild([&]() -> std::string {
                  RemovalJournalFile journal(scene.data.path(), *scene.disk, scene.clock);
                  if (!journal.begin(scene.items()))
                      return "cannot begin";
                  limitFiles(fs::file_size(scene.journal()) + 100);
                  for (std::size_t i = 0; i < scene.items().size(); ++i)
                      journal.ended(i, resultOf(RemovalOutcome::Removed));
                  const bool told = !journal.flush();
                  limitFiles(RLIM_INFINITY);
                  return told && journal.flush() ? "" : "not told, or not written later";
              }),
              "");
    emptyVolume();
    EXPECT_EQ(scene.disagreement(), "");
    EXPECT_EQ(scene.records().back().outcome, "removed");
}

TEST_F(RemovalJournalTest, ReadsPastAnyDamageInLittleMemory)
{
    removeAll();
    const auto sound = scene.records().size();
    const std::string whole = contentOf(scene.journal());
    add(scene.journal(), std::string(1'000'000, '[') + "\n{}\n\xff\xfe\n{\"event\":\"outcome\"}\n" +
                             R"({"event":"intent","id":7,"url":[],"entries":-1e99})"
                             "\n");
    fs::resize_file(scene.journal(), 100'000'000); // one endless line
    add(scene.journal(), "\n" + whole);
    const std::string answer = inChild([&]() -> std::string {
        rusage before{}, after{};
        getrusage(RUSAGE_SELF, &before);
        const auto count = scene.records().size();
        getrusage(RUSAGE_SELF, &after);
        return std::to_string(count) +
               (after.ru_maxrss - before.ru_maxrss < 65'536 ? "" : " with too much memory");
    });
    EXPECT_EQ(answer, std::to_string(2 * sound));
}

TEST_F(RemovalJournalTest, ALargeOneIsSetAsideAndThreeAreKept)
{
    const auto elder = opened(); // holds each file until it notices
    std::size_t perRound = 2 * scene.items().size();
    for (int round = 0; round < 6; ++round) {
        removeAll();
        fs::resize_file(scene.journal(), 9'000'000);
        usleep(2000); // the names go by the millisecond
    }
    ASSERT_TRUE(elder->begin(scene.items()));
    EXPECT_LT(fs::file_size(scene.journal()), 100'000U);
    const auto files =
        std::distance(fs::directory_iterator(scene.data.path()), fs::directory_iterator());
    EXPECT_EQ(files, 4);
    EXPECT_EQ(scene.records().size(), 3 * perRound + scene.items().size());
}

TEST_F(RemovalJournalTest, ASecondWriterWaitsForTheFirst)
{
    const auto first = opened(), second = opened();
    ASSERT_TRUE(first->begin(scene.items()));
    std::thread ending([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        for (std::size_t i = 0; i < scene.items().size(); ++i)
            first->ended(i, resultOf(RemovalOutcome::Removed));
        EXPECT_TRUE(first->flush());
    });
    EXPECT_TRUE(second->begin(scene.items()));
    ending.join();
    const auto records = scene.records();
    const std::size_t count = scene.items().size();
    ASSERT_EQ(records.size(), 3 * count);
    EXPECT_EQ(records[2 * count - 1].outcome, "removed");
    EXPECT_EQ(records[2 * count].outcome, "begun");
}

TEST_F(RemovalJournalTest, WritesThroughNoLinkAndToNothingButAFile)
{
    scene.data.file("target", "");
    scene.data.link("Removals.jsonl", "target");
    EXPECT_FALSE(RemovalJournalFile::open(scene.data.path(), *scene.disk, scene.clock).ok());
    EXPECT_EQ(contentOf(scene.data.hostPath("target")), "");
    fs::remove(scene.journal());
    ASSERT_EQ(mkfifo(scene.journal().c_str(), 0600), 0);
    const auto opened = RemovalJournalFile::open(scene.data.path(), *scene.disk, scene.clock);
    ASSERT_FALSE(opened.ok());
    EXPECT_NE(opened.error().message.find("not a regular file"), std::string::npos);
}

} // namespace

} // namespace pryvane::test
