#pragma once

#include "platform/Removal.h"

#include <cstdint>
#include <string>

namespace pryvane {

/// How the count of failures is written: a retry and the scan screen indent it by two blanks.
enum class FailedText : std::uint8_t { Indented, Plain };

/// What a removal comes to, for the banner above the outcome table. Texts and image names are shown
/// as they stand; the result text centred, white, in the bold system font of size 12.
struct RemovalSummary {
    std::string resultText; ///< "  2 Failed", or empty
    std::string background;
    std::string informationText;
    std::string icon;
    std::string
        counts; ///< how many were removed, failed and were left, and what that leaves; plain
    friend bool operator==(const RemovalSummary&, const RemovalSummary&) = default;
};

inline constexpr int kRemovalResultPoints = 12;

/// What a removal has made of a list's findings, in one line.
struct RemovalCounts {
    RemovalTally tally;
    bool remoteDesktop = false; ///< among those left

    [[nodiscard]] std::string text() const;
};

[[nodiscard]] RemovalSummary removalSummary(const RemovalCounts& counts,
                                            FailedText form = FailedText::Indented);

} // namespace pryvane
