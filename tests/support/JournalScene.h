#pragma once

#include "hosts/posix/SystemClock.h"
#include "platform/Removal.h"
#include "removal/disk/RemovalJournalFile.h"
#include "support/RemovalFixtures.h"

#include <cstdint>
#include <string>
#include <vector>

namespace pryvane::test {

/// A volume with things to remove and a data folder with the journal of it.
class JournalScene {
public:
    JournalScene();

    /// Puts the items there, whole, and forgets the journal.
    void setUp();

    [[nodiscard]] const std::vector<RemovalItem>& items() const { return m_items; }
    [[nodiscard]] std::string journal() const { return removalJournalPath(data.path()); }
    [[nodiscard]] std::vector<RemovalRecord> records() const;

    /// What an opened journal and the disk do not agree on; empty when all is right.
    [[nodiscard]] std::string disagreement() const;

    InMemory inMemory;
    TemporaryFolder data, volume;
    std::unique_ptr<VolumeFileSystem> disk;
    mutable SystemClock clock;

private:
    [[nodiscard]] std::uint64_t entriesOf(const RemovalItem& item) const;

    std::vector<RemovalItem> m_items;
    std::vector<std::uint64_t> m_whole; ///< entries of each item before anything was removed
};

} // namespace pryvane::test
