#pragma once

#include "cli/Host.h"
#include "core/Escape.h"
#include "findings/CaseLabels.h"
#include "reports/JsonLines.h"

#include <nlohmann/json.hpp>

namespace pryvane::cli {

/// The first of a command's lines: which program looked at which disk, and when.
[[nodiscard]] nlohmann::ordered_json headOf(const char* type, Host& host, const CaseLabels& labels);

/// The last line. `whole`: false where not all that there may be is listed.
void writeEndLine(const TextSink& sink, bool whole, Date end);

} // namespace pryvane::cli
