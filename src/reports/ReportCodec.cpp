#include "reports/ReportCodec.h"

#include "reports/ReportFields.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace pryvane {

using namespace stored;

namespace {

void writeReport(CborWriter& out, const SpywareScanReport& report)
{
    out.map(headKeys(report) + 2);
    writeHead(out, report);
    out.text(key::kCoverage);
    writeCoverage(out, report.coverage);
    out.text(key::kSpyWareList).array(report.spyWareList->size());
    for (const auto& record : *report.spyWareList)
        writeRecord(out, *record);
}

void readRecords(CborReader& in, SpywareList& records, SharedTexts& texts)
{
    auto elements = in.array();
    while (in.more(elements))
        records.push_back(readRecord(in, texts));
}

/// `complete` tells whether the map held what makes a report one.
std::shared_ptr<SpywareScanReport> readReport(CborReader& in, SharedTexts& texts, bool& complete,
                                              std::uint64_t* findings = nullptr)
{
    auto report = std::make_shared<SpywareScanReport>();
    bool hasList = false;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (readHeadField(in, key, *report))
            continue;
        if (key == key::kCoverage)
            report->coverage = readCoverage(in);
        else if (key == key::kSpyWareList) {
            hasList = true;
            report->spyWareList->clear();
            readRecords(in, *report->spyWareList, texts);
        } else if (findings && key == key::kFindings)
            *findings = static_cast<std::uint64_t>(in.integer());
        else
            in.skip();
    }
    // Older reports tell by this text alone that they were stopped.
    if (report->scanDuration == kStopped && report->coverage.ended == ScanEnding())
        report->coverage.ended.how = ScanEnding::How::Stopped;
    complete = hasList && !report->reportId.empty();
    return report;
}

/// Close to the encoded size, so that the buffer seldom moves.
std::size_t estimatedSize(const ReportList& reports)
{
    std::size_t size = 16;
    for (const auto& report : reports) {
        size += 512;
        for (const auto& record : *report->spyWareList)
            size += 108 + record->name().size() + record->infections.size() +
                    2 * record->url.relativePath().size();
    }
    return size;
}

} // namespace

Result<Done> encodeReport(const SpywareScanReport& report, const PieceSink& sink)
{
    constexpr std::size_t kPiece = 1 << 20;
    const SpywareList& records = *report.spyWareList;
    std::string piece, body;
    CborWriter head(piece), out(body);
    for (std::size_t begun = 0, done = 0; begun == 0 || done < records.size(); begun = 1) {
        body.clear();
        const std::size_t first = done;
        while (done < records.size() && body.size() < kPiece)
            writeRecord(out, *records[done++]);
        piece.clear();
        if (begun == 0) {
            head.tag(kSelfDescribedTag).map(headKeys(report) + 3);
            writeHead(head, report);
            head.text(key::kCoverage);
            writeCoverage(head, report.coverage);
            head.text(key::kFindings).integer(static_cast<std::int64_t>(records.size()));
            head.text(key::kSpyWareList);
        }
        head.array(done - first);
        piece += body;
        if (auto taken = sink(piece); !taken)
            return taken;
    }
    return Done{};
}

bool ReportDecoder::add(std::string_view piece)
{
    if (m_damaged || isWhole())
        return false;
    CborReader in(piece);
    bool complete = true;
    if (m_report) {
        const std::size_t before = m_report->spyWareList->size();
        readRecords(in, *m_report->spyWareList, m_texts);
        complete = m_report->spyWareList->size() > before;
    } else {
        static_cast<void>(in.takeTag(kSelfDescribedTag));
        m_report = readReport(in, m_texts, complete, &m_findings);
    }
    m_damaged = !complete || !in.finished() || m_report->spyWareList->size() > m_findings;
    return !m_damaged;
}

bool ReportDecoder::isWhole() const
{
    return m_report && !m_damaged && m_report->spyWareList->size() == m_findings;
}

std::shared_ptr<SpywareScanReport> ReportDecoder::report() const
{
    return isWhole() ? m_report : nullptr;
}

std::string encodeFacts(const SpywareScanReport& report)
{
    std::set<std::string_view> names;
    std::vector<std::string_view> threats;
    for (const auto& record : *report.spyWareList) {
        if (names.insert(record->infections).second)
            threats.push_back(record->infections);
    }
    std::string bytes;
    CborWriter out(bytes);
    out.tag(kSelfDescribedTag).map(headKeys(report) + 5);
    writeHead(out, report);
    out.text(key::kVerdictLine).textOrBytes(report.verdictLine());
    out.text(key::kVerdict).text(wordsFor(report.verdict()).machine);
    out.text(key::kSeconds).real(report.coverage.seconds);
    out.text(key::kFindings).integer(static_cast<std::int64_t>(report.spyWareList->size()));
    out.text(key::kThreats).array(threats.size());
    for (const auto threat : threats)
        out.textOrBytes(threat);
    return bytes;
}

Result<ReportFacts> decodeFacts(std::string_view bytes)
{
    CborReader in(bytes);
    ReportFacts facts;
    static_cast<void>(in.takeTag(kSelfDescribedTag));
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (readHeadField(in, key, facts))
            continue;
        if (key == key::kVerdict) {
            facts.verdict = verdictOfWord(in.string());
            facts.tellsVerdict = true;
        } else if (key == key::kVerdictLine)
            facts.verdictLine = in.string();
        else if (key == key::kFindings)
            facts.findings = static_cast<std::uint64_t>(std::max<std::int64_t>(in.integer(), 0));
        else if (key == key::kThreats)
            facts.threats = readNames(in);
        else if (key == key::kSeconds)
            facts.seconds = in.real();
        else
            in.skip();
    }
    if (!std::isfinite(facts.seconds))
        facts.seconds = 0;
    if (!in.finished() || facts.reportId.empty())
        return Error{"not the facts of a report at byte " + std::to_string(in.offset()) + " of " +
                     std::to_string(bytes.size())};
    return facts;
}

std::string encodeReports(const ReportList& reports)
{
    std::string bytes;
    bytes.reserve(estimatedSize(reports));
    CborWriter out(bytes);
    out.tag(kSelfDescribedTag).array(reports.size());
    for (const auto& report : reports)
        writeReport(out, *report);
    return bytes;
}

Result<ReportList> decodeReports(std::string_view bytes)
{
    CborReader in(bytes);
    ReportList reports;
    SharedTexts texts;
    static_cast<void>(in.takeTag(kSelfDescribedTag));
    auto elements = in.array();
    while (in.more(elements)) {
        bool complete = false;
        reports.push_back(readReport(in, texts, complete));
        if (!complete)
            break;
    }
    if (!in.finished())
        return Error{"not a report list at byte " + std::to_string(in.offset()) + " of " +
                     std::to_string(bytes.size())};
    return reports;
}

} // namespace pryvane
