#include "scan/DeepScan.h"

#include "core/Result.h"
#include "findings/ScanState.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "scan/walker/DeepWalk.h"
#include "scan/walker/NameWalk.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <string>
#include <unistd.h>

namespace pryvane {

DeepScan::DeepScan(const PlatformServices& services, ScanState& state, FindingSink& findings,
                   ScanRequest request)
    : m_services(services), m_state(state), m_request(std::move(request)),
      m_roots(m_request.roots()),
      m_texts(state.fullSystemScanPaths, PatternAutomaton::Letters::Exact),
      m_notifications(services.notifications, findings, m_coverage)
{
}

/// Runs the one of the two that fits the disk: over a folder of its own, or over its names.
template <typename Pass, typename NamePass>
void DeepScan::onRoot(Pass pass, NamePass namePass)
{
    for (const FileURL& url : m_roots) {
        if (const NameTree* names = m_services.disk.names()) {
            NameWalk walk(m_state, *names, m_notifications);
            namePass(walk, url);
            continue;
        }
        const int folder = m_services.disk.openFolder(url);
        if (folder < 0) {
            // Both passes meet the same refusal; it is told once.
            const Refusal refusal{url.relativePath(), errorText(errno)};
            if (std::ranges::find(m_coverage.refused, refusal) == m_coverage.refused.end())
                m_coverage.refused.push_back(refusal);
            continue;
        }
        pass(WalkRoot{folder, url.relativePath(),
                      m_services.disk.source().kind == DiskSource::Kind::ThisMac});
        close(folder);
    }
}

bool DeepScan::count()
{
    const auto started = m_services.clock.steadyNow();
    const bool flat = m_request.folders == ScanRequest::Folders::Flat;
    onRoot(
        [this, flat](const WalkRoot& root) {
            FileCount pass(m_state, m_notifications);
            flat ? pass.countFlat(root) : pass.countNodes(root);
        },
        [flat](NameWalk& walk, const FileURL& root) {
            walk.count(root, flat ? NameWalk::Counting::Flat : NameWalk::Counting::Nodes);
        });
    const std::chrono::duration<double> taken = m_services.clock.steadyNow() - started;
    m_services.log.line("count time " + std::to_string(taken.count()));
    // A flat count goes on to the scanning pass even when stopped, which then ends at once.
    return flat || !m_state.isScanStop.requested();
}

void DeepScan::scan()
{
    const auto started = m_services.clock.steadyNow();
    const auto walked = [this](const std::string& root, const auto& walk) {
        const auto told = m_coverage.refused.size();
        const WalkOutcome outcome = walk();
        m_coverage.entriesWalked += outcome.entries;
        // The walk names the first ones only, so that a hostile disk cannot fill the memory.
        const auto named = static_cast<std::int64_t>(m_coverage.refused.size() - told);
        if (outcome.refusals > named) {
            m_coverage.refused.push_back(
                {root, std::to_string(outcome.refusals - named) + " more folders below it"});
        }
    };
    onRoot(
        [&](const WalkRoot& root) {
            scanDirectory pass(m_state, m_texts, m_notifications);
            walked(root.path, [&] { return pass.scan(root); });
        },
        [&](NameWalk& walk, const FileURL& root) {
            walked(root.relativePath(), [&] { return walk.scan(root, m_texts); });
        });
    const std::chrono::duration<double> taken = m_services.clock.steadyNow() - started;
    m_services.log.line("scannig time " + std::to_string(taken.count()));
}

} // namespace pryvane
