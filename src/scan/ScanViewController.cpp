#include "scan/ScanViewController.h"

#include "findings/MacDisk.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"
#include "platform/UserDefaults.h"
#include "reports/DefaultMethods.h"
#include "scan/DiskAccess.h"
#include "scan/RootChoice.h"
#include "signatures/Catalogue.h"

namespace pryvane {

/// Takes a while where there are many; reads only what never changes in a record.
ScanViewController::FindingFacts ScanViewController::factsOf(const SpywareList& records)
{
    FindingFacts facts;
    facts.paths.reserve(records.size());
    for (const auto& record : records) {
        facts.paths.push_back(record->url.relativePath());
        facts.hasRemoteDesktop =
            facts.hasRemoteDesktop || record->infections == catalogue::kRemoteDesktop;
    }
    return facts;
}

ScanViewController::ScanViewController(const PlatformServices& services, ScanState& state,
                                       DiskAccess& access, DefaultMethods& store, Remover& remover,
                                       ScanOptions options)
    : m_services(services), m_state(state), m_access(access), m_store(store),
      m_options(std::move(options)), m_launchDate(services.clock.now()),
      m_later(services.mainQueue), m_inbox(services, state, [this] { stateChanged(); }),
      m_removal(services, remover,
                {state, m_display, m_lists, m_options.onlyUser(), [this] { return isScanning(); },
                 [this] { makeAccessibleUIChanges(); }, [this] { stateChanged(); },
                 [this] { removalEnded(); }})
{
    m_inbox.setHashing(m_options.hashFindings);
    observe();
    makeAccessibleUIChanges();
}

ScanViewController::~ScanViewController()
{
    m_state.isScanStop.request();
    m_checkThread.join();
    m_walkThread.join();
    m_storeThread.join();
    m_state.phase = ScanState::Phase::Idle; // the state outlives this
    resetState();
}

ScanRequest ScanViewController::requested() const
{
    const std::string checkSubDir = m_options.checkSubDir
                                        ? *m_options.checkSubDir
                                        : m_services.defaults.get(preferences::kCheckSubDir);
    ScanRequest request;
    if (checkSubDir == "n")
        request.folders = ScanRequest::Folders::Flat;
    if (m_state.isDeepScan)
        request.kind = ScanRequest::Kind::Deep;
    else if (m_state.isRealTimeProtectionON)
        request.kind = ScanRequest::Kind::RealTime;
    return request;
}

void ScanViewController::SpywareScanStart()
{
    if (m_removal.isRemoving()) {
        // Whoever asked has made ready for a scan that does not come.
        m_services.notifications.post(NotificationName::ScanStatusChange, false);
        return;
    }
    if (isScanning()) {
        showStart();
        stateChanged();
        return;
    }
    m_request = requested();
    showStart();
    m_stoppedAt = ScanEnding::kNotKnown;
    m_ended.reset();
    m_hasReport = false;
    m_state.isScanStop.clear(); // first, so that even a stop that the start provokes counts
    logFailure(m_services.log, m_services.defaults.set(preferences::kScan, true));
    m_services.notifications.post(NotificationName::ScanStatusChange, true);
    logFailure(m_services.log,
               m_services.defaults.set(preferences::kLastScanDate, m_services.clock.now()));
    m_state.lastScan = m_services.clock.now();
    m_startedAt = m_services.clock.steadyNow();
    m_display.scanBox = true;
    m_display.reportBox = false;
    m_state.phase = ScanState::Phase::Scanning;
    makeAccessibleUIChanges();
    m_state.arrSpywareList.clear();
    m_inbox.clear();
    const bool threatFound = m_lists.threatFound; // stays what the last report said
    m_lists = {};
    m_lists.threatFound = threatFound;
    m_removal.forgetSummary();
    m_display.findings = 0;
    m_display.entries = 0;
    m_display.progressBar = 0;
    stateChanged();
    m_later.post([this] { scanInBGThread(); });
}

void ScanViewController::showStart()
{
    const bool deep = m_request.isDeep();
    m_display.headerCollapsed = true;
    m_display.scanTypeLabel = deep ? "Calculating Files:" : "Scanning Entry:";
    m_display.activityIndicator = true;
    m_display.stopButton = deep;
}

/// Settles the root and starts the work. It may ask the user, so it runs on the main thread; the
/// work itself does not.
void ScanViewController::scanInBGThread()
{
    m_state.arrSpywareList.clear();
    m_givenUp.clear();
    m_request.root =
        RootChoice(m_services, m_access, m_options).choose(m_statusPanel.isUserDirAccessible);
    m_coverage = {};
    m_subject = {m_services.disk.source(), {}, {}, {}};
    if (const auto holds = mustHoldMac(m_services.disk); !holds) {
        m_givenUp = holds.error().message;
        backToIdle();
        return;
    }
    if (m_request.isDeep()) {
        startDeepScan();
    } else {
        m_partsRunning = 1;
        startChecks({});
    }
}

void ScanViewController::doneScan()
{
    m_services.log.line("Done Scanning");
    // Encoding and storing a great many findings takes a while, which the main loop must not. Until
    // it is told that this is over, the main thread leaves the report and the store alone.
    m_state.phase = ScanState::Phase::Storing;
    m_lists.threatFound = !m_state.arrSpywareList.records().empty();
    m_lists.arrThreats = m_state.arrSpywareList.records();
    const Date now = m_services.clock.now();
    m_state.lastScan = now;
    makeAccessibleUIChanges();

    m_report = makeReport(durationText(now), now);
    m_hasReport = true;
    m_lists.tempReport = m_report;
    m_state.reportId = m_report->reportId;

    resetState();
    m_display.progressText = "0%";
    stateChanged();
    m_storeThread.start(
        [this, now] {
            std::string error;
            if (const auto stored = m_store.updateReportInDefaults(m_report); !stored)
                error = stored.error().message;
            logFailure(m_services.log, m_services.defaults.set(preferences::kScan, false));
            logFailure(m_services.log, m_services.defaults.set(preferences::kLastScanDate, now));
            auto findings = factsOf(*m_report->spyWareList);
            m_later.post([this, error, findings = std::move(findings)]() mutable {
                reportStored(error, std::move(findings));
            });
        },
        [this](const char* why) {
            m_later.post([this, why] { reportStored(why, factsOf(*m_report->spyWareList)); });
        });
}

std::shared_ptr<SpywareScanReport> ScanViewController::makeReport(std::string_view duration,
                                                                  Date now) const
{
    auto report = SpywareScanReport::ScanReportWithSpywareList(
        m_state.arrSpywareList.shared(), now, duration, m_request.reportType(), now);
    report->volume = m_services.disk.identity();
    report->subject = m_subject;
    report->labels = m_options.labels;
    report->coverage = m_coverage;
    return report;
}

std::shared_ptr<SpywareScanReport> ScanViewController::reportForShowing() const
{
    if (m_hasReport)
        return m_report;
    const bool isStopped = m_coverage.ended.how == ScanEnding::How::Stopped;
    return makeReport(isStopped ? std::string(kStopped)
                                : stringFromTimeInterval(m_coverage.seconds),
                      m_services.clock.now());
}

void ScanViewController::reportStored(const std::string& error, FindingFacts findings)
{
    m_storeThread.join();
    m_state.phase = ScanState::Phase::Idle;
    m_storeError = error;
    m_display.progressText = "0%";
    endSession();
    m_services.notifications.post(NotificationName::ScanningChange, std::int64_t{0});
    keepFacts(std::move(findings));
    makeAccessibleUIChanges();
    stateChanged();
    scanEnded();
}

/// The end of a scan that leaves no report behind.
void ScanViewController::backToIdle()
{
    m_state.phase = ScanState::Phase::Idle;
    resetState();
    m_lists.threatFound = !m_state.arrSpywareList.records().empty();
    m_display.progressText = "0%";
    m_display.progressBar = 0;
    logFailure(m_services.log, m_services.defaults.set(preferences::kScan, false));
    endSession();
    keepFacts(factsOf(m_state.arrSpywareList.records()));
    makeAccessibleUIChanges();
    stateChanged();
    scanEnded();
}

/// What a removal asks of the findings; those of a stopped scan can be removed, too.
void ScanViewController::keepFacts(FindingFacts findings)
{
    m_lists.volume = m_services.disk.identity();
    m_lists.arrSpyWarePath = std::move(findings.paths);
    m_lists.ARDDetect = findings.hasRemoteDesktop;
}

/// What the scan's threads have left in the state must not reach into the next scan.
void ScanViewController::resetState()
{
    m_state.isScanStop.clear();
    m_state.totalCount = 0;
    m_state.totalScanCount = 0;
}

void ScanViewController::endSession()
{
    m_display.activityIndicator = false;
    m_display.stopButton = false;
    m_display.scanBox = false;
    m_services.notifications.post(NotificationName::ScanStatusChange, false);
}

std::string ScanViewController::durationText(Date now) const
{
    if (m_state.isScanStop.requested())
        return std::string(kStopped);
    const Date started = m_services.defaults.get(preferences::kLastScanDate);
    return stringFromTimeInterval(std::chrono::duration<double>(now - started).count());
}

void ScanViewController::stopScan()
{
    if (m_stoppedAt == ScanEnding::kNotKnown)
        m_stoppedAt = static_cast<int>(m_display.progressBar);
    m_display.progressText = "0%";
    m_display.progressBar = 0;
    m_display.indeterminate = false;
    stateChanged();
    m_services.notifications.post(NotificationName::StopScan);
}

} // namespace pryvane
