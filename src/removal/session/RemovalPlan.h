#pragma once

#include "findings/Spyware.h"
#include "platform/Removal.h"
#include "signatures/FlaggedBy.h"

#include <cstdint>
#include <vector>

namespace pryvane {

struct PlannedRecord {
    std::shared_ptr<Spyware> record;
    FlaggedBy flaggedBy;
    RemovalForecast forecast;
};

/// What a removal would do to each record, in the order of the list. A value: nothing follows the
/// disk or the list afterwards.
struct RemovalPlan {
    struct Totals {
        std::size_t rows = 0;
        std::uint64_t entries = 0;
        std::int64_t bytes = 0;
        std::size_t gone = 0;     ///< records whose location is empty already
        std::size_t hindered = 0; ///< records that cannot be removed whole
        bool countedWhole = true; ///< false: there is more than entries and bytes tell

        /// A hindered record adds nothing to what would go.
        void add(const PlannedRecord& row);
    };
    std::vector<PlannedRecord> rows; ///< after a stop only those that were reached
    bool stopped = false;

    /// Of all rows.
    [[nodiscard]] Totals totals() const;
};

} // namespace pryvane
