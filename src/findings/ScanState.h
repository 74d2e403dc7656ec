#pragma once

#include "core/StopFlag.h"
#include "core/Texts.h"
#include "findings/Spyware.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {

/// The scan state that all screens share. Counters and the stop are for several threads; the rest
/// belongs to the main thread.
struct ScanState {
    enum class Phase : std::uint8_t { Idle, Scanning, Storing };

    Phase phase = Phase::Idle; ///< of the one scan that there is
    [[nodiscard]] bool isScanning() const { return phase != Phase::Idle; }

    // What the next scan is to be.
    bool isDeepScan = false;
    bool isRealTimeProtectionON = false;
    bool isRoutine = false; ///< it comes by itself every half hour

    std::string reportId;         ///< of the last report of this disk made in this run
    std::optional<Date> lastScan; ///< of this disk and user; none known

    std::vector<std::string>
        fullSystemScanPaths; ///< set by each deep scan as it starts, on its thread
    std::vector<std::string>
        arrDefaultTorvellApp; ///< names of the maker's own products; set before any scan
    ResultList arrSpywareList;
    std::atomic<std::int64_t> totalCount{0};     ///< entries counted by a deep scan's first pass
    std::atomic<std::int64_t> totalScanCount{0}; ///< entries walked since the last progress step
    StopFlag isScanStop;
};

} // namespace pryvane
