#include "scan/walker/WalkNotifications.h"

#include "core/NotificationCenter.h"
#include "findings/ScanCoverage.h"
#include "findings/Spyware.h"
#include "signatures/Catalogue.h"
#include "signatures/CheckRunner.h"

#include <charconv>

namespace pryvane {

bool WalkNotifications::wantsLocations() const
{
    return m_center.hasObservers(NotificationName::ScanningProgressURL);
}

void WalkNotifications::counting(std::int64_t totalCount)
{
    char text[20];
    const auto end = std::to_chars(std::begin(text), std::end(text), totalCount);
    location(std::string_view(text, static_cast<std::size_t>(end.ptr - text)));
}

void WalkNotifications::location(std::string_view path)
{
    m_center.post(NotificationName::ScanningProgressURL, path);
}

void WalkNotifications::progress(std::int64_t steps)
{
    m_center.post(NotificationName::UpdateThreat);
    m_center.post(NotificationName::ScanningProgress, steps);
}

void WalkNotifications::match(std::string_view path, std::string_view name, const SeenEntry& seen)
{
    m_findings.addSeen(FileURL::fileURLWithPath(path), name, catalogue::kFullSystem, kHighRisk, 0,
                       seen);
}

void WalkNotifications::refused(std::string_view path, std::string_view reason)
{
    m_coverage.refused.push_back({std::string(path), std::string(reason)});
}

void WalkNotifications::otherDisk(std::string_view path)
{
    m_coverage.otherDisks.emplace_back(path);
}

} // namespace pryvane
