#pragma once

#include "core/NotificationCenter.h"
#include "engine/FindingInbox.h"
#include "engine/ScanDisplay.h"
#include "engine/ScanOptions.h"
#include "engine/StatusPanel.h"
#include "core/Worker.h"
#include "engine/records/ScanCoverage.h"
#include "engine/records/ScanState.h"
#include "platform/PlatformServices.h"
#include "reports/SpywareScanReport.h"

#include <QObject>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {

class DefaultMethods;
class DiskAccess;

/// The scan screen without its widgets: drives a scan from its start to its stored report, and says
/// what to show meanwhile. Main thread only; its background threads end with it.
class ScanViewController final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ScanViewController)

public:
    ScanViewController(const PlatformServices& services, ScanState& state, DiskAccess& access,
                       DefaultMethods& store, ScanOptions options, QObject* parent = nullptr);
    ~ScanViewController() override;

    /// Starts a scan; does nothing while one runs.
    void SpywareScanStart();
    void scanningStartAction() { SpywareScanStart(); }

    /// Asks the running scan to stop. The scan ends soon after, told by scanEnded().
    void stopScan();

    /// Brings the protection status up to date.
    void makeAccessibleUIChanges();

    [[nodiscard]] bool isScanning() const { return m_isScanning || m_isStoring; }
    [[nodiscard]] const ScanDisplay& display() const { return m_display; }
    [[nodiscard]] const StatusPanel& statusPanel() const { return m_statusPanel; }
    [[nodiscard]] bool threatFound() const { return m_threatFound; }
    [[nodiscard]] const SpywareList& arrThreats() const { return m_arrThreats; }
    [[nodiscard]] const std::vector<std::string>& arrSpyWarePath() const
    {
        return m_arrSpyWarePath;
    }
    [[nodiscard]] const std::string& reportType() const { return m_reportType; }

    /// The report of the last scan that made one; kept here even where storing it failed.
    [[nodiscard]] const std::shared_ptr<SpywareScanReport>& report() const { return m_report; }

    /// Why the last report could not be stored; empty when it was.
    [[nodiscard]] const std::string& storeError() const { return m_storeError; }
    [[nodiscard]] const ScanCoverage& coverage() const { return m_coverage; }

Q_SIGNALS:
    /// Something that display(), statusPanel() or the lists show has changed.
    void stateChanged();
    /// A scan has ended, with a report or, when it was stopped, without.
    void scanEnded();

private:
    enum class Ending : std::uint8_t { WithReport, WithoutReport };
    enum class Part : std::uint8_t { Checks, Walk };

    void showStart();
    void scanInBGThread();
    void startChecks();
    void startDeepScan();
    void DeepScanStart();
    void partEnded(Part part, Ending ending, ScanCoverage coverage);
    void doneScan();
    void reportStored(const std::string& error);
    void backToIdle();
    void endSession();
    void showProgress(int percent);
    void ScanningProgressChange(const std::string& label, int step);
    void ScanningProgressUIChange();
    void ScanningProgressURL(const std::string& location);
    void updateThreatBox();
    void observe();
    void addCoverage(ScanCoverage coverage);
    void finishCoverage();
    [[nodiscard]] std::string durationText(Date now) const;
    void postToMain(std::function<void()> work);
    void postToMainAfter(std::chrono::milliseconds delay, std::function<void()> work);

    PlatformServices m_services;
    ScanState& m_state;
    DiskAccess& m_access;
    DefaultMethods& m_store;
    const ScanOptions m_options;
    const Date m_launchDate;

    bool m_isScanning = false;
    bool m_isStoring = false; ///< the store thread has the report and the store
    bool m_threatFound = false;
    std::string m_reportType;
    SpywareList m_arrThreats;
    std::vector<std::string> m_arrSpyWarePath;
    std::shared_ptr<SpywareScanReport> m_report;
    std::shared_ptr<SpywareScanReport> m_tempReport;
    std::string m_storeError;
    ScanDisplay m_display;
    StatusPanel m_statusPanel;
    ScanCoverage m_coverage;
    std::chrono::nanoseconds m_startedAt{0};
    std::optional<FileURL> m_root; ///< what a deep scan walks; none when making the grant failed
    int m_partsRunning = 0;        ///< a quick scan has one part, a deep scan two
    Ending m_ending = Ending::WithoutReport; ///< what the part that decides it has said
    bool m_fileCountCompleted = false;

    std::vector<NotificationCenter::Observation> m_observations;
    std::shared_ptr<char> m_alive = std::make_shared<char>(); // expires with this, for posted work
    FindingInbox m_inbox;
    Worker m_checkThread; // last: they end before anything they use
    Worker m_walkThread;
    Worker m_storeThread;
};

} // namespace pryvane
