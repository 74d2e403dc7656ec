#pragma once

#include "platform/Remover.h"
#include "removal/session/RemovalPlan.h"
#include "removal/session/RemovalSummary.h"

#include <span>
#include <string>
#include <vector>

namespace pryvane {

/// Findings to remove, and where they were found.
struct RecordSelection {
    SpywareList records;
    std::string volume;     ///< identity of the volume of their report, as FileSystem gives it
    SpywareList there = {}; ///< of the same report, those that go among them
};

/// The records of a report that are there.
[[nodiscard]] SpywareList thereOf(const SpywareList& all);

/// What the removal of a selection came to. Left is what is there and was not to go; what lay in
/// something that went is not left.
[[nodiscard]] RemovalTally tallyOf(const RecordSelection& selection,
                                   std::span<const RemovalResult> results);

/// The same for a summary.
[[nodiscard]] RemovalCounts countsOf(const RecordSelection& selection,
                                     std::span<const RemovalResult> results);

/// Plans and removes findings: one way for the scan screen, the report browser and the command
/// line. On another volume than the findings' own nothing is removed; where a disk has no identity,
/// only what a scan of this run has seen on it is; remote desktop is nowhere. Its calls block and
/// belong on a background thread, one at a time; of the records they only read what never changes.
class RecordRemoval {
public:
    RecordRemoval(FileSystem& disk, Remover& remover) : m_disk(disk), m_remover(remover) {}

    /// Looks, and changes nothing.
    [[nodiscard]] RemovalPlan plan(const RecordSelection& selection, const StopFlag& stop) const;

    /// Removes the records in order; `told` is called for each with its place in the list. Returns
    /// what it came to, which is on record by then.
    RemovalCounts remove(const RecordSelection& selection, const StopFlag& stop,
                         const RemovalResults& told) const;

private:
    [[nodiscard]] RemovalObstacle refusal(const RecordSelection& selection,
                                          const Spyware& record) const;
    template <typename Answer, typename Work, typename Told>
    void each(const RecordSelection& selection, const StopFlag& stop, const Work& work,
              const Told& told) const;

    FileSystem& m_disk;
    Remover& m_remover;
};

/// The records but for remote desktop, which is switched off and never removed.
[[nodiscard]] SpywareList removable(const SpywareList& records);

/// Their locations as they were found.
[[nodiscard]] std::vector<std::string> pathsOf(const SpywareList& records);

/// Puts what became of a record on it. On the thread that owns the record.
void setOutcome(Spyware& record, const RemovalResult& result);

/// Records after a removal, in their order.
struct SortedRecords {
    SpywareList removed, failed;
};

/// Puts what became of the records on them and sorts them by it.
[[nodiscard]] SortedRecords sortOutcomes(const SpywareList& records,
                                         std::span<const RemovalResult> results);

} // namespace pryvane
