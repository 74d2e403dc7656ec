#include "reports/RecordAvailability.h"

namespace pryvane {

Presence DiskPresence::of(const SpywareScanReport& report, const Spyware& record)
{
    const std::string& path = record.url.relativePath();
    if (!isSameVolume(report.volume, m_volume) ||
        path.empty()) // an empty path would ask for the root
        return Presence::Unknown;
    const auto [entry, isNew] = m_known.try_emplace(path, Presence::Unknown);
    if (isNew)
        entry->second = m_disk.presence(record.url);
    return entry->second;
}

void followDisk(const ReportList& reports, FileSystem& disk)
{
    DiskPresence presence(disk);
    for (const auto& report : reports) {
        for (const auto& record : *report->spyWareList)
            record->setAvailability(presence.of(*report, *record) == Presence::Present);
    }
}

} // namespace pryvane
