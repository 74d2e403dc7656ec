#pragma once

#include "cli/Console.h"
#include "cli/ScanArguments.h"
#include "cli/ScanSources.h"
#include "core/Files.h"
#include "core/ThreadSafety.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <sys/types.h>
#include <vector>

namespace pryvane::cli {

/// What became of one disk.
struct DiskResult {
    std::size_t disk = 0;
    int code = kFailed;
    double seconds = 0;
    std::string error; ///< why there is none, for a person; already escaped
    UniqueFd out, err; ///< what the scan wrote; none where it was never started
};

/// Scans of many disks, each a process of its own, and what comes of them. The main thread takes
/// the results; others start the processes and wait for them.
class DiskScans {
public:
    DiskScans(const std::vector<ScanSource>& sources, const ScanArguments& arguments)
        : m_sources(sources), m_arguments(arguments)
    {
    }

    /// One thread's share: a disk after the other.
    void work();

    /// The next result; none where none came in a while.
    [[nodiscard]] std::optional<DiskResult> next(std::chrono::milliseconds longest);

    /// Lets no further scan begin, and asks those that run for an orderly end.
    void stop();

private:
    [[nodiscard]] std::optional<std::size_t> take();
    [[nodiscard]] DiskResult scanned(std::size_t disk);

    const std::vector<ScanSource>& m_sources;
    const ScanArguments& m_arguments;
    Mutex m_mutex;
    Condition m_changed;
    std::size_t m_next GUARDED_BY(m_mutex) = 0;
    bool m_stopped GUARDED_BY(m_mutex) = false;
    std::set<pid_t> m_running GUARDED_BY(m_mutex);
    std::deque<DiskResult> m_results GUARDED_BY(m_mutex);
};

} // namespace pryvane::cli
