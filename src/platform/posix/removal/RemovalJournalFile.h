#pragma once

#include "platform/RemovalJournal.h"
#include "platform/posix/UniqueFd.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace pryvane {

class Clock;
class FileSystem;

/// The journal as a file of JSON lines, "Removals.jsonl" in the data folder: for each item one line
/// with the intention, on the device before anything is removed, and one with the outcome. Where a
/// crash left an intention without its outcome, the next opening looks at the disk and adds one.
class RemovalJournalFile final : public RemovalJournal {
public:
    /// Creates the file where it is missing, for the user alone. `disk` is the volume removed from.
    [[nodiscard]] static Result<std::unique_ptr<RemovalJournalFile>>
    open(const std::string& dataFolder, FileSystem& disk, Clock& clock);

    [[nodiscard]] Result<Done> begin(std::span<const RemovalItem> items) override;
    void ended(std::size_t item, const RemovalResult& result) override;
    Result<Done> flush() override;

private:
    RemovalJournalFile(UniqueFd file, FileSystem& disk, Clock& clock);

    struct Begun {
        std::string id;
        FileURL url;
    };

    [[nodiscard]] Result<Done> endTornLine();
    [[nodiscard]] Result<Done> settleInterrupted();
    [[nodiscard]] Result<Done> write(const std::string& lines);
    [[nodiscard]] std::string line(const char* event, const Begun& item,
                                   const RemovalResult* result) const;

    UniqueFd m_file;
    FileSystem& m_disk;
    Clock& m_clock;
    std::string m_volume; ///< its identity, percent-encoded
    std::vector<Begun> m_begun;
    std::string m_unwritten; ///< outcomes that the disk did not take yet
};

/// One outcome of the journal.
struct RemovalRecord {
    FileURL url;
    std::string volume; ///< identity of the volume, raw bytes
    std::string time;   ///< ISO 8601
    std::string outcome;
    std::string reason; ///< in words; empty for what was removed
    std::int64_t bytes = 0;
    std::uint64_t entries = 0;
};

/// Where the journal of a data folder lies.
[[nodiscard]] std::string removalJournalPath(const std::string& dataFolder);

/// Hands every outcome on record to `told`, oldest first. Lines that are damaged are left out; a
/// journal that is missing holds none.
void readRemovalJournal(const std::string& dataFolder,
                        const std::function<void(const RemovalRecord&)>& told);

} // namespace pryvane
