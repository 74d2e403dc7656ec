#pragma once

#include "platform/Remover.h"
#include "removal/session/RemovalPlan.h"

#include <functional>
#include <string>
#include <string_view>

namespace pryvane {

/// Findings to remove, and where they were found.
struct RecordSelection {
    SpywareList records;
    std::string volume; ///< identity of the volume of their report, as FileSystem gives it
    std::string user;   ///< short name for which the rules are filled in
    /// How the volume's disk folds a name, see ExplainQuestion; only a plan asks for it.
    std::function<std::string(std::string_view)> foldedName = {};
};

/// Plans and removes findings: one way for the scan screen, the report browser and the command
/// line. On another volume than the findings' own nothing is removed; where a disk has no identity,
/// only what a scan of this run has seen on it is. Its calls block and belong on
/// a background thread, one at a time; of the records they only read what never changes.
class RecordRemoval {
public:
    RecordRemoval(FileSystem& disk, Remover& remover) : m_disk(disk), m_remover(remover) {}

    /// Looks, and changes nothing.
    [[nodiscard]] RemovalPlan plan(const RecordSelection& selection, const StopFlag& stop);

    /// Removes the records in order; `told` is called for each with its place in the list.
    void remove(const RecordSelection& selection, const StopFlag& stop, const RemovalResults& told);

private:
    [[nodiscard]] RemovalObstacle strangeness(const RecordSelection& selection,
                                              const Spyware& record) const;
    template <typename Answer, typename Work, typename Told>
    void each(const RecordSelection& selection, const StopFlag& stop, const Work& work,
              const Told& told) const;

    FileSystem& m_disk;
    Remover& m_remover;
};

/// Puts what became of a record on it. On the thread that owns the record.
void setOutcome(Spyware& record, const RemovalResult& result);

} // namespace pryvane
