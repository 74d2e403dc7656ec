#pragma once

#include "scan/walker/DeepWalk.h"

namespace pryvane {

class FileURL;
class NameTree;

/// The two passes of a deep scan over names that were read beforehand, by the rules of FileCount
/// and scanDirectory. Where the source does not tell files from folders, what holds nothing is
/// taken for a file. Blocks; callable from any thread.
class NameWalk {
public:
    NameWalk(ScanState& state, const NameTree& names, WalkObserver& observer)
        : m_state(state), m_names(names), m_observer(observer)
    {
    }

    enum class Counting : std::uint8_t { Nodes, Flat };

    /// Adds the entries below the root to ScanState's totalCount.
    WalkOutcome count(const FileURL& root, Counting counting);

    /// Compares the path of every file below the root, except hidden ones, with the texts.
    WalkOutcome scan(const FileURL& root, const PatternAutomaton& texts);

private:
    ScanState& m_state;
    const NameTree& m_names;
    WalkObserver& m_observer;
};

} // namespace pryvane
