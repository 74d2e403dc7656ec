#include "reports/RecordAvailability.h"

namespace pryvane {

std::string_view whyNotAsked(const SpywareScanReport& report, std::string_view here)
{
    if (isSameVolume(report.volume, here))
        return {};
    return report.volume.empty() || here.empty()
               ? "it cannot be told whether the report is of this disk"
               : "the report is of another volume";
}

Presence DiskPresence::of(const SpywareScanReport& report, const Spyware& record)
{
    const std::string& path = record.url.relativePath();
    if (!isSameVolume(report.volume, m_volume) ||
        path.empty()) // an empty path would ask for the root
        return Presence::Unknown;
    const auto [entry, isNew] = m_known.try_emplace(path, Presence::Unknown);
    if (isNew)
        entry->second = m_disk.presence(record.url);
    if (entry->second != Presence::Present || record.spelling.empty())
        return entry->second;
    // What has a similar name is not what was found.
    const auto [spelled, isFirst] = m_spelled.try_emplace(record.spelling, true);
    if (isFirst) {
        const auto now = m_disk.spelledPath(FileURL::fileURLWithPath(record.spelling));
        spelled->second = !now || *now == record.spelling;
    }
    return spelled->second ? Presence::Present : Presence::Absent;
}

std::string_view whyNotKnown(const SpywareScanReport& report, const Spyware& record,
                             std::string_view here)
{
    if (const auto why = whyNotAsked(report, here); !why.empty())
        return why;
    return record.url.relativePath().empty() ? "its path is damaged" : kUnsearchable;
}

void followDisk(const ReportList& reports, FileSystem& disk)
{
    DiskPresence presence(disk);
    const std::string here = disk.identity();
    for (const auto& report : reports) {
        for (const auto& record : *report->spyWareList)
            record->setPresence(presence.of(*report, *record), whyNotKnown(*report, *record, here));
    }
}

} // namespace pryvane
