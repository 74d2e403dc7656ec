#include "core/Escape.h"
#include "reports/JsonPieces.h"
#include "reports/ReportExport.h"
#include "signatures/FlaggedBy.h"

#include <algorithm>

namespace pryvane {

namespace {

/// An object in the list of findings, indented as the rest. Written by hand, as there may be a
/// million of them.
class RecordText {
public:
    [[nodiscard]] const std::string& of(const Spyware& record, const FlaggedBy& flaggedBy)
    {
        m_text = "      {";
        m_isFirst = true;
        text("name", record.name());
        text("infections", record.infections);
        member("size", std::to_string(record.size));
        text("path", record.url.relativePath());
        text("url", record.url.urlText());
        text("risk", record.risk);
        flag("isAvail", record.isAvail());
        flag("isChecked", record.isChecked);
        flag("isDeleted", record.isDeleted);
        flag("isNoAction", record.isNoAction);
        text("evidence", evidenceText(flaggedBy.evidence));
        flag("isWeak", isWeak(flaggedBy.evidence));
        text("rule", flaggedBy.rule);
        text("matched", flaggedBy.text);
        text("presence", presenceWord(record.presence));
        text("user", record.user);
        text("kind", kindWord(record.kind));
        date("birth", record.times.birth);
        date("modified", record.times.modified);
        date("changed", record.times.changed);
        if (record.sha256.empty())
            member("sha256", "null");
        else
            text("sha256", record.sha256);
        if (!record.presenceReason.empty())
            text("presenceReason", record.presenceReason);
        m_text += "\n      }";
        return m_text;
    }

private:
    void member(std::string_view name, std::string_view value)
    {
        m_text.append(m_isFirst ? "\n        \"" : ",\n        \"").append(name);
        m_text.append("\": ").append(value);
        m_isFirst = false;
    }
    void flag(std::string_view name, bool on) { member(name, on ? "true" : "false"); }

    void date(std::string_view name, DiskMoment moment)
    {
        if (moment)
            text(name, iso8601(*moment));
        else
            member(name, "null");
    }

    /// Once it is escaped, only these two are left that JSON writes in its own way.
    void text(std::string_view name, std::string_view bytes)
    {
        member(name, "\"");
        const std::string escaped = forJson(bytes);
        std::string_view rest = escaped;
        const auto isMarked = [](char c) { return c == '"' || c == '\\'; };
        for (auto at = std::ranges::find_if(rest, isMarked); at != rest.end();
             at = std::ranges::find_if(rest, isMarked)) {
            const auto plain = static_cast<std::size_t>(at - rest.begin());
            m_text.append(rest.substr(0, plain)).append(1, '\\').append(1, *at);
            rest.remove_prefix(plain + 1);
        }
        m_text.append(rest).append(1, '"');
    }

    std::string m_text;
    bool m_isFirst = true;
};

} // namespace

void writeAsJson(const SpywareScanReport& report, const TextSink& sink,
                 const ReportAppendix* appendix)
{
    Json json = {
        {"report",
         {
             {"reportId", forJson(report.reportId)},
             {"reportType", forJson(report.reportType)},
             {"scanDate", iso8601(report.scanDate)},
             {"scanDuration", forJson(report.scanDuration)},
             {"spyWareCount", report.spyWareCount},
             {"findings", report.spyWareList->size()},
             {"isRed", report.isRed},
             {"spyWareList", Json::array()},
         }},
        {"label", textOrNull(report.labels.label)},
        {"case", textOrNull(report.labels.caseName)},
        {"examiner", textOrNull(report.labels.examiner)},
        {"verdict", wordsFor(report.verdict()).machine},
        {"verdictLine", report.verdictLine()},
        {"subject", subjectJson(report.subject, report.volume, report.coverage.source.sha256)},
        {"coverage", coverageJson(report.coverage)},
    };
    if (appendix)
        json["facts"] = Json::parse(appendix->json);
    const std::string frame = json.dump(2) + "\n";
    // Inside a text its quotation marks would be escaped.
    constexpr std::string_view kList = "\"spyWareList\": [";
    const std::size_t list = frame.find(kList) + kList.size();
    sink(std::string_view(frame).substr(0, list));
    FindingRules rules;
    RecordText text;
    std::string_view before = "\n";
    for (const auto& record : *report.spyWareList) {
        sink(before);
        sink(text.of(*record, rules.flaggedBy(*record)));
        before = ",\n";
    }
    if (!report.spyWareList->empty())
        sink("\n    ");
    sink(std::string_view(frame).substr(list));
}

} // namespace pryvane
