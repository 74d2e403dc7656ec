#include "reports/ReportCodec.h"

#include "reports/CborReader.h"
#include "reports/CborWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <utility>

namespace pryvane {

namespace {

constexpr std::uint64_t kSelfDescribedTag = 55799;
constexpr std::uint64_t kEpochTag = 1; ///< seconds since 1970 follow
constexpr std::uint64_t kCountMask = 0xff;

namespace key {
constexpr std::string_view kSpyWareCount = "spyWareCount", kReportType = "reportType",
                           kScanDate = "scanDate", kSpyWareList = "spyWareList",
                           kScanDuration = "scanDuration", kReportId = "reportId", kIsRed = "isRed",
                           kVolume = "volume", kCoverage = "coverage", kFindings = "findings",
                           kThreats = "threats", kSubject = "subject", kVerdict = "verdict",
                           kVerdictLine = "verdictLine";
constexpr std::string_view kSource = "source", kVolumeName = "volumeName",
                           kComputerName = "computerName", kSystemVersion = "systemVersion",
                           kUsers = "users";
constexpr std::string_view kName = "name", kIsChecked = "isChecked", kInfections = "infections",
                           kSize = "size", kUrl = "url", kRisk = "risk", kPath = "path",
                           kKind = "kind", kUser = "user", kSpelling = "spelling";
constexpr std::string_view kSignaturesTested = "signaturesTested", kFoldersListed = "foldersListed",
                           kEntriesSearched = "entriesSearched", kEntriesWalked = "entriesWalked",
                           kRefused = "refused", kReason = "reason", kHeldBack = "heldBack",
                           kSystemVolumeLeftOut = "systemVolumeLeftOut",
                           kMissingHome = "missingHome", kHomes = "homes",
                           kHomesLeftOut = "homesLeftOut", kOtherDisks = "otherDisks",
                           kSeconds = "seconds", kEnded = "ended", kHow = "how",
                           kPercent = "percent", kDeleted = "deleted", kFormat = "format",
                           kEntries = "entries", kSkipped = "skipped",
                           kFirstSkipped = "firstSkipped", kRemark = "remark", kSha256 = "sha256";
} // namespace key

/// The years 1700 to 2199: no scan was ever made outside them, and every clock can count them.
constexpr double kFirstSecond = -8520336000.0, kLastSecond = 7258118399.0;

void writeDate(CborWriter& out, Date date)
{
    const auto milliseconds = date.time_since_epoch().count();
    out.tag(kEpochTag);
    if (milliseconds % 1000 == 0)
        out.integer(milliseconds / 1000);
    else
        out.real(static_cast<double>(milliseconds) / 1000);
}

Date readDate(CborReader& in)
{
    static_cast<void>(in.takeTag(kEpochTag));
    const double seconds = in.real();
    if (std::isnan(seconds))
        return {};
    return Date(
        Date::duration(std::llround(std::clamp(seconds, kFirstSecond, kLastSecond) * 1000)));
}

/// The kinds as they are stored. A kind that another version wrote reads as unknown.
constexpr std::array<std::pair<FileKind, std::string_view>, 4> kKinds = {{
    {FileKind::RegularFile, "file"},
    {FileKind::Folder, "folder"},
    {FileKind::SymbolicLink, "link"},
    {FileKind::Other, "other"},
}};

std::string_view kindText(FileKind kind)
{
    for (const auto& [known, text] : kKinds) {
        if (known == kind)
            return text;
    }
    return "unknown";
}

FileKind kindOf(std::string_view stored)
{
    for (const auto& [kind, text] : kKinds) {
        if (text == stored)
            return kind;
    }
    return FileKind::Unknown;
}

/// A spelling that is the location's own is stored as nothing.
bool isAsLocated(std::string_view spelling, const FileURL& url)
{
    return spelling.starts_with('/') && spelling.substr(1) == url.identity();
}

void writeRecord(CborWriter& out, const Spyware& record)
{
    out.map(record.spelling.empty() ? 9 : 10);
    out.text(key::kName).textOrBytes(record.name);
    out.text(key::kIsChecked).boolean(record.isChecked);
    out.text(key::kInfections).textOrBytes(record.infections);
    out.text(key::kSize).integer(record.size);
    out.text(key::kUrl).text(record.url.urlText());
    out.text(key::kRisk).textOrBytes(record.risk);
    out.text(key::kPath).bytes(record.url.relativePath());
    out.text(key::kKind).text(kindText(record.kind));
    out.text(key::kUser).bytes(record.user);
    if (!record.spelling.empty()) {
        const bool asLocated = isAsLocated(record.spelling, record.url);
        out.text(key::kSpelling).bytes(asLocated ? std::string_view() : record.spelling);
    }
}

/// The stored "isChecked" is not read: whether a record is selected follows the disk.
std::shared_ptr<Spyware> readRecord(CborReader& in)
{
    auto record = std::make_shared<Spyware>();
    std::optional<std::string_view> path;
    std::optional<std::string_view> spelling;
    std::string_view url;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kName)
            record->name = in.string();
        else if (key == key::kSpelling)
            spelling = in.string();
        else if (key == key::kInfections)
            record->infections = in.string();
        else if (key == key::kSize)
            record->size = in.integer();
        else if (key == key::kUrl)
            url = in.string();
        else if (key == key::kRisk)
            record->risk = in.string();
        else if (key == key::kPath)
            path = in.string();
        else if (key == key::kUser)
            record->user = in.string();
        else if (key == key::kKind)
            record->kind = kindOf(in.string());
        else
            in.skip();
    }
    // No file has a NUL in its path, and the system would take that for a shorter one that may be
    // another file.
    const bool isNone = path ? path->find('\0') != std::string_view::npos
                             : url.find('\0') != std::string_view::npos ||
                                   url.find("%00") != std::string_view::npos;
    if (!isNone)
        record->url = path ? FileURL::fileURLWithPath(*path) : FileURL::fromUrlText(url);
    if (spelling && spelling->find('\0') == std::string_view::npos)
        record->setSpelling(spelling->empty() ? "/" + std::string(record->url.identity())
                                              : std::string(*spelling));
    return record;
}

