#include "reports/ReportFields.h"

#include "reports/SpywareScanReport.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace pryvane::stored {

namespace key {
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
                           kEnded = "ended", kHow = "how", kPercent = "percent",
                           kDeleted = "deleted", kFormat = "format", kEntries = "entries",
                           kSkipped = "skipped", kFirstSkipped = "firstSkipped", kRemark = "remark",
                           kSha256 = "sha256";
} // namespace key

namespace {

constexpr std::uint64_t kEpochTag = 1; ///< seconds since 1970 follow

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

void writeNames(CborWriter& out, const std::vector<std::string>& names)
{
    out.array(names.size());
    for (const auto& name : names)
        out.bytes(name);
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

} // namespace

Date readDate(CborReader& in)
{
    static_cast<void>(in.takeTag(kEpochTag));
    const double seconds = in.real();
    if (std::isnan(seconds))
        return {};
    return Date(
        Date::duration(std::llround(std::clamp(seconds, kFirstSecond, kLastSecond) * 1000)));
}

std::vector<std::string> readNames(CborReader& in)
{
    std::vector<std::string> names;
    auto elements = in.array();
    while (in.more(elements))
        names.emplace_back(in.string());
    return names;
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

void writeRecord(CborWriter& out, const Spyware& record)
{
    const std::string_view spelling = record.spelling();
    out.map(spelling.empty() ? 9 : 10);
    out.text(key::kName).textOrBytes(record.name());
    out.text(key::kIsChecked).boolean(record.isChecked);
    out.text(key::kInfections).textOrBytes(record.infections);
    out.text(key::kSize).integer(record.size);
    out.text(key::kUrl).text(record.url.urlText());
    out.text(key::kRisk).textOrBytes(record.risk);
    out.text(key::kPath).bytes(record.url.relativePath());
    out.text(key::kKind).text(kindText(record.kind));
    out.text(key::kUser).bytes(record.user);
    if (!spelling.empty())
        out.text(key::kSpelling)
            .bytes(isAsLocated(spelling, record.url) ? std::string_view() : spelling);
}

std::shared_ptr<Spyware> readRecord(CborReader& in, SharedTexts& texts)
{
    auto record = std::make_shared<Spyware>();
    std::string_view name;
    std::optional<std::string_view> path;
    std::optional<std::string_view> spelling;
    std::string_view url;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kName)
            name = in.string();
        else if (key == key::kSpelling)
            spelling = in.string();
        else if (key == key::kInfections)
            record->infections = texts.of(in.string());
        else if (key == key::kSize)
            record->size = in.integer();
        else if (key == key::kUrl)
            url = in.string();
        else if (key == key::kRisk)
            record->risk = texts.of(in.string());
        else if (key == key::kPath)
            path = in.string();
        else if (key == key::kUser)
            record->user = texts.of(in.string());
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
    record->setName(name);
    if (spelling && spelling->find('\0') == std::string_view::npos)
        record->setSpelling(spelling->empty() ? "/" + std::string(record->url.identity())
                                              : std::string(*spelling));
    return record;
}

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

} // namespace pryvane::stored
