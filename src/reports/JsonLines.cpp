#include "reports/JsonLines.h"

#include "core/Escape.h"
#include "reports/JsonPieces.h"
#include "signatures/CatalogRows.h"
#include "signatures/FlaggedBy.h"

namespace pryvane {

namespace {

Json findingLine(std::size_t item, const Spyware& record, const FlaggedBy& flaggedBy)
{
    Json line = {{"type", "finding"},
                 {"item", item},
                 {"name", forJson(record.name())},
                 {"family", forJson(record.infections)},
                 {"risk", forJson(record.risk)},
                 {"rule", flaggedBy.rule},
                 {"evidence", evidenceText(flaggedBy.evidence)},
                 {"weak", isWeak(flaggedBy.evidence)},
                 {"matched", textOrNull(flaggedBy.text)},
                 {"user", textOrNull(record.user)}};
    addLocation(line, record.url);
    line["size"] = record.size;
    addFileFacts(line, record);
    line["presence"] = presenceWord(record.presence);
    line["presenceReason"] = textOrNull(record.presenceReason);
    return line;
}

} // namespace

Json headLine(const LinesHead& head)
{
    return {{"type", head.type},
            {"schema", kLinesSchema},
            {"program", "pryvane"},
            {"version", PRYVANE_VERSION},
            {"catalogue", catalogueVersion()},
            {"label", textOrNull(head.labels.label)},
            {"case", textOrNull(head.labels.caseName)},
            {"examiner", textOrNull(head.labels.examiner)},
            {"subject", subjectJson(head.subject, head.volume, head.sha256)},
            {"start", iso8601(head.start)}};
}

void writeLine(const TextSink& sink, const Json& line)
{
    sink(line.dump() + '\n');
}

void writeReportLines(const SpywareScanReport& report, const TextSink& sink,
                      const ReportAppendix* appendix)
{
    const auto lasted =
        std::chrono::milliseconds(static_cast<std::int64_t>(report.coverage.seconds * 1000));
    Json head = headLine({"scan", report.subject, report.volume, report.labels,
                          report.scanDate - lasted, report.coverage.source.sha256});
    head["report"] = forJson(report.reportId);
    head["scan"] = forJson(report.reportType);
    writeLine(sink, head);
    FindingRules rules;
    std::size_t item = 0;
    for (const auto& record : *report.spyWareList)
        writeLine(sink, findingLine(++item, *record, rules.flaggedBy(*record)));
    if (appendix)
        writeFactLines(sink, Json::parse(appendix->json));
    writeLine(sink, {{"type", "end"},
                     {"findings", report.spyWareList->size()},
                     {"coverage", coverageJson(report.coverage)},
                     {"verdict", wordsFor(report.verdict()).machine},
                     {"verdictLine", report.verdictLine()},
                     {"end", iso8601(report.scanDate)}});
}

void writeFactLines(const TextSink& sink, const Json& facts)
{
    for (const auto& [list, rows] : facts.items()) {
        const bool isSource = list == "factSources";
        for (const Json& row : rows) {
            Json line = {{"type", isSource ? "source" : "fact"}};
            if (!isSource)
                line["list"] = list;
            line.update(row);
            writeLine(sink, line);
        }
    }
}

} // namespace pryvane
