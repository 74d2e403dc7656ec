#include "core/Escape.h"
#include "reports/CsvCell.h"
#include "reports/ReportExport.h"
#include "signatures/FlaggedBy.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::string_view kHeader =
    "item,name,infections,size,path,url,risk,isAvail,evidence,rule,matched,presence,user,verdict,"
    "mac,users,kind,birth,modified,changed,sha256,label,case,examiner\r\n";

std::string dateText(DiskMoment date)
{
    return date ? iso8601(*date) : std::string();
}

} // namespace

std::string csvCell(std::string_view bytes)
{
    std::string text = forScreen(bytes);
    // The first byte as it was counts too: a spreadsheet may undo an escape, but not an apostrophe.
    constexpr std::string_view kFormula = "=+-@\t\r";
    if (!bytes.empty() && kFormula.find(bytes.front()) != std::string_view::npos)
        text.insert(text.begin(), '\'');
    if (std::ranges::none_of(text, [](char c) { return c == ',' || c == '"' || c == ' '; }))
        return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"')
            quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

void writeAsCsv(const SpywareScanReport& report, const TextSink& sink)
{
    std::string csv(kHeader);
    FindingRules rules;
    const std::string whole = std::string(wordsFor(report.verdict()).machine) + ',' +
                              csvCell(macName(report.subject)) + ',' +
                              csvCell(userNames(report.subject));
    const std::string labels = csvCell(report.labels.label) + ',' +
                               csvCell(report.labels.caseName) + ',' +
                               csvCell(report.labels.examiner) + "\r\n";
    if (report.spyWareList->empty())
        csv += "0,,,,,,,,,,,,," + whole + ",,,,,," + labels;
    std::size_t item = 0;
    for (const auto& record : *report.spyWareList) {
        csv += std::to_string(++item) + ',';
        csv += csvCell(record->name()) + ',';
        csv += csvCell(record->infections) + ',';
        csv += std::to_string(record->size) + ',';
        csv += csvCell(record->url.relativePath()) + ',';
        csv += csvCell(record->url.urlText()) + ',';
        csv += csvCell(record->risk) + ',';
        csv += record->isAvail() ? "true," : "false,";
        const FlaggedBy flaggedBy = rules.flaggedBy(*record);
        csv += csvCell(evidenceText(flaggedBy.evidence)) + ',';
        csv += csvCell(flaggedBy.rule) + ',';
        csv += csvCell(flaggedBy.text) + ',';
        csv += std::string(presenceWord(record->presence)) + ',';
        csv += csvCell(record->user) + ',' + whole + ',';
        csv += std::string(kindWord(record->kind)) + ',';
        csv += dateText(record->times.birth) + ',';
        csv += dateText(record->times.modified) + ',';
        csv += dateText(record->times.changed) + ',';
        csv += std::string(record->sha256) + ',' + labels;
        sink(csv);
        csv.clear();
    }
    sink(csv);
}

} // namespace pryvane
