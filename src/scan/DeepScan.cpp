#include "scan/DeepScan.h"

#include "core/Result.h"
#include "findings/ScanState.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "scan/walker/DeepWalk.h"

#include <cerrno>
#include <chrono>
#include <string>
#include <unistd.h>

namespace pryvane {

DeepScan::DeepScan(const PlatformServices& services, ScanState& state, FindingSink& findings,
                   ScanRequest request)
    : m_services(services), m_state(state), m_request(std::move(request)),
      m_texts(state.fullSystemScanPaths, PatternAutomaton::Letters::Exact),
      m_notifications(services.notifications, findings, m_coverage)
{
}

template <typename Pass>
void DeepScan::onRoot(Pass pass)
{
    if (!m_request.root)
        return;
    const FileURL& url = *m_request.root;
    const int folder = m_services.disk.openFolder(url);
    if (folder < 0) {
        // Both passes meet the same refusal; it is told once.
        const std::string reason = errorText(errno);
        const Refusal refusal{url.relativePath(), reason};
        if (m_coverage.refused.empty() || !(m_coverage.refused.front() == refusal))
            m_coverage.refused.insert(m_coverage.refused.begin(), refusal);
        return;
    }
    pass(WalkRoot{folder, url.relativePath()});
    close(folder);
}

bool DeepScan::count()
{
    const auto started = m_services.clock.steadyNow();
    onRoot([this](const WalkRoot& root) {
        FileCount pass(m_state, m_notifications);
        if (m_request.folders == ScanRequest::Folders::Flat)
            pass.countFlat(root);
        else
            pass.countNodes(root);
    });
    const std::chrono::duration<double> taken = m_services.clock.steadyNow() - started;
    m_services.log.line("count time " + std::to_string(taken.count()));
    // A flat count goes on to the scanning pass even when stopped, which then ends at once.
    return m_request.folders == ScanRequest::Folders::Flat || !m_state.isScanStop.requested();
}

void DeepScan::scan()
{
    const auto started = m_services.clock.steadyNow();
    onRoot([this](const WalkRoot& root) {
        scanDirectory pass(m_state, m_texts, m_notifications);
        const auto told = m_coverage.refused.size();
        const WalkOutcome outcome = pass.scan(root);
        m_coverage.entriesWalked += outcome.entries;
        // The walk names the first ones only, so that a hostile disk cannot fill the memory.
        const auto named = static_cast<std::int64_t>(m_coverage.refused.size() - told);
        if (outcome.refusals > named) {
            m_coverage.refused.push_back(
                {root.path, std::to_string(outcome.refusals - named) + " more folders below it"});
        }
    });
    const std::chrono::duration<double> taken = m_services.clock.steadyNow() - started;
    m_services.log.line("scannig time " + std::to_string(taken.count()));
}

} // namespace pryvane
