#pragma once

#include "core/NotificationCenter.h"
#include "core/Signal.h"
#include "core/tasks/BoundQueue.h"
#include "core/tasks/Worker.h"
#include "findings/Homes.h"
#include "findings/ScanCoverage.h"
#include "findings/ScanState.h"
#include "platform/PlatformServices.h"
#include "reports/SpywareScanReport.h"
#include "scan/FindingInbox.h"
#include "scan/ScanDisplay.h"
#include "scan/ScanOptions.h"
#include "scan/ScanRequest.h"
#include "scan/StatusPanel.h"
#include "scan/ThreatLists.h"
#include "scan/ThreatRemoval.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pryvane {

class DefaultMethods;
class DiskAccess;
class Remover;

/// The scan screen without its widgets: drives a scan from its start to its stored report, removes
/// what the user selects of its findings, and says what to show meanwhile. Main thread only; its
/// background threads end with it.
class ScanViewController final {
public:
    ScanViewController(const PlatformServices& services, ScanState& state, DiskAccess& access,
                       DefaultMethods& store, Remover& remover, ScanOptions options);
    ~ScanViewController();
    ScanViewController(const ScanViewController&) = delete;
    ScanViewController& operator=(const ScanViewController&) = delete;

    /// Starts a scan; does nothing while one runs or findings are being removed.
    void SpywareScanStart();
    void scanningStartAction() { SpywareScanStart(); }

    /// Asks the running scan to stop. The scan ends soon after, told by scanEnded().
    void stopScan();

    /// Brings the protection status up to date.
    void makeAccessibleUIChanges();

    /// The box of the remote-desktop finding: whether it is ignored from now on.
    void ignoreARD(bool ignore);
    [[nodiscard]] bool ignoresRemoteDesktop() const { return m_ignoresRemoteDesktop; }

    // The removal of findings; see ThreatRemoval for what each does.
    void deleteSelectedThreat() { m_removal.deleteSelectedThreat(); }
    [[nodiscard]] bool forceQuitBrowsers() { return m_removal.forceQuitBrowsers(); }
    void removeThisSpyware(const SpywareList& list) { m_removal.removeThisSpyware(list); }
    void removeSpyware() { m_removal.removeSpyware(); }
    [[nodiscard]] bool tryAgain() { return m_removal.tryAgain(); }
    bool retryActionForWebBrowser() { return m_removal.retryActionForWebBrowser(); }
    void displayPanel(std::vector<BrowserEntry> list) { m_removal.displayPanel(std::move(list)); }
    void reloadPanel(std::vector<BrowserEntry> list) { m_removal.reloadPanel(std::move(list)); }
    void disMissPanel() { m_removal.disMissPanel(); }
    void reloadThreatDetails() { m_removal.reloadThreatDetails(); }
    void selectThreat(std::size_t row, bool on) { m_removal.selectThreats(std::span(&row, 1), on); }
    [[nodiscard]] ThreatRemoval& removal() { return m_removal; }
    [[nodiscard]] const ThreatRemoval& removal() const { return m_removal; }
    [[nodiscard]] const ThreatLists& lists() const { return m_lists; }
    /// All findings of the running or last scan; a scan that starts begins a list of its own.
    [[nodiscard]] const ResultList& results() const { return m_state.arrSpywareList; }

    [[nodiscard]] bool isScanning() const { return m_state.isScanning(); }
    [[nodiscard]] const ScanDisplay& display() const { return m_display; }
    [[nodiscard]] const StatusPanel& statusPanel() const { return m_statusPanel; }
    [[nodiscard]] bool threatFound() const { return m_lists.threatFound; }
    [[nodiscard]] const SpywareList& arrThreats() const { return m_lists.arrThreats; }
    [[nodiscard]] const std::vector<std::string>& arrSpyWarePath() const
    {
        return m_lists.arrSpyWarePath;
    }

