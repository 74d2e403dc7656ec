#include "reports/ReportFields.h"

#include "reports/SpywareScanReport.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace pryvane::stored {

namespace key {
constexpr std::string_view kVolumeName = "volumeName", kComputerName = "computerName",
                           kSystemVersion = "systemVersion", kUsers = "users";
constexpr std::string_view kIsChecked = "isChecked", kSize = "size", kUrl = "url", kRisk = "risk",
                           kKind = "kind", kUser = "user", kSpelling = "spelling", kBirth = "birth",
                           kModified = "modified", kChanged = "changed", kSha256 = "sha256";
constexpr std::string_view kLabel = "label", kCase = "case", kExaminer = "examiner";
} // namespace key

namespace {

constexpr std::size_t kHeadKeys = 8;   ///< without labels
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

/// The moments that are known, as they are stored: milliseconds since 1970.
std::array<std::pair<std::string_view, DiskMoment>, 3> timeFields(const FileTimes& times)
{
    return {{{key::kBirth, times.birth},
             {key::kModified, times.modified},
             {key::kChanged, times.changed}}};
}

/// False, with nothing read, where the key is none of a moment.
bool readTime(CborReader& in, std::string_view key, FileTimes& times)
{
    DiskMoment* const moment = key == key::kBirth      ? &times.birth
                               : key == key::kModified ? &times.modified
                               : key == key::kChanged  ? &times.changed
                                                       : nullptr;
    if (moment == nullptr)
        return false;
    const std::int64_t milliseconds = in.integer();
    *moment = DiskMoment::of(milliseconds / 1000, 0);
    if (*moment)
        *moment = Date(std::chrono::milliseconds(milliseconds));
    return true;
}

/// Empty for what is none.
std::string_view hashOf(std::string_view stored)
{
    constexpr std::size_t kDigits = 64;
    const bool isHash = stored.size() == kDigits &&
                        stored.find_first_not_of("0123456789abcdef") == std::string_view::npos;
    return isHash ? stored : std::string_view();
}

void writeLabels(CborWriter& out, const CaseLabels& labels)
{
    out.map(3);
    out.text(key::kLabel).textOrBytes(labels.label);
    out.text(key::kCase).textOrBytes(labels.caseName);
    out.text(key::kExaminer).textOrBytes(labels.examiner);
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

} // namespace

void writeNames(CborWriter& out, const std::vector<std::string>& names)
{
    out.array(names.size());
    for (const auto& name : names)
        out.bytes(name);
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

CaseLabels readLabels(CborReader& in)
{
    CaseLabels labels;
    auto fields = in.map();
    while (in.more(fields)) {
        const std::string_view key = in.key();
        if (key == key::kLabel)
            labels.label = in.string();
        else if (key == key::kCase)
            labels.caseName = in.string();
        else if (key == key::kExaminer)
            labels.examiner = in.string();
        else
            in.skip();
    }
    return labels;
}

void writeRecord(CborWriter& out, const Spyware& record)
{
    const std::string_view spelling = record.spelling();
    std::size_t keys = spelling.empty() ? 9 : 10;
    for (const auto& [name, moment] : timeFields(record.times))
        keys += moment ? 1 : 0;
    out.map(keys + (record.sha256.empty() ? 0 : 1));
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
    for (const auto& [name, moment] : timeFields(record.times)) {
        if (moment)
            out.text(name).integer((*moment).time_since_epoch().count());
    }
    if (!record.sha256.empty())
        out.text(key::kSha256).text(record.sha256);
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
        else if (key == key::kSha256)
            record->sha256 = hashOf(in.string());
        else if (!readTime(in, key, record->times))
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

std::size_t headKeys(const SpywareScanReport& report)
{
    return kHeadKeys + (report.labels == CaseLabels() ? 0 : 1);
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
    if (headKeys(report) > kHeadKeys) {
        out.text(key::kLabels);
        writeLabels(out, report.labels);
    }
}

} // namespace pryvane::stored
