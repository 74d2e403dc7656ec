#pragma once

#include "findings/ScanCoverage.h"
#include "platform/PlatformServices.h"
#include "scan/ScanRequest.h"
#include "scan/walker/WalkNotifications.h"
#include "signatures/PatternAutomaton.h"

namespace pryvane {

class FindingSink;
struct ScanState;
struct WalkRoot;

/// The two passes of a deep scan over its roots, one after the other, told to the rest of the
/// program as notifications and findings. One thread drives it from beginning to end; it may be
/// any.
class DeepScan {
public:
    /// Without roots there is nothing to walk, and both passes end at once.
    DeepScan(const PlatformServices& services, ScanState& state, FindingSink& findings,
             ScanRequest request);

    /// Counts the entries; false when a stop came meanwhile.
    [[nodiscard]] bool count();

    /// Compares every file with the full-system list.
    void scan();

    /// What was walked and what could not be read.
    [[nodiscard]] const ScanCoverage& coverage() const { return m_coverage; }

private:
    template <typename Pass, typename NamePass>
    void onRoot(Pass pass, NamePass namePass);

    PlatformServices m_services;
    ScanState& m_state;
    const ScanRequest m_request;
    const std::vector<FileURL> m_roots;
    const PatternAutomaton m_texts;
    ScanCoverage m_coverage;
    WalkNotifications m_notifications;
};

} // namespace pryvane
