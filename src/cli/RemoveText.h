#pragma once

#include "removal/session/RemovalPlan.h"

#include <span>
#include <string>

namespace pryvane::cli {

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
