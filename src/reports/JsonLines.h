#pragma once

#include "core/Files.h"
#include "findings/CaseLabels.h"
#include "reports/ReportAppendix.h"
#include "reports/SpywareScanReport.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

/// JSON Lines: one object a line, the first about the whole, then one a row, the last with
/// "type": "end". What they hold is a contract, docs/schema/jsonl-1.schema.json, to which keys and
/// types of line are only ever added.
namespace pryvane {

inline constexpr int kLinesSchema = 1;

/// What the first line says.
struct LinesHead {
    const char* type; ///< the command: "scan"
    const Subject& subject;
    const std::string& volume; ///< its identity, as FileSystem gives it
    const CaseLabels& labels;
    Date start;
    std::string sha256 = {}; ///< of the source, where that was asked for
};

[[nodiscard]] nlohmann::ordered_json headLine(const LinesHead& head);

void writeLine(const TextSink& sink, const nlohmann::ordered_json& line);

/// One report as lines: "scan", a "finding" each, what the appendix lists as a "fact" each, "end".
void writeReportLines(const SpywareScanReport& report, const TextSink& sink,
                      const ReportAppendix* appendix = nullptr);

/// The lists of facts as lines, and how reading each of their sources went. `facts` is an object of
/// lists.
void writeFactLines(const TextSink& sink, const nlohmann::ordered_json& facts);

} // namespace pryvane
