#pragma once

#include "engine/walker/WalkObserver.h"

#include <functional>

namespace pryvane {

class FindingSink;
class NotificationCenter;
struct ScanCoverage;

/// Posts what a deep walk tells as the notifications of the scan, hands matches to the result
/// list's entrance, and notes refused folders. A location that nobody observes is not even made.
class WalkNotifications final : public WalkObserver {
public:
    /// Told about thirty times a second where the walk is: the count so far while counting, then
    /// the path. For a display, which needs no more than that; called on the walk's threads.
    using Sample = std::function<void(std::string_view location)>;

    WalkNotifications(NotificationCenter& center, FindingSink& findings, ScanCoverage& coverage,
                      Sample sample = {})
        : m_center(center), m_findings(findings), m_coverage(coverage), m_sample(std::move(sample))
    {
    }

    [[nodiscard]] Locations locations() const override;
    void counting(std::int64_t totalCount) override;
    void location(std::string_view path) override;
    void progress(std::int64_t steps) override;
    void match(std::string_view path, std::string_view name) override;
    void refused(std::string_view path, std::string_view reason) override;

private:
    NotificationCenter& m_center;
    FindingSink& m_findings;
    ScanCoverage& m_coverage;
    Sample m_sample;
};

} // namespace pryvane
