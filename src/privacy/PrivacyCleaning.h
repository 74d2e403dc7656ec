#pragma once

#include "core/StopFlag.h"
#include "platform/Remover.h"
#include "privacy/ToolGroup.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pryvane {

/// One location that is about to be cleaned, with what is known beforehand.
struct CleaningRow {
    std::string group;
    std::string item;
    ToolLocation location;
    RemovalForecast forecast;
    std::string blockedBy; ///< the running application that keeps it open; it then stays
    bool ticked = true;

    [[nodiscard]] bool willGo() const { return ticked && blockedBy.empty(); }
};

/// What cleaning would do, to be shown and unticked before anything goes.
struct CleaningPreview {
    std::vector<CleaningRow> rows;

    struct Totals {
        std::uint64_t entries = 0; ///< files, links and folders
        std::int64_t bytes = 0;    ///< allocated
    };
    /// Of the rows that will go. What lies below another of them counts once.
    [[nodiscard]] Totals totals() const;

    /// The applications to be closed first, each once, in order.
    [[nodiscard]] std::vector<std::string> openBrowsers() const;
};

/// A location that was to go and did not, with the reason in words.
struct LeftOver {
    std::string item;
    FileURL url;
    std::string reason;
};

struct CleaningOutcome {
    std::uint64_t entriesRemoved = 0;
    std::int64_t bytesRemoved = 0;
    std::vector<LeftOver> stayed; ///< what was unticked is not among them
};

/// What is shown when cleaning has ended, whatever stayed.
inline constexpr const char* kCleanedTitle = "Alert";
inline constexpr const char* kCleanedText = "You have successfully cleared selected data.";

/// The locations of the ticked items of all groups; each location once.
[[nodiscard]] std::vector<CleaningRow> selectedRows(std::span<const ToolGroup> groups);

/// What all locations of the groups take, as measured. What lies below another counts once.
[[nodiscard]] std::int64_t allBytes(std::span<const ToolGroup> groups);

/// The same of the ticked items.
[[nodiscard]] std::int64_t selectedBytes(std::span<const ToolGroup> groups);

/// Looks at what the rows would take away; their ticks stay. `running` are the display names of the
/// applications that run on the volume. Blocks. After a stop the rows not reached have an empty
/// forecast.
[[nodiscard]] CleaningPreview previewCleaning(std::vector<CleaningRow> rows,
                                              std::span<const std::string> running,
                                              Remover& remover, const StopFlag& stop);

/// How many rows will go.
[[nodiscard]] std::size_t countGoing(const CleaningPreview& preview);

/// Removes for good the rows that will go, and tells of each in order. Blocks.
void removeGoing(const CleaningPreview& preview, Remover& remover, const StopFlag& stop,
                 const RemovalResults& told);

/// What the cleaning came to, by the results of the rows that went.
[[nodiscard]] CleaningOutcome outcomeOf(const CleaningPreview& preview,
                                        std::span<const RemovalResult> results);

/// Removes for good what will go by the preview. Blocks.
[[nodiscard]] CleaningOutcome cleanSelected(const CleaningPreview& preview, Remover& remover,
                                            const StopFlag& stop);

} // namespace pryvane
