#pragma once

#include "hosts/posix/SystemClock.h"
#include "platform/Removal.h"
#include "removal/disk/RemovalJournalFile.h"
#include "support/RemovalFixtures.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace pryvane::test {

/// A volume with things to remove and a data folder with the journal of it.
class JournalScene {
public:
    JournalScene() : disk(volumeAt(volume, NameMatching::AsOnMac))
    {
        for (const char* path : {"/a/file", "/a/folder", "/b/\xff\n\"name", "/a/link", "/b/empty"})
            m_items.push_back({at(path), Sighting{}, RemovalScope::Item});
        m_items.push_back({at("/c/cache"), Sighting{}, RemovalScope::ContentsOf});
        setUp();
    }

    /// Puts the items there, whole, and forgets the journal.
    void setUp()
    {
        for (const char* path :
             {"/a/file", "/a/folder/1", "/a/folder/2", "/a/folder/x/y/3", "/a/folder/x/4",
              "/b/\xff\n\"name", "/b/empty/", "/c/cache/5", "/c/cache/deep/6"})
            volume.plant(path);
        if (!volume.contains("/a/link"))
            volume.link("/a/link", "file");
        for (const auto& entry : std::filesystem::directory_iterator(data.path()))
            std::filesystem::remove(entry);
        m_whole.clear();
        for (RemovalItem& item : m_items) {
            item.seen = disk->sighting(item.url);
            m_whole.push_back(entriesOf(item));
        }
    }

    [[nodiscard]] const std::vector<RemovalItem>& items() const { return m_items; }
    [[nodiscard]] std::string journal() const { return removalJournalPath(data.path()); }
    [[nodiscard]] std::vector<RemovalRecord> records() const
    {
        std::vector<RemovalRecord> records;
        readRemovalJournal(data.path(),
                           [&](const RemovalRecord& record) { records.push_back(record); });
        return records;
    }

    /// What an opened journal and the disk do not agree on; empty when all is right.
    [[nodiscard]] std::string disagreement() const
    {
        std::string wrong;
        const auto opened = RemovalJournalFile::open(data.path(), *disk, clock);
        if (!opened)
            return opened.error().message;
        const auto all = records();
        for (std::size_t i = 0; i < m_items.size(); ++i) {
            const std::uint64_t left = entriesOf(m_items[i]);
            std::vector<RemovalRecord> told;
            std::ranges::copy_if(all, std::back_inserter(told), [&](const RemovalRecord& record) {
                return record.url == m_items[i].url;
            });
            const std::string name = "item " + std::to_string(i) + " ";
            if (told.empty()) {
                if (left != m_whole[i])
                    wrong += name + "went without an intention\n";
                continue;
            }
            const RemovalRecord& last = told.back();
            if (told.size() != 2 || told.front().outcome != "begun" || last.outcome == "begun") {
                wrong += name + "has " + std::to_string(told.size()) + " lines\n";
            } else if (last.outcome == "removed" && left > 0) {
                wrong += name + "is told as removed and is still there\n";
            } else if (last.outcome == "interrupted") {
                const char* expected = left == 0            ? "it is gone"
                                       : left == m_whole[i] ? "it is untouched"
                                                            : "partly removed";
                if (last.reason.find(expected) == std::string::npos)
                    wrong += name + "told: " + last.reason + ", not: " + expected + "\n";
            } else if (last.outcome != "removed") {
                wrong += name + last.outcome + ": " + last.reason + "\n";
            }
        }
        return wrong;
    }

    InMemory inMemory;
    TemporaryFolder data, volume;
    std::unique_ptr<VolumeFileSystem> disk;
    mutable SystemClock clock;

private:
    [[nodiscard]] std::uint64_t entriesOf(const RemovalItem& item) const
    {
        namespace fs = std::filesystem;
        const fs::path path = volume.hostPath(item.url.relativePath());
        if (!fs::exists(fs::symlink_status(path)))
            return 0;
        std::uint64_t count = item.scope == RemovalScope::Item ? 1 : 0;
        if (fs::is_directory(fs::symlink_status(path)))
            count += static_cast<std::uint64_t>(std::distance(
                fs::recursive_directory_iterator(path), fs::recursive_directory_iterator()));
        return count;
    }

    std::vector<RemovalItem> m_items;
    std::vector<std::uint64_t> m_whole; ///< entries of each item before anything was removed
};

} // namespace pryvane::test
