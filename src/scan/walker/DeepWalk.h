#pragma once

#include "scan/walker/WalkObserver.h"

#include <cstdint>
#include <string>

namespace pryvane {

struct ScanState;
class FileURL;
class PatternAutomaton;

/// Where a deep walk begins: a folder of the host, open for reading and owned by the caller, and
/// what it is called on the volume ("/", "/Users/alice/"; raw bytes). Paths are told and matched
/// under that name; what the folder is called on the host plays no part.
struct WalkRoot {
    int folder = -1;
    std::string path;
    /// On the disk that the system runs from: other disks that are mounted on it are told and left
    /// out, and a folder that stands in several places is walked once.
    bool isOwnDisk = false;
};

/// Whether the root is one that is enumerated as a whole, hidden files too, instead of folder by
/// folder.
[[nodiscard]] bool isEnumerated(const FileURL& root);

struct WalkOptions {
    /// The most threads that read folders at the same time, the calling one included: there are
    /// more than processors only where the disk makes them wait. What is found and its order do not
    /// depend on it.
    unsigned threads = 8;
};

/// What one pass saw.
struct WalkOutcome {
    std::int64_t folders = 0;  ///< read to their end
    std::int64_t entries = 0;  ///< counted or walked
    std::int64_t refusals = 0; ///< folders not read, or not to their end; of the scanning pass only
    bool stopped = false;
};

/// The counting pass of a deep scan: adds the entries below the root to ScanState's totalCount.
/// Returns when all is counted or soon after the stop flag was set. Blocks; callable from any
/// thread.
class FileCount {
public:
    FileCount(ScanState& state, WalkObserver& observer, WalkOptions options = {})
        : m_state(state), m_observer(observer), m_options(options)
    {
    }

    /// Counts what the scanning pass will walk: folders, and files that are not hidden.
    WalkOutcome countNodes(const WalkRoot& root);

    /// Counts every entry, whatever it is, and tells nothing on the way.
    WalkOutcome countFlat(const WalkRoot& root);

private:
    ScanState& m_state;
    WalkObserver& m_observer;
    WalkOptions m_options;
};

/// The scanning pass of a deep scan: compares the path of every file below the root, except hidden
/// ones, with the full-system list, and counts what it walks in ScanState's totalScanCount. A root
/// that is itself hidden or a framework is enumerated with everything in it, hidden files too.
/// Returns when all is walked or soon after the stop flag was set. Blocks; callable from any
/// thread.
class scanDirectory {
public:
    /// `fullSystemScanPaths` holds the texts as they stand (Letters::Exact) and must outlive this.
    scanDirectory(ScanState& state, const PatternAutomaton& fullSystemScanPaths,
                  WalkObserver& observer, WalkOptions options = {})
        : m_state(state), m_texts(fullSystemScanPaths), m_observer(observer), m_options(options)
    {
    }

    WalkOutcome scan(const WalkRoot& root);

private:
    ScanState& m_state;
    const PatternAutomaton& m_texts;
    WalkObserver& m_observer;
    WalkOptions m_options;
};

} // namespace pryvane
