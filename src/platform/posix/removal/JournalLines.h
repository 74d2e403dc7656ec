#pragma once

#include "platform/posix/UniqueFd.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace pryvane {

/// Reads a file line by line with a bounded buffer. A line that is longer than any of ours is left
/// out, and so is one without an end.
void forEachLine(int file, const std::function<void(std::string_view line)>& told);

/// A line of the journal taken apart; none for anything else.
struct JournalLine {
    bool isOutcome = false;
    std::string id, volume, url, time, outcome, reason;
    std::int64_t bytes = 0;
    std::uint64_t entries = 0;
};
[[nodiscard]] std::optional<JournalLine> parsedJournalLine(std::string_view line);

} // namespace pryvane
