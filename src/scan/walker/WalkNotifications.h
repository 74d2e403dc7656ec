#pragma once

#include "scan/walker/WalkObserver.h"

namespace pryvane {

class FindingSink;
class NotificationCenter;
struct ScanCoverage;

/// Posts what a deep walk tells as the notifications of the scan, hands matches to the result
/// list's entrance, and notes refused folders. A location that nobody observes is not even made.
class WalkNotifications final : public WalkObserver {
public:
    WalkNotifications(NotificationCenter& center, FindingSink& findings, ScanCoverage& coverage)
        : m_center(center), m_findings(findings), m_coverage(coverage)
    {
    }

    [[nodiscard]] bool wantsLocations() const override;
    void counting(std::int64_t totalCount) override;
    void location(std::string_view path) override;
    void progress(std::int64_t steps) override;
    void match(std::string_view path, std::string_view name, const SeenEntry& seen) override;
    void refused(std::string_view path, std::string_view reason) override;
    void otherDisk(std::string_view path) override;

private:
    NotificationCenter& m_center;
    FindingSink& m_findings;
    ScanCoverage& m_coverage;
};

} // namespace pryvane
