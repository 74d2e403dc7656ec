#pragma once

#include "cli/Console.h"
#include "inventory/facts/FactScan.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace pryvane::cli {

class Host;

/// The lists of facts among the kinds asked for; all where none was named.
[[nodiscard]] FactKinds factKindsOf(const std::vector<std::string>& kinds);

/// The names that --kind takes for them.
[[nodiscard]] std::vector<std::string> factKindNames();

void addFactsJson(nlohmann::ordered_json& document, const Facts& facts, const FactKinds& kinds);
void printFacts(const Console& console, const Facts& facts, const FactKinds& kinds);

/// Says which sources could not be read whole. False where there were some, or a bound was met.
[[nodiscard]] bool sayUnreadSources(const Console& console, const Facts& facts);

/// The places that are read, for --help and the manual page.
[[nodiscard]] std::string factSourcesText();

} // namespace pryvane::cli
