#include "core/Escape.h"
#include "reports/CsvCell.h"
#include "reports/ReportExport.h"
#include "signatures/FlaggedBy.h"

#include <algorithm>
#include <chrono>

namespace pryvane {

namespace {

constexpr std::string_view kHeader =
    "message,datetime,timestamp_desc,family,path,url,user,evidence,kind,size,sha256,report,mac,"
    "label,case,examiner\r\n";

struct Event {
    Date when;
    std::string_view what;         ///< as timeline tools name kinds of time
    const Spyware* record;         ///< or else
    std::string_view message = {}; ///< of the scan itself
};

std::vector<Event> eventsOf(const SpywareScanReport& report)
{
    std::vector<Event> events;
    for (const auto& record : *report.spyWareList) {
        const FileTimes& times = record->times;
        if (times.birth)
            events.push_back({*times.birth, "Creation Time", record.get()});
        if (times.modified)
            events.push_back({*times.modified, "Content Modification Time", record.get()});
        if (times.changed)
            events.push_back({*times.changed, "Metadata Modification Time", record.get()});
    }
    const auto lasted =
        std::chrono::milliseconds(static_cast<std::int64_t>(report.coverage.seconds * 1000));
    events.push_back({report.scanDate - lasted, "Start Time", nullptr, "Scan began"});
    events.push_back({report.scanDate, "End Time", nullptr, "Scan ended"});
    std::ranges::stable_sort(events, {}, &Event::when);
    return events;
}

} // namespace

void writeAsTimeline(const SpywareScanReport& report, const TextSink& sink)
{
    sink(kHeader);
    std::string csv;
    FindingRules rules;
    const std::string whole = csvCell(report.reportId) + ',' + csvCell(macName(report.subject)) +
                              ',' + csvCell(report.labels.label) + ',' +
                              csvCell(report.labels.caseName) + ',' +
                              csvCell(report.labels.examiner) + "\r\n";
    for (const Event& event : eventsOf(report)) {
        const Spyware* const record = event.record;
        const std::string when = "," + iso8601(event.when) + "," + std::string(event.what) + ",";
        if (record == nullptr) {
            csv = csvCell(std::string(event.message) + ": " + report.verdictLine()) + when +
                  ",,,,,,,," + whole;
            sink(csv);
            continue;
        }
        const std::string& path = record->url.relativePath();
        csv = csvCell(std::string(record->infections) + ": " + path) + when +
              csvCell(record->infections) + ',' + csvCell(path) + ',' +
              csvCell(record->url.urlText()) + ',' + csvCell(record->user) + ',' +
              csvCell(evidenceText(rules.flaggedBy(*record).evidence)) + ',' +
              kindWord(record->kind) + ',' + std::to_string(record->size) + ',' +
              std::string(record->sha256) + ',' + whole;
        sink(csv);
    }
}

} // namespace pryvane
