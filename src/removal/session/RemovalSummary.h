#pragma once

#include <cstddef>
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

/// Of the findings of a list, what a removal has made of them.
struct RemovalCounts {
    std::size_t removed = 0;
    std::size_t failed = 0;
    std::size_t left = 0;       ///< there still, and not to be removed
    bool remoteDesktop = false; ///< among those left

    [[nodiscard]] std::string text() const;
};

[[nodiscard]] RemovalSummary removalSummary(const RemovalCounts& counts,
                                            FailedText form = FailedText::Indented);

} // namespace pryvane
