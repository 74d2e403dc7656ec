#pragma once

#include "core/Texts.h"
#include "platform/Remover.h"
#include "removal/disk/JournalStorage.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

class Clock;
class FileSystem;
struct JournalLine;

/// The journal as a file of JSON lines, "Removals.jsonl" in the data folder: for each item one line
/// with the intention, on the device before anything is removed, and one with the outcome; at the
/// end of a removal of findings one with how many were removed, failed and were left. Where a
/// crash left an intention without its outcome, one is added from what the disk then says.
class RemovalJournalFile final : public RemovalJournal {
public:
    /// Touches nothing before the first begin() or settle(). `disk` is the volume removed from; it
    /// and the clock must outlive this.
    RemovalJournalFile(const std::string& dataFolder, FileSystem& disk, Clock& clock);

    /// One that is settled.
    [[nodiscard]] static Result<std::unique_ptr<RemovalJournalFile>>
    open(const std::string& dataFolder, FileSystem& disk, Clock& clock);

    /// Looks what became of the intentions on this volume that a crash or power cut left open. The
    /// first begin() does so, too.
    [[nodiscard]] Result<Done> settle();

    [[nodiscard]] Result<Done> begin(std::span<const RemovalItem> items) override;
    void ended(std::size_t item, const RemovalResult& result) override;
    Result<Done> flush() override;
    Result<Done> conclude(const RemovalTally& tally) override;
    [[nodiscard]] bool tellsOfEarlier() override;

private:
    struct Begun {
        std::string id;
        FileURL url;
        std::string purpose;
    };
    enum class Others : std::uint8_t { Left, Ended };

    [[nodiscard]] Result<Done> hold();
    [[nodiscard]] Result<Done> settleOpen(Others otherVolumes);
    [[nodiscard]] std::string intentions(std::span<const RemovalItem> items);
    [[nodiscard]] std::string outcome(const Begun& item, const RemovalResult& result) const;
    [[nodiscard]] std::string interruption(const JournalLine& begun) const;

    const std::string m_dataFolder;
    JournalStorage m_storage;
    FileSystem& m_disk;
    Clock& m_clock;
    std::string m_volume; ///< its identity, percent-encoded
    bool m_settled = false;
    std::vector<Begun> m_begun;
    std::string m_unwritten; ///< outcomes that the disk did not take yet
};

/// One line of the journal.
struct RemovalRecord {
    FileURL url;        ///< of a path too long to be on record whole, its beginning
    std::string key;    ///< journalKey() of the whole path
    std::string volume; ///< identity of the volume, raw bytes
    Date time{};
    std::string outcome;       ///< "begun", "removed", "already gone", "failed" or "interrupted"
    std::string reason;        ///< in words; empty for what was removed
    std::string remark;        ///< what else is to be known of it; mostly empty
    std::int64_t bytes = 0;    ///< that went; of a begun one, unknown
    std::uint64_t entries = 0; ///< that went; of a begun one, those that were there
};

/// By which text the journal knows a path: its identity, or the hash of one that is too long.
[[nodiscard]] std::string journalKey(const FileURL& url);

/// Where the journal of a data folder lies.
[[nodiscard]] std::string removalJournalPath(const std::string& dataFolder);

/// Hands every line on record to `told`, oldest first, of the journals set aside too, and holds one
/// line at a time. Those that are damaged are left out; a journal that is missing holds none. One
/// that is begun and not followed by its end goes on at this moment, or was interrupted.
void readRemovalJournal(const std::string& dataFolder,
                        const std::function<void(const RemovalRecord&)>& told);

} // namespace pryvane
