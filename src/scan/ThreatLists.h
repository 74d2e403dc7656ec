#pragma once

#include "findings/Spyware.h"
#include "reports/SpywareScanReport.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace pryvane {

/// The lists of the scan screen, shared by its scanning and its removing half. Main thread only.
struct ThreatLists {
    SpywareList arrThreats;                  ///< the selected findings
    std::vector<std::string> arrSpyWarePath; ///< paths of all findings of the last scan
    SpywareList deletedSpyware;
    SpywareList unDeletedSpyware;
    SpywareList notActionSpyware;
    std::size_t deletedCount = 0;                  ///< of the last removal
    std::shared_ptr<SpywareScanReport> tempReport; ///< of the last scan, if it made one
    std::string volume;                            ///< identity of the one the last scan was of
    bool threatFound = false;
    bool ARDDetect = false; ///< a remote-desktop finding is shown
};

} // namespace pryvane
