#pragma once

#include "platform/PlatformServices.h"
#include "removal/session/RecordRemoval.h"
#include "removal/session/RemovalConsent.h"
#include "removal/session/RemovalSession.h"
#include "removal/session/RemovalSummary.h"
#include "scan/ThreatLists.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pryvane {

struct ScanDisplay;
struct ScanState;

/// The removing half of the scan screen: what is selected, and the lists, the report and the
/// summary that follow a removal. Main thread only.
class ThreatRemoval final {
public:
    /// What it asks of and tells the screen it is half of.
    struct Screen {
        ScanState& state;
        ScanDisplay& display;
        ThreatLists& lists;
        std::string user;
        std::function<bool()> scanRuns;
        std::function<void()> refreshStatus; ///< brings the protection status up to date
        std::function<void()> changed;
        std::function<void()> removalEnded;
    };

    ThreatRemoval(const PlatformServices& services, Remover& remover, Screen screen);
    ThreatRemoval(const ThreatRemoval&) = delete;
    ThreatRemoval& operator=(const ThreatRemoval&) = delete;

    /// The remove button: asks, has browsers quit, removes what is selected in the background, and
    /// sorts all findings into the lists and the report. Every end of a removal is told as
    /// removalEnded. Like every start of one it does nothing while a scan or a removal runs.
    void deleteSelectedThreat();

    /// See RemovalConsent.
    [[nodiscard]] bool forceQuitBrowsers() { return m_consent.forceQuitBrowsers(); }

    /// Removes these records in the background and classifies them, and no more.
    void removeThisSpyware(const SpywareList& list);

    /// Removes what is selected without a question, then selects the whole result list.
    void removeSpyware();

    /// Ends a running removal between two entries; what was not reached fails as stopped.
    void stopRemoval() { m_session.stop(); }

    [[nodiscard]] bool tryAgain() { return m_consent.tryAgain(); }
    bool retryActionForWebBrowser() { return m_consent.retryActionForWebBrowser(); }
    void displayPanel(std::vector<BrowserEntry> entries) { panel().present(std::move(entries)); }
    void reloadPanel(std::vector<BrowserEntry> entries) { panel().reload(std::move(entries)); }
    void disMissPanel() { panel().dismiss(); }

    /// Carries on after a retry, unless a scan runs or has changed the list meanwhile.
    void reloadThreatDetails();

    /// Ticks or unticks rows, which are places in the result list.
    void selectThreats(std::span<const std::size_t> rows, bool on);
    [[nodiscard]] bool removeButtonEnabled() const;

    /// Whether the disk lets nothing be removed; says so in words then. To be asked before the
    /// plan.
    [[nodiscard]] bool isRefused() const;

    /// Looks in the background what removing the selected findings would do; plan() has it once
    /// isPlanning() is over.
    void planSelectedThreats();
    void forgetSummary() { m_summary.reset(); }

    [[nodiscard]] bool isRemoving() const { return m_session.isRemoving(); }
    [[nodiscard]] bool isPlanning() const { return m_session.isPlanning(); }
    [[nodiscard]] RemovalProgress progress() const { return m_session.progress(); }
    [[nodiscard]] const RemovalPlan& plan() const { return m_plan; }
    /// What the last removal came to; none before it has ended.
    [[nodiscard]] const std::optional<RemovalSummary>& summary() const { return m_summary; }
    /// Always there; shown while it is presented.
    [[nodiscard]] FourceQuitBrowserView& panel() { return m_consent.panel(); }

private:
    /// What follows a removal.
    enum class Then : std::uint8_t { Nothing, Report, ReportAfterRetry, RebuildList };

    [[nodiscard]] bool mayStart() const;
    void setAsideUnselected();
    void removeAndReport(Then then);
    void start(const SpywareList& selected, Then then);
    void removed(const SortedRecords& records, Then then);
    void report(Then then);
    [[nodiscard]] std::shared_ptr<const RecordSelection>
    selection(const SpywareList& records) const;

    const Screen m_screen;
    Alerts& m_alerts;
    const Remover& m_remover;
    const RecordRemoval m_records;
    RemovalConsent m_consent;
    RemovalCounts m_counts;
    std::optional<RemovalSummary> m_summary;
    RemovalPlan m_plan;
    RemovalSession m_session; // last: its thread ends before anything it uses
};

} // namespace pryvane
