#include "support/ReportFixtures.h"

#include "core/Escape.h"
#include "reports/ReportExport.h"

#include <sstream>

namespace pryvane::test {

Presence CountingDisk::presence(const FileURL& url)
{
    ++asked[url.relativePath()];
    return paths.contains(url.absolutePath()) ? Presence::Present : Presence::Absent;
}

FileKind CountingDisk::kind(const FileURL& url)
{
    return paths.contains(url.absolutePath()) ? FileKind::RegularFile : FileKind::Missing;
}

std::shared_ptr<Spyware> recordAt(std::string_view path)
{
    auto record = std::make_shared<Spyware>();
    record->url = FileURL::fileURLWithPath(path);
    record->setName(record->url.lastPathComponent());
    record->infections = "Okaz Installer";
    record->size = 4096;
    record->risk = kHighRisk;
    record->setPresence(Presence::Present);
    return record;
}

std::shared_ptr<SpywareScanReport> reportOf(const std::vector<std::string>& paths)
{
    auto list = std::make_shared<SpywareList>();
    for (const auto& path : paths)
        list->push_back(recordAt(path));
    auto report = SpywareScanReport::ScanReportWithSpywareList(
        list, kReportDate, " 2 seconds", "Quick Scan", kReportDate + std::chrono::hours(1));
    report->volume = "volume-1";
    auto& subject = report->subject;
    subject.source = {DiskSource::Kind::Folder, "mac-disk"};
    subject.computerName = "Alice's Mac";
    subject.systemVersion = "13.4 (22F66)";
    subject.users = {"alice"};
    report->coverage.signaturesTested = 534;
    return report;
}

void fillTexts(SpywareScanReport& report, const std::vector<std::string>& texts)
{
    const std::string& text = texts.front();
    report.labels = {texts[0], texts[1], texts[2]};
    ScanCoverage& coverage = report.coverage;
    for (const std::string& each : texts) {
        coverage.refused.push_back({"/" + each, each});
        coverage.deleted.push_back({"/" + each, each});
    }
    coverage.heldBack = coverage.homes = coverage.homesLeftOut = coverage.otherDisks = texts;
    coverage.missingHome = text;
    coverage.source = {"a list of names", text, text, 7, 2, texts, text, "abc"};
    report.subject.source.name = report.subject.computerName = text;
    report.subject.users = texts;
    report.scanDuration = report.reportType = report.reportId = text;
}

std::string randomName(std::mt19937& random)
{
    std::string name(std::uniform_int_distribution<std::size_t>(1, 255)(random), ' ');
    for (char& c : name) {
        do {
            c = static_cast<char>(random());
        } while (c == '\0' || c == '/');
    }
    return name;
}

const std::vector<std::string>& hostileNames()
{
    static const std::vector<std::string> names = {
        "new\nline",
        "\x1b[31mred\x1b]0;title\x07",
        "not\xff\xfeutf8",
        "caf\xc3\xa9",  // composed
        "cafe\xcc\x81", // decomposed
        "\xe2\x80\xae"
        "fdp.exe", // right-to-left override
        "<img src=x onerror=alert(1)>",
        "\"quoted\" & 'quoted', with comma",
        "%1 %s %n %00",
        "-rf",
        "=HYPERLINK(\"http://example.invalid\")",
        "+1",
        "@SUM(A1)",
        "\t=1",
        "\r=1",
        "back\\slash",
        " ",
        ".",
    };
    return names;
}

bool isHarmless(std::string_view text, std::string_view allowedControls)
{
    while (!text.empty()) {
        char32_t c = 0;
        const std::size_t length = decodeUtf8(text, c);
        if (length == 0)
            return false;
        const bool control = c < 0x20 || (c >= 0x7f && c <= 0x9f);
        if (control && allowedControls.find(text[0]) == std::string_view::npos)
            return false;
        if (c == 0x61c || c == 0x200e || c == 0x200f || (c >= 0x2028 && c <= 0x202e) ||
            (c >= 0x2066 && c <= 0x2069))
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string storedFields(const SpywareScanReport& report)
{
    const auto moment = [](DiskMoment of) { return of ? iso8601(*of) : "-"; };
    std::ostringstream out;
    for (const auto& record : *report.spyWareList)
        out << record->name() << '|' << record->infections << '|' << record->size << '|'
            << record->url.relativePath() << '|' << record->risk << '|' << kindWord(record->kind)
            << moment(record->times.birth) << moment(record->times.modified)
            << moment(record->times.changed) << record->sha256 << record->spelling() << '\n';
    SpywareScanReport rest = report;
    rest.spyWareList = std::make_shared<SpywareList>();
    rest.spyWareCount &= 0xff;
    writeAsJson(rest, [&](std::string_view bytes) { out << bytes; });
    return out.str();
}

} // namespace pryvane::test
