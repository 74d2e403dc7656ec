#pragma once

#include "privacy/CleaningPreview.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pryvane {

/// A location that was to go and did not, with the reason in words.
struct LeftOver {
    std::string item;
    FileURL url;
    std::string reason;
};

/// What became of one item.
struct CleanedItem {
    std::string user;
    ToolGroupKind kind = ToolGroupKind::System;
    std::string group;
    std::string item;
    std::uint64_t entries = 0;   ///< that went
    std::int64_t bytes = 0;      ///< that went, allocated
    std::size_t stayed = 0;      ///< locations that were to go and did not
    std::size_t alreadyGone = 0; ///< locations that went by themselves meanwhile
    std::vector<FileURL> gone;   ///< locations that went
};

struct CleaningOutcome {
    std::uint64_t entriesRemoved = 0;
    std::int64_t bytesRemoved = 0;
    std::vector<CleanedItem> items; ///< those of which anything was to go, in the preview's order
    std::vector<LeftOver> stayed;   ///< what was unticked is not among them
};

/// What is shown when all that was to go has gone.
inline constexpr const char* kCleanedTitle = "Alert";
inline constexpr const char* kCleanedText = "You have successfully cleared selected data.";

/// What is shown when cleaning has ended: kCleanedText where that is so, else what stayed, how much
/// of it for which reason, each reason in a line of its own.
[[nodiscard]] std::string cleanedText(const CleaningOutcome& outcome);

/// Removes for good the rows that will go, and tells of each by its place among the preview's rows.
/// Blocks.
void removeGoing(const CleaningPreview& preview, Remover& remover, const StopFlag& stop,
                 const RemovalResults& told);

/// What the cleaning came to, by a result for each of the preview's rows; those of rows that did
/// not go count for nothing.
[[nodiscard]] CleaningOutcome outcomeOf(const CleaningPreview& preview,
                                        std::span<const RemovalResult> results);

/// Removes for good what will go by the preview. Blocks.
[[nodiscard]] CleaningOutcome cleanSelected(const CleaningPreview& preview, Remover& remover,
                                            const StopFlag& stop);

} // namespace pryvane
