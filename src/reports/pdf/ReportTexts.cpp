#include "reports/pdf/ReportTexts.h"

#include "core/Texts.h"
#include "platform/Machine.h"
#include "reports/RecordAvailability.h"
#include "reports/pdf/PDFGenerate.h"

namespace pryvane::pdf {

namespace {

/// What stands where the machine tells nothing.
constexpr const char* kNullText = "(null)";

struct MachineFacts {
    std::string name, user, model, serialNumber;
};

MachineFacts factsOf(MachineInfo& machine)
{
    return {machine.computerName().value_or(kNullText), machine.loginName(), machine.machineModel(),
            machine.serialNumber().value_or(kNullText)};
}

/// What a disk tells of the Mac that it is from; the machine that prints is another one.
MachineFacts factsOf(const Subject& subject)
{
    return {subject.computerName.empty() ? kNotKnown : subject.computerName, userNames(subject),
            kNotKnown, kNotKnown};
}

/// An older report does not say what it is about, but its volume may.
bool isOfThisMac(const SpywareScanReport& report, FileSystem& disk)
{
    if (report.subject.isKnown())
        return report.subject.source.kind == DiskSource::Kind::ThisMac;
    return disk.source().kind == DiskSource::Kind::ThisMac &&
           isSameVolume(report.volume, disk.identity());
}

const char* statusText(Presence presence)
{
    switch (presence) {
    case Presence::Present:
        return kNotQuarantined;
    case Presence::Absent:
        return kQuarantined;
    case Presence::Unknown:
        break;
    }
    return kNotChecked;
}

/// The table has no column for it, and where one user was looked at it goes without saying.
std::string pathText(const SpywareScanReport& report, const Spyware& record)
{
    if (report.subject.users.size() < 2)
        return record.url.relativePath();
    return record.url.relativePath() + " (" + std::string(whoseText(record)) + ")";
}

/// What belongs to the report and has no place in its table: where the names of the disk came from,
/// and what they call deleted.
std::vector<std::string> remarksOf(const SpywareScanReport& report)
{
    std::vector<std::string> remarks;
    for (const auto& [name, text] : labelLines(report.labels))
        remarks.push_back(std::string(name) + ": " + std::string(text));
    if (std::string read = contentsText(report.coverage); !read.empty())
        remarks.push_back(std::move(read));
    for (const auto& [label, words] : sourceLines(report.coverage.source))
        remarks.push_back(label + ": " + words);
    for (const DeletedName& name : report.coverage.deleted)
        remarks.push_back("Deleted, but still named: " + name.path + " (" + name.infections + ")");
    return remarks;
}

} // namespace

ReportTexts reportTexts(const SpywareScanReport& report, const PDFFacts& facts, FileSystem& disk,
                        MachineInfo& machine)
{
    ReportTexts texts;
    texts.application =
        facts.applicationName + " " + facts.shortVersion + " (" + facts.buildVersion + ")";
    texts.scanDate = localizedDate(report.scanDate, DateStyle::Medium, TimeStyle::Short);
    const MachineFacts mac = isOfThisMac(report, disk) ? factsOf(machine) : factsOf(report.subject);
    texts.verdict = report.verdictLine();
    texts.remarks = remarksOf(report);
    texts.facts = {{
        {{{"Mac Name :", mac.name}, {"Scan Type :", report.reportType}}},
        {{{"Current User :", mac.user},
          {"Scan Started :", localizedDate(report.scanDate, DateStyle::Short, TimeStyle::Medium)}}},
        {{{"Machine Name :", mac.model}, {"Scan Duration :", report.scanDuration}}},
        {{{"Machine Serial Number :", mac.serialNumber}, {"Infections :", report.countText()}}},
    }};
    const auto there = presencesOf(report, disk, StopFlag());
    texts.rows.reserve(report.spyWareList->size());
    for (std::size_t i = 0; i < there.size(); ++i) {
        const Spyware& record = *(*report.spyWareList)[i];
        texts.rows.push_back({pathText(report, record), std::string(record.infections),
                              std::string(record.risk), statusText(there[i])});
    }
    return texts;
}

} // namespace pryvane::pdf