    /// The report of the last scan that made one; kept here even where storing it failed.
    [[nodiscard]] const std::shared_ptr<SpywareScanReport>& report() const { return m_report; }

    /// The report of the last scan; of one that made none, one that is kept nowhere.
    [[nodiscard]] std::shared_ptr<SpywareScanReport> reportForShowing() const;

    /// Why the scan was given up, which left no report; empty: it was not.
    [[nodiscard]] const std::string& givenUp() const { return m_givenUp; }
    /// Why the last report could not be stored; empty when it was.
    [[nodiscard]] const std::string& storeError() const { return m_storeError; }
    [[nodiscard]] const ScanCoverage& coverage() const { return m_coverage; }
    /// Whose disk the last scan looked at.
    [[nodiscard]] const Subject& subject() const { return m_subject; }

    /// Something that display(), statusPanel() or the lists show has changed.
    Signal stateChanged;
    /// A scan has ended, with a report or, when it was stopped, without.
    Signal scanEnded;
    /// A removal has ended, whole or not.
    Signal removalEnded;

private:
    enum class Ending : std::uint8_t { WithReport, WithoutReport };
    enum class Part : std::uint8_t { Checks, Walk };
    struct FindingFacts {
        std::vector<std::string> paths;
        bool hasRemoteDesktop = false;
    };

    [[nodiscard]] static FindingFacts factsOf(const SpywareList& records);

    [[nodiscard]] ScanRequest requested() const;
    [[nodiscard]] bool isAtWork() const { return m_state.phase == ScanState::Phase::Scanning; }
    void showStart();
    void scanInBGThread();
    [[nodiscard]] Homes settle();
    void startChecks(std::optional<Homes> settled);
    void startDeepScan();
    void DeepScanStart(Homes homes);
    void partGivenUp(Part part, const char* why);
    void partEnded(Part part, Ending ending, ScanCoverage coverage);
    [[nodiscard]] std::shared_ptr<SpywareScanReport> makeReport(std::string_view duration,
                                                                Date now) const;
    void doneScan();
    void reportStored(const std::string& error, FindingFacts findings);
    void backToIdle();
    void resetState();
    void endSession();
    void showProgress(int percent);
    void ScanningProgressChange(const std::string& label, int step);
    void ScanningProgressUIChange();
    void ScanningProgressURL(const std::string& location);
    void updateThreatBox();
    void observe();
    void keepFacts(FindingFacts findings);
    void addCoverage(ScanCoverage coverage);
    void finishCoverage();
    [[nodiscard]] std::string durationText(Date now) const;

    PlatformServices m_services;
    ScanState& m_state;
    DiskAccess& m_access;
    DefaultMethods& m_store;
    const ScanOptions m_options;
    const Date m_launchDate;

    ScanRequest m_request; ///< of the running or last scan
    ThreatLists m_lists;
    std::shared_ptr<SpywareScanReport> m_report;
    bool m_hasReport = false; ///< the last scan made it
    std::string m_storeError, m_givenUp;
    ScanDisplay m_display;
    StatusPanel m_statusPanel;
    ScanCoverage m_coverage;
    Subject m_subject;                       ///< of the running or last scan
    std::optional<ScanEnding> m_ended;       ///< of the last scan of this run; none while one runs
    int m_stoppedAt = ScanEnding::kNotKnown; ///< percent, as the stop was asked for
    std::chrono::nanoseconds m_startedAt{0};
    int m_partsRunning = 0;                  ///< a quick scan has one part, a deep scan two
    Ending m_ending = Ending::WithoutReport; ///< what the part that decides it has said
    bool m_fileCountCompleted = false;
    bool m_ignoresRemoteDesktop = false;

    std::vector<NotificationCenter::Observation> m_observations;
    BoundQueue m_later;
    FindingInbox m_inbox;
    ThreatRemoval m_removal;
    Worker m_checkThread; // last: they end before anything they use
    Worker m_walkThread;
    Worker m_storeThread;
};

} // namespace pryvane
