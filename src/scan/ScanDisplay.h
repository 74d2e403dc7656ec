#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace pryvane {

/// What the scan screen shows while it works. Texts are shown as plain text.
struct ScanDisplay {
    std::string scanTypeLabel; ///< "Scanning Entry:" or "Calculating Files:"
    bool activityIndicator = false;
    bool stopButton = false;
    bool scanBox = false;
    bool reportBox = false;
    bool headerCollapsed = false;
    std::string progressText; ///< "37%"
    double progressBar = 0;   ///< 0 to 100
    bool indeterminate = false;
    std::string location;     ///< label or location being looked at; elide in the middle
    std::int64_t entries = 0; ///< what a deep scan has to walk; 0 while that is being counted
    std::size_t findings = 0; ///< so far
};

} // namespace pryvane
