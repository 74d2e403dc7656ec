#pragma once

#include "removal/session/RemovalPlan.h"

#include <cstdint>
#include <span>
#include <string>

namespace pryvane::cli {

/// For programs and in a table: "removed", "gone" or "failed".
[[nodiscard]] const char* outcomeWord(RemovalOutcome outcome);

/// "5 entries, 12 KB"
[[nodiscard]] std::string amountText(std::uint64_t entries, std::int64_t bytes);

/// A location for a terminal, with a note in parentheses where there is one.
[[nodiscard]] std::string withNote(const std::string& location, const std::string& note);

/// The location of a plan, and why it stays where that is told.
[[nodiscard]] std::string plannedText(const FileURL& url, const RemovalForecast& forecast,
                                      const std::string& obstacle);

/// The plan as a table, with what each finding would come to. `numbers` are the items', in the
/// order of the plan.
[[nodiscard]] std::string planText(const RemovalPlan& plan, std::span<const std::size_t> numbers);

/// What the plan comes to in all: "2 findings, 5 entries, 12 KB; 1 is gone already".
[[nodiscard]] std::string planTotalText(const RemovalPlan& plan);

/// What became of each record, as a table, and in all, as a sentence below it.
[[nodiscard]] std::string outcomeText(const SpywareList& records,
                                      std::span<const RemovalResult> results,
                                      std::span<const std::size_t> numbers);

} // namespace pryvane::cli
