#pragma once

#include "core/StopFlag.h"
#include "scan/walker/WalkReport.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string_view>

namespace pryvane {

struct ScanState;

/// Counts the entries of one pass for all its threads and tells what hangs on the count.
class WalkTally {
public:
    enum class Pass : std::uint8_t { Counting, Scanning };

    /// `samples`: whether the observer is told now and then where the walk is.
    WalkTally(Pass pass, ScanState& state, WalkReport& report, bool samples);

    /// So many entries more.
    void add(std::int64_t entries);

    /// A folder was read; the path ends in a slash.
    void folderRead(std::string_view path);

    [[nodiscard]] std::int64_t folders() const { return m_folders; }
    [[nodiscard]] std::int64_t entries() const { return m_entries; }

private:
    [[nodiscard]] bool sampleIsDue();
    void postProgress();

    const Pass m_pass;
    ScanState& m_state;
    WalkReport& m_report;
    const bool m_samples;
    const std::int64_t m_step; ///< entries of one progress step
    std::atomic<std::int64_t> m_folders{0};
    std::atomic<std::int64_t> m_entries{0};
    std::atomic<std::chrono::steady_clock::rep> m_nextSample{0};
};

} // namespace pryvane
