#include "reports/RecordAvailability.h"

#include <algorithm>

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
    if (entry->second != Presence::Present || record.spelling().empty())
        return entry->second;
    // What has a similar name is not what was found.
    const auto [spelled, isFirst] = m_spelled.try_emplace(record.spelling(), true);
    if (isFirst) {
        const auto now = m_disk.spelledPath(FileURL::fileURLWithPath(record.spelling()));
        spelled->second = !now || *now == record.spelling();
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

namespace {

/// The folder and the name of a record that the disk had under the very path that is asked for;
/// none for any other.
struct InFolder {
    std::string_view folder, name;

    explicit InFolder(const Spyware& record)
    {
        const std::string_view path = record.url.relativePath();
        const std::size_t slash = path.rfind('/');
        if (path != record.spelling() || slash == std::string_view::npos ||
            slash + 1 == path.size())
            return;
        folder = path.substr(0, slash + 1);
        name = path.substr(slash + 1);
        if (name == "." || name == "..")
            name = {};
    }
    explicit operator bool() const { return !name.empty(); }
};

} // namespace

std::vector<Presence> presencesOf(const SpywareScanReport& report, FileSystem& disk,
                                  const StopFlag& stop)
{
    constexpr std::size_t kMostAtOnce = 1000; // so that a stop ends it soon
    const SpywareList& records = *report.spyWareList;
    std::vector<Presence> there(records.size(), Presence::Unknown);
    if (!isSameVolume(report.volume, disk.identity()))
        return there;
    DiskPresence others(disk);
    std::vector<std::string_view> names;
    for (std::size_t i = 0; i < records.size() && !stop.requested();) {
        const InFolder first(*records[i]);
        if (!first) {
            there[i] = others.of(report, *records[i]);
            ++i;
            continue;
        }
        names.clear();
        for (std::size_t k = i; k < records.size() && names.size() < kMostAtOnce; ++k) {
            const InFolder next(*records[k]);
            if (next.folder != first.folder)
                break;
            names.push_back(next.name);
        }
        const auto answers = disk.presencesIn(FileURL::fileURLWithPath(first.folder), names);
        std::ranges::copy(answers, there.begin() + static_cast<std::ptrdiff_t>(i));
        i += answers.size();
    }
    return there;
}

void followDisk(SpywareScanReport& report, FileSystem& disk)
{
    const auto there = presencesOf(report, disk, StopFlag());
    const std::string here = disk.identity();
    for (std::size_t i = 0; i < there.size(); ++i) {
        Spyware& record = *(*report.spyWareList)[i];
        record.setPresence(there[i], there[i] == Presence::Unknown
                                         ? whyNotKnown(report, record, here)
                                         : std::string_view());
    }
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
