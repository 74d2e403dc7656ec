// The parts of a scan, each on a thread of its own: what they look at, and when the scan is over.
#include "findings/MacDisk.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/NameTree.h"
#include "scan/CheckSequence.h"
#include "scan/DeepScan.h"
#include "scan/DeletedNames.h"
#include "scan/ScanViewController.h"
#include "signatures/Catalogue.h"
#include "signatures/CheckRunner.h"

namespace pryvane {

/// On the scan's first thread, as it reads the disk: whose homes this scan looks at.
Homes ScanViewController::settle()
{
    Homes homes = settledHomes(m_services.disk, m_options.whose);
    m_inbox.setUsers(homes.users);
    // Even a scan that is stopped at once tells whose disk it was about.
    m_later.post([this, subject = readSubject(m_services.disk, homes.users)] {
        m_request.users = subject.users;
        m_subject = subject;
    });
    return homes;
}

void ScanViewController::startChecks(std::optional<Homes> settled)
{
    CheckSequence::StepShown shown;
    if (!m_request.isDeep()) {
        shown = [this](std::string_view label, int step) {
            m_later.post(
                [this, text = std::string(label), step] { ScanningProgressChange(text, step); });
        };
    }
    const ScanReach reach = m_request.isDeep() ? ScanReach::Deep : ScanReach::Quick;
    m_checkThread.start(
        [this, reach, shown = std::move(shown), settled = std::move(settled)] {
            const Homes homes = settled ? *settled : settle();
            ScanCoverage coverage;
            CheckRunner checks(m_services.disk, m_services.defaults, homes.users, m_inbox,
                               coverage);
            CheckSequence sequence(checks, m_services.clock, m_state.isScanStop, shown);
            const auto outcome = sequence.scan4SpywareStart();
            homes.note(coverage);
            if (const NameTree* names = m_services.disk.names())
                coverage.source = names->facts();
            coverage.deleted =
                deletedNames(m_services.disk, homes.users, reach, m_state.isScanStop);
            const auto ending = outcome == CheckSequence::Outcome::Finished ? Ending::WithReport
                                                                            : Ending::WithoutReport;
            m_inbox.whenEmpty([this, ending, coverage = std::move(coverage)] {
                partEnded(Part::Checks, ending, coverage);
            });
        },
        [this](const char* why) { partGivenUp(Part::Checks, why); });
}

/// Counts, then runs the checks beside the walk. The walk decides about the report, and only where
/// folders are gone through as nodes; a scan that is stopped while it counts has no checks.
void ScanViewController::startDeepScan()
{
    m_fileCountCompleted = false;
    m_partsRunning = 1;
    m_walkThread.start(
        [this, request = m_request]() mutable {
            const Homes homes = settle();
            request.users = homes.users;
            m_state.fullSystemScanPaths = catalogue::fullSyatemScanPath(homes.users);
            DeepScan walk(m_services, m_state, m_inbox, request);
            if (walk.count()) {
                m_later.post([this, homes] { DeepScanStart(homes); });
                walk.scan();
            }
            const auto ending = request.folders == ScanRequest::Folders::Nodes
                                    ? Ending::WithReport
                                    : Ending::WithoutReport;
            // Behind DeepScanStart() in the main queue, so that the checks are known to run by
            // then.
            m_later.post([this, ending, coverage = walk.coverage()] {
                m_inbox.whenEmpty(
                    [this, ending, coverage] { partEnded(Part::Walk, ending, coverage); });
            });
        },
        [this](const char* why) { partGivenUp(Part::Walk, why); });
}

void ScanViewController::DeepScanStart(Homes homes)
{
    m_fileCountCompleted = true;
    m_display.activityIndicator = false;
    m_display.scanTypeLabel = "Scanning Entry:";
    ++m_partsRunning;
    startChecks(std::move(homes));
    stateChanged();
}

/// On the part's thread. What was found so far stays on the list, and there is no report: it would
/// say less than was asked for.
void ScanViewController::partGivenUp(Part part, const char* why)
{
    m_state.isScanStop.request();
    m_later.post([this, part, why] {
        m_givenUp = why;
        m_inbox.whenEmpty([this, part] { partEnded(part, Ending::WithoutReport, {}); });
    });
}

/// The scan is over when all its parts are: no finding of a slower one may be missing.
void ScanViewController::partEnded(Part part, Ending ending, ScanCoverage coverage)
{
    const bool decides = part == Part::Walk || !m_request.isDeep();
    if (decides)
        m_ending = ending;
    (part == Part::Walk ? m_walkThread : m_checkThread).join();
    addCoverage(std::move(coverage));
    if (--m_partsRunning > 0)
        return;
    finishCoverage();
    if (m_ending == Ending::WithReport && m_givenUp.empty())
        doneScan();
    else
        backToIdle();
}

void ScanViewController::addCoverage(ScanCoverage coverage)
{
    // Only the checks know of signatures and homes, only the walk of walked entries.
    const auto walked = m_coverage.entriesWalked + coverage.entriesWalked;
    auto refused = std::move(m_coverage.refused);
    refused.insert(refused.end(), coverage.refused.begin(), coverage.refused.end());
    if (coverage.signaturesTested > 0)
        m_coverage = std::move(coverage);
    m_coverage.entriesWalked = walked;
    m_coverage.refused = std::move(refused);
}

void ScanViewController::finishCoverage()
{
    m_coverage.heldBack = m_inbox.heldBack();
    for (const auto& record : m_state.arrSpywareList.records()) {
        if (m_options.hashFindings && record->kind == FileKind::RegularFile)
            ++(record->sha256.empty() ? m_coverage.contentsNotRead : m_coverage.contentsRead);
    }
    for (Refusal& refusal : m_inbox.refused())
        m_coverage.refused.push_back(std::move(refusal));
    if (m_state.isScanStop.requested())
        m_coverage.ended = {ScanEnding::How::Stopped, m_stoppedAt};
    else if (m_request.isDeep() && !m_request.root)
        m_coverage.ended.how = ScanEnding::How::GrantFailed;
    m_ended = m_coverage.ended;
    m_coverage.seconds =
        std::chrono::duration<double>(m_services.clock.steadyNow() - m_startedAt).count();
}

} // namespace pryvane
