#pragma once

#include "reports/SpywareScanReport.h"

#include <cstdint>
#include <string>

namespace pryvane {

/// What the details of one report show above its threats; texts are escaped for display.
struct ReportDetails {
    std::string type;
    std::string path; ///< "Scan Path: …"
    std::uint64_t spyWareCount = 0;
    std::string startTime;
    std::string durationLabel;
    std::string duration;
};

[[nodiscard]] ReportDetails detailsOf(const SpywareScanReport& report, Date now);

/// The remove button and the select-all box.
struct SelectionState {
    bool quarantineBtn = false;    ///< enabled
    bool quarantineBtnHide = true; ///< hidden
    bool selectAll = false;
    friend bool operator==(const SelectionState&, const SelectionState&) = default;
};

[[nodiscard]] SelectionState selectionOf(const SpywareList& threats);

} // namespace pryvane