void writeNames(CborWriter& out, const std::vector<std::string>& names)
{
    out.array(names.size());
    for (const auto& name : names)
        out.bytes(name);
}

std::vector<std::string> readNames(CborReader& in)
{
    std::vector<std::string> names;
    auto elements = in.array();
    while (in.more(elements))
        names.emplace_back(in.string());
    return names;
}

/// How a scan ends, as it is stored. What another version wrote reads as finished.
constexpr std::array<std::pair<ScanEnding::How, std::string_view>, 3> kEndings = {{
    {ScanEnding::How::Finished, "finished"},
    {ScanEnding::How::Stopped, "stopped"},
    {ScanEnding::How::GrantFailed, "grantFailed"},
}};

void writeEnding(CborWriter& out, const ScanEnding& ended)
{
    out.map(2);
    for (const auto& [how, text] : kEndings) {
        if (how == ended.how)
            out.text(key::kHow).text(text);
    }
    out.text(key::kPercent).integer(ended.percent);
}

ScanEnding readEnding(CborReader& in)
{
    ScanEnding ended;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kHow) {
            const std::string_view stored = in.string();
            for (const auto& [how, text] : kEndings) {
                if (text == stored)
                    ended.how = how;
            }
        } else if (key == key::kPercent)
            ended.percent = static_cast<int>(
                std::clamp<std::int64_t>(in.integer(), ScanEnding::kNotKnown, 100));
        else
            in.skip();
    }
    return ended;
}

void writeSubject(CborWriter& out, const Subject& subject)
{
    out.map(5);
    out.text(key::kSource).text(sourceWord(subject.source.kind));
    out.text(key::kVolumeName).bytes(subject.source.name);
    out.text(key::kComputerName).textOrBytes(subject.computerName);
    out.text(key::kSystemVersion).textOrBytes(subject.systemVersion);
    out.text(key::kUsers);
    writeNames(out, subject.users);
}

Subject readSubject(CborReader& in)
{
    Subject subject;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kSource)
            subject.source.kind = sourceOfWord(in.string());
        else if (key == key::kVolumeName)
            subject.source.name = in.string();
        else if (key == key::kComputerName)
            subject.computerName = in.string();
        else if (key == key::kSystemVersion)
            subject.systemVersion = in.string();
        else if (key == key::kUsers)
            subject.users = readNames(in);
        else
            in.skip();
    }
    return subject;
}

void writeSource(CborWriter& out, const SourceFacts& source)
{
    out.map(8);
    out.text(key::kSource).textOrBytes(source.source);
    out.text(key::kName).bytes(source.name);
    out.text(key::kFormat).bytes(source.format);
    out.text(key::kEntries).integer(source.entries);
    out.text(key::kSkipped).integer(source.skipped);
    out.text(key::kFirstSkipped);
    writeNames(out, source.firstSkipped);
    out.text(key::kRemark).textOrBytes(source.remark);
    out.text(key::kSha256).textOrBytes(source.sha256);
}

