#pragma once

#include "core/StopFlag.h"
#include "findings/ResultList.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace pryvane {

/// The scan state that all screens share. Flags and counters are read by several threads; the lists
/// and the report type belong to the main thread.
struct ScanState {
    std::vector<std::string> fullSystemScanPaths; ///< set by each deep scan as it starts
    std::vector<std::string>
        arrDefaultTorvellApp; ///< names of the maker's own products; set before any scan
    ResultList arrSpywareList;
    std::string reportType;
    std::atomic<std::int64_t> totalCount{0};     ///< entries counted by a deep scan's first pass
    std::atomic<std::int64_t> totalScanCount{0}; ///< entries walked since the last progress step
    std::atomic<bool> isDeepScan{false};
    std::atomic<bool> isScanning{false};
    StopFlag isScanStop;
    std::atomic<bool> isRealTimeProtectionON{false};
    std::atomic<bool> isUserDirAccessible{false};
    std::atomic<bool> isHDAccessible{false};
};

} // namespace pryvane
