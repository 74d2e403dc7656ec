#include "reports/RecordAvailability.h"

#include "platform/FileSystem.h"

#include <string_view>
#include <unordered_map>

namespace pryvane {

void followDisk(const ReportList& reports, FileSystem& disk)
{
    const std::string volume = disk.identity();
    // By the path as given: a trailing slash asks for a folder, which is a test of its own. The
    // views stay valid because a record's location never changes.
    std::unordered_map<std::string_view, bool> known;
    for (const auto& report : reports) {
        const bool sameVolume = report->volume == volume;
        for (const auto& record : *report->spyWareList) {
            if (!sameVolume) {
                record->setAvailability(false);
                continue;
            }
            const auto [entry, isNew] = known.try_emplace(record->url.relativePath(), false);
            if (isNew) // an empty path, from a damaged value, would ask for the root
                entry->second = !entry->first.empty() && disk.exists(record->url);
            record->setAvailability(entry->second);
        }
    }
}

} // namespace pryvane
