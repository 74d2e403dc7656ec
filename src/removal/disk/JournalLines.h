#pragma once

#include "core/Texts.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// No line of the journal is longer, so that a damaged one cannot take all memory.
inline constexpr std::size_t kLongestJournalLine = std::size_t{2} * 1024 * 1024;

/// Up to here a path stands in the journal whole, so that no line of ours comes near the longest:
/// the two forms of a path take up to eight bytes for each of its own.
inline constexpr std::size_t kLongestPathOnRecord = std::size_t{64} * 1024;

/// Of a longer path its beginning, its length and the hash of all its bytes.
inline constexpr std::size_t kShortenedPath = 4096;

/// Reads a file line by line with a bounded buffer. A line that is longer than any of ours is left
/// out, and so is one without an end.
void forEachLine(int file, const std::function<void(std::string_view line)>& told);

/// A line of the journal taken apart; none for anything else.
struct JournalLine {
    bool isOutcome = false;
    std::string id, volume, url, outcome, reason, remark;
    std::string pathHash;         ///< SHA-256 of the path whose beginning the url is; else empty
    std::uint64_t pathLength = 0; ///< of that path, in bytes
    Date time{};
    std::int64_t bytes = 0;
    std::uint64_t entries = 0; ///< of an intention: those that were there
    bool countedWhole = false; ///< of an intention: there were no more
    bool ofContents = false;   ///< of an intention: the folder itself was to stay
};
[[nodiscard]] std::optional<JournalLine> parsedJournalLine(std::string_view line);

} // namespace pryvane
