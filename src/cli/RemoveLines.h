#pragma once

#include "cli/Host.h"
#include "removal/session/RemovalPlan.h"
#include "reports/SpywareScanReport.h"

#include <span>

namespace pryvane::cli {

/// What a removal writes as JSON Lines. `numbers` are the items', in the order of the plan or of
/// the records.
void writeRemovalHead(const TextSink& sink, Host& host, const SpywareScanReport& report,
                      bool dryRun);
void writePlanLines(const TextSink& sink, const RemovalPlan& plan,
                    std::span<const std::size_t> numbers);
void writeOutcomeLines(const TextSink& sink, const SpywareList& records,
                       std::span<const RemovalResult> results,
                       std::span<const std::size_t> numbers);

/// `left`: how many findings of the report there are still.
void writeRemovalEnd(const TextSink& sink, std::span<const RemovalResult> results, std::size_t left,
                     Date end);

} // namespace pryvane::cli
