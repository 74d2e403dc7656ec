#include "reports/pdf/ReportTexts.h"

#include "core/Texts.h"
#include "platform/Machine.h"
#include "reports/RecordAvailability.h"
#include "reports/pdf/PDFGenerate.h"

namespace pryvane::pdf {

namespace {

/// What stands where the machine tells nothing.
constexpr const char* kNullText = "(null)";

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

} // namespace

ReportTexts reportTexts(const SpywareScanReport& report, const PDFFacts& facts, FileSystem& disk,
                        MachineInfo& machine)
{
    ReportTexts texts;
    texts.application =
        facts.applicationName + " " + facts.shortVersion + " (" + facts.buildVersion + ")";
    texts.scanDate = localizedDate(report.scanDate, DateStyle::Medium, TimeStyle::Short);
    texts.facts = {{
        {{{"Mac Name :", machine.computerName().value_or(kNullText)},
          {"Scan Type :", report.reportType}}},
        {{{"Current User :", machine.loginName()},
          {"Scan Started :", localizedDate(report.scanDate, DateStyle::Short, TimeStyle::Medium)}}},
        {{{"Machine Name :", machine.machineModel()}, {"Scan Duration :", report.scanDuration}}},
        {{{"Machine Serial Number :", machine.serialNumber().value_or(kNullText)},
          {"Infections :", std::to_string(report.spyWareCount)}}},
    }};
    DiskPresence presence(disk);
    texts.rows.reserve(report.spyWareList->size());
    for (const auto& record : *report.spyWareList)
        texts.rows.push_back({record->url.relativePath(), record->infections, record->risk,
                              statusText(presence.of(report, *record))});
    return texts;
}

} // namespace pryvane::pdf
