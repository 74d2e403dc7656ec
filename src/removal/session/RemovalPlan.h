#pragma once

#include "findings/Spyware.h"
#include "platform/Removal.h"
#include "signatures/FlaggedBy.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace pryvane {

/// Locations of records that go. What lies inside one of them goes with it. The records must
/// outlive it.
class GoingLocations {
public:
    /// False where the location is among them already.
    bool add(const Spyware& record) { return m_places.insert(record.url.identity()).second; }
    [[nodiscard]] bool holds(const Spyware& record) const
    {
        return m_places.contains(record.url.identity());
    }
    [[nodiscard]] bool holdFolderOf(const Spyware& record) const;

private:
    std::unordered_set<std::string_view> m_places;
};

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
    };
    std::vector<PlannedRecord> rows; ///< after a stop only those that were reached
    bool stopped = false;
    bool isFirst = true; ///< no removal from this disk is on record

    /// Of all rows.
    [[nodiscard]] Totals totals() const;
};

/// Of the rows that `counts` says count, by their place. A hindered record adds nothing to what
/// would go, and what lies inside another one that goes, or is listed twice, goes and counts once.
[[nodiscard]] RemovalPlan::Totals totalsOf(std::span<const PlannedRecord> rows,
                                           const std::function<bool(std::size_t row)>& counts);

} // namespace pryvane
