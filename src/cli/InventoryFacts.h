#pragma once

#include "cli/Console.h"
#include "inventory/facts/FactScan.h"
#include "reports/ReportAppendix.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace pryvane::cli {

/// The lists of facts among the kinds asked for; all where none was named.
[[nodiscard]] FactKinds factKindsOf(const std::vector<std::string>& kinds);

/// The names that --kind takes for them.
[[nodiscard]] std::vector<std::string> factKindNames();

void addFactsJson(nlohmann::ordered_json& document, const Facts& facts, const FactKinds& kinds);
void printFacts(const Console& console, const Facts& facts, const FactKinds& kinds);

/// Says which sources could not be read whole. False where there were some, or a bound was met.
[[nodiscard]] bool sayUnreadSources(const Console& console, const Facts& facts);

/// All facts about those users and the whole Mac, as what a report carries behind its findings.
[[nodiscard]] ReportAppendix factsAppendix(FileSystem& disk, const UserChoice& whose,
                                           const StopFlag& stop);

void printAppendix(const Console& console, const ReportAppendix& appendix);

/// What --facts does, for the help of the commands that have it.
inline constexpr const char* kFactsHelp =
    "Add who may watch, what starts and who may come in, as the disk says now";

/// The places that are read, for --help and the manual page.
[[nodiscard]] std::string factSourcesText();

} // namespace pryvane::cli