SourceFacts readSource(CborReader& in)
{
    SourceFacts source;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kSource)
            source.source = in.string();
        else if (key == key::kName)
            source.name = in.string();
        else if (key == key::kFormat)
            source.format = in.string();
        else if (key == key::kEntries)
            source.entries = in.integer();
        else if (key == key::kSkipped)
            source.skipped = in.integer();
        else if (key == key::kFirstSkipped)
            source.firstSkipped = readNames(in);
        else if (key == key::kRemark)
            source.remark = in.string();
        else if (key == key::kSha256)
            source.sha256 = in.string();
        else
            in.skip();
    }
    return source;
}

std::vector<DeletedName> readDeleted(CborReader& in)
{
    std::vector<DeletedName> names;
    auto elements = in.array();
    while (in.more(elements)) {
        DeletedName& name = names.emplace_back();
        auto fields = in.map();
        while (in.more(fields)) {
            const std::string_view key = in.key();
            if (key == key::kPath)
                name.path = in.string();
            else if (key == key::kInfections)
                name.infections = in.string();
            else
                in.skip();
        }
    }
    return names;
}

void writeCoverage(CborWriter& out, const ScanCoverage& coverage)
{
    out.map(coverage.otherDisks.empty() ? 14 : 15);
    out.text(key::kEnded);
    writeEnding(out, coverage.ended);
    out.text(key::kSignaturesTested).integer(coverage.signaturesTested);
    out.text(key::kSystemVolumeLeftOut).integer(coverage.systemVolumeLeftOut);
    out.text(key::kFoldersListed).integer(coverage.foldersListed);
    out.text(key::kEntriesSearched).integer(coverage.entriesSearched);
    out.text(key::kEntriesWalked).integer(coverage.entriesWalked);
    out.text(key::kRefused).array(coverage.refused.size());
    for (const Refusal& refusal : coverage.refused) {
        out.map(2);
        out.text(key::kPath).bytes(refusal.path);
        out.text(key::kReason).textOrBytes(refusal.reason);
    }
    out.text(key::kHeldBack);
    writeNames(out, coverage.heldBack);
    out.text(key::kMissingHome).bytes(coverage.missingHome);
    out.text(key::kHomes);
    writeNames(out, coverage.homes);
    out.text(key::kHomesLeftOut);
    writeNames(out, coverage.homesLeftOut);
    if (!coverage.otherDisks.empty()) {
        out.text(key::kOtherDisks);
        writeNames(out, coverage.otherDisks);
    }
    out.text(key::kSource);
    writeSource(out, coverage.source);
    out.text(key::kDeleted).array(coverage.deleted.size());
    for (const DeletedName& name : coverage.deleted) {
        out.map(2);
        out.text(key::kPath).bytes(name.path);
        out.text(key::kInfections).textOrBytes(name.infections);
    }
    out.text(key::kSeconds).real(coverage.seconds);
}

Refusal readRefusal(CborReader& in)
{
    Refusal refusal;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kPath)
            refusal.path = in.string();
        else if (key == key::kReason)
            refusal.reason = in.string();
        else
            in.skip();
    }
    return refusal;
}

std::vector<Refusal> readRefusals(CborReader& in)
{
    std::vector<Refusal> refusals;
    auto elements = in.array();
    while (in.more(elements))
        refusals.push_back(readRefusal(in));
    return refusals;
}

ScanCoverage readCoverage(CborReader& in)
{
    ScanCoverage coverage;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kSignaturesTested)
            coverage.signaturesTested = in.integer();
        else if (key == key::kSystemVolumeLeftOut)
            coverage.systemVolumeLeftOut = in.integer();
        else if (key == key::kFoldersListed)
            coverage.foldersListed = in.integer();
        else if (key == key::kEntriesSearched)
            coverage.entriesSearched = in.integer();
        else if (key == key::kEntriesWalked)
            coverage.entriesWalked = in.integer();
        else if (key == key::kRefused)
            coverage.refused = readRefusals(in);
        else if (key == key::kHeldBack)
            coverage.heldBack = readNames(in);
        else if (key == key::kMissingHome)
            coverage.missingHome = in.string();
        else if (key == key::kHomes)
            coverage.homes = readNames(in);
        else if (key == key::kHomesLeftOut)
            coverage.homesLeftOut = readNames(in);
        else if (key == key::kOtherDisks)
            coverage.otherDisks = readNames(in);
        else if (key == key::kSource)
            coverage.source = readSource(in);
        else if (key == key::kDeleted)
            coverage.deleted = readDeleted(in);
        else if (key == key::kEnded)
            coverage.ended = readEnding(in);
        else if (key == key::kSeconds)
            coverage.seconds = in.real();
        else
            in.skip();
    }
    if (!std::isfinite(coverage.seconds))
        coverage.seconds = 0;
    return coverage;
}

