#include "core/Escape.h"
#include "reports/ReportExport.h"
#include "signatures/FlaggedBy.h"

namespace pryvane {

namespace {

constexpr std::string_view kHeader =
    "item,name,infections,size,path,url,risk,isAvail,evidence,rule,matched,presence,user,verdict,"
    "mac,users\r\n";

/// A cell of foreign text: harmless to look at, and no formula to any spreadsheet.
std::string cell(std::string_view bytes)
{
    std::string text = forScreen(bytes);
    // The first byte as it was counts too: a spreadsheet may undo an escape, but not an apostrophe.
    constexpr std::string_view kFormula = "=+-@\t\r";
    if (!bytes.empty() && kFormula.find(bytes.front()) != std::string_view::npos)
        text.insert(text.begin(), '\'');
    if (text.find_first_of(",\" ") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"')
            quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

} // namespace

void writeAsCsv(const SpywareScanReport& report, const TextSink& sink)
{
    std::string csv(kHeader);
    FindingRules rules;
    const std::string whole = std::string(wordsFor(report.verdict()).machine) + ',' +
                              cell(macName(report.subject)) + ',' +
                              cell(userNames(report.subject)) + "\r\n";
    if (report.spyWareList->empty())
        csv += "0,,,,,,,,,,,,," + whole;
    std::size_t item = 0;
    for (const auto& record : *report.spyWareList) {
        csv += std::to_string(++item) + ',';
        csv += cell(record->name()) + ',';
        csv += cell(record->infections) + ',';
        csv += std::to_string(record->size) + ',';
        csv += cell(record->url.relativePath()) + ',';
        csv += cell(record->url.urlText()) + ',';
        csv += cell(record->risk) + ',';
        csv += record->isAvail() ? "true," : "false,";
        const FlaggedBy flaggedBy = rules.flaggedBy(*record);
        csv += cell(evidenceText(flaggedBy.evidence)) + ',';
        csv += cell(flaggedBy.rule) + ',';
        csv += cell(flaggedBy.text) + ',';
        csv += std::string(presenceWord(record->presence)) + ',';
        csv += cell(record->user) + ',' + whole;
        sink(csv);
        csv.clear();
    }
    sink(csv);
}

} // namespace pryvane