/// What both forms of a report have in common; the list and its count are still to be written.
void writeHead(CborWriter& out, const SpywareScanReport& report)
{
    out.text(key::kSpyWareCount)
        .integer(static_cast<std::int64_t>(report.spyWareCount & kCountMask));
    out.text(key::kReportType).textOrBytes(report.reportType);
    out.text(key::kScanDate);
    writeDate(out, report.scanDate);
    out.text(key::kScanDuration).textOrBytes(report.scanDuration);
    out.text(key::kReportId).textOrBytes(report.reportId);
    out.text(key::kIsRed).boolean(report.isRed);
    out.text(key::kVolume).bytes(report.volume);
    out.text(key::kSubject);
    writeSubject(out, report.subject);
}

void writeReport(CborWriter& out, const SpywareScanReport& report)
{
    out.map(10);
    writeHead(out, report);
    out.text(key::kCoverage);
    writeCoverage(out, report.coverage);
    out.text(key::kSpyWareList).array(report.spyWareList->size());
    for (const auto& record : *report.spyWareList)
        writeRecord(out, *record);
}

void readRecords(CborReader& in, SpywareList& records)
{
    auto elements = in.array();
    while (in.more(elements))
        records.push_back(readRecord(in));
}

/// `complete` tells whether the map held what makes a report one.
std::shared_ptr<SpywareScanReport> readReport(CborReader& in, bool& complete,
                                              std::uint64_t* findings = nullptr)
{
    auto report = std::make_shared<SpywareScanReport>();
    bool hasList = false;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kSpyWareCount)
            report->spyWareCount = static_cast<std::uint64_t>(in.integer()) & kCountMask;
        else if (key == key::kReportType)
            report->reportType = in.string();
        else if (key == key::kScanDate)
            report->scanDate = readDate(in);
        else if (key == key::kScanDuration)
            report->scanDuration = in.string();
        else if (key == key::kReportId)
            report->reportId = in.string();
        else if (key == key::kIsRed)
            report->isRed = in.boolean();
        else if (key == key::kVolume)
            report->volume = in.string();
        else if (key == key::kSubject)
            report->subject = readSubject(in);
        else if (key == key::kCoverage)
            report->coverage = readCoverage(in);
        else if (key == key::kSpyWareList) {
            hasList = true;
            report->spyWareList->clear();
            readRecords(in, *report->spyWareList);
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
            size += 108 + record->name.size() + record->infections.size() +
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
            head.tag(kSelfDescribedTag).map(11);
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
        readRecords(in, *m_report->spyWareList);
        complete = m_report->spyWareList->size() > before;
    } else {
        static_cast<void>(in.takeTag(kSelfDescribedTag));
        m_report = readReport(in, complete, &m_findings);
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
    out.tag(kSelfDescribedTag).map(12);
    writeHead(out, report);
    out.text(key::kVerdictLine).textOrBytes(report.verdictLine());
    out.text(key::kVerdict).text(wordsFor(report.verdict()).machine);
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
        if (key == key::kSpyWareCount)
            facts.spyWareCount = static_cast<std::uint64_t>(in.integer()) & kCountMask;
        else if (key == key::kReportType)
            facts.reportType = in.string();
        else if (key == key::kScanDate)
            facts.scanDate = readDate(in);
        else if (key == key::kScanDuration)
            facts.scanDuration = in.string();
        else if (key == key::kReportId)
            facts.reportId = in.string();
        else if (key == key::kIsRed)
            facts.isRed = in.boolean();
        else if (key == key::kVolume)
            facts.volume = in.string();
        else if (key == key::kSubject)
            facts.subject = readSubject(in);
        else if (key == key::kVerdict) {
            facts.verdict = verdictOfWord(in.string());
            facts.tellsVerdict = true;
        } else if (key == key::kVerdictLine)
            facts.verdictLine = in.string();
        else if (key == key::kFindings)
            facts.findings = static_cast<std::uint64_t>(std::max<std::int64_t>(in.integer(), 0));
        else if (key == key::kThreats)
            facts.threats = readNames(in);
        else
            in.skip();
    }
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
    static_cast<void>(in.takeTag(kSelfDescribedTag));
    auto elements = in.array();
    while (in.more(elements)) {
        bool complete = false;
        reports.push_back(readReport(in, complete));
        if (!complete)
            break;
    }
    if (!in.finished())
        return Error{"not a report list at byte " + std::to_string(in.offset()) + " of " +
                     std::to_string(bytes.size())};
    return reports;
}

} // namespace pryvane
