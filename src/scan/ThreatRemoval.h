#pragma once

#include "core/StopFlag.h"
#include "core/tasks/Worker.h"
#include "platform/PlatformServices.h"
#include "removal/session/FourceQuitBrowserView.h"
#include "removal/session/RecordRemoval.h"
#include "removal/session/RemovalSummary.h"
#include "scan/ThreatLists.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pryvane {

struct ScanDisplay;
struct ScanState;

/// The removing half of the scan screen: selection, plan, confirmation, browsers, removal, summary.
/// Main thread only; plans are made and files removed on threads that end with it.
class ThreatRemoval final : public FourceQuitBrowserDelegate {
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
    ~ThreatRemoval() override;
    ThreatRemoval(const ThreatRemoval&) = delete;
    ThreatRemoval& operator=(const ThreatRemoval&) = delete;

    /// The remove button: asks, has browsers quit, removes what is selected in the background, and
    /// sorts all findings into the lists and the report. Every end of a removal is told as
    /// removalEnded. Like every start of one it does nothing while a scan or a removal runs.
    void deleteSelectedThreat();

    /// Asks for confirmation, then looks for browsers to be quit: true when removal may go on,
    /// false when the user declined or the panel is shown now.
    [[nodiscard]] bool forceQuitBrowsers();

    /// Removes these records in the background and classifies them, and no more.
    void removeThisSpyware(const SpywareList& list);

    /// Removes what is selected without a question, then selects the whole result list.
    void removeSpyware();

    /// Ends a running removal between two entries; what was not reached fails as stopped.
    void stopRemoval() { m_stop.request(); }

    /// Looks again at the browsers: true when none must be quit, else the panel is refreshed.
    [[nodiscard]] bool tryAgain();
    bool retryActionForWebBrowser() override;
    void displayPanel(std::vector<BrowserEntry> entries);
    void reloadPanel(std::vector<BrowserEntry> entries);
    void disMissPanel();

    /// Carries on after a retry, unless a scan runs or has changed the list meanwhile.
    void reloadThreatDetails();

    /// Ticks or unticks rows, which are places in the result list.
    void selectThreats(std::span<const std::size_t> rows, bool on);
    [[nodiscard]] bool removeButtonEnabled() const;

    /// Looks in the background what removing the selected findings would do; plan() has it once
    /// isPlanning() is over. `foldedName` as in ExplainQuestion.
    void planSelectedThreats(std::function<std::string(std::string_view)> foldedName = {});
    void forgetSummary() { m_summary.reset(); }

    [[nodiscard]] bool isRemoving() const { return m_isRemoving; }
    [[nodiscard]] bool isPlanning() const { return m_isPlanning; }
    [[nodiscard]] RemovalProgress progress() const { return {m_told, m_total}; }
    [[nodiscard]] const RemovalPlan& plan() const { return m_plan; }
    /// What the last removal came to; none before it has ended.
    [[nodiscard]] const std::optional<RemovalSummary>& summary() const { return m_summary; }
    /// Always there; shown while it is presented.
    [[nodiscard]] FourceQuitBrowserView& panel() { return m_panel; }

private:
    /// What follows a removal.
    enum class Then : std::uint8_t { Nothing, Report, ReportAfterRetry, RebuildList };

    [[nodiscard]] bool mayStart() const;
    [[nodiscard]] std::vector<BrowserEntry> blockingBrowsers();
    void setAsideUnselected();
    void removeAndReport(Then then);
    void start(SpywareList records, Then then);
    void carryOut(const RecordSelection& selection, std::vector<RemovalResult>& results);
    void removed(const SpywareList& records, const std::vector<RemovalResult>& results, Then then);
    void classify(const SpywareList& records, const std::vector<RemovalResult>& results);
    void report(Then then);
    void startPlan();
    void planned(RemovalPlan plan);
    [[nodiscard]] RecordSelection selection(SpywareList records) const;
    void postToMain(std::function<void()> work);

    PlatformServices m_services;
    Remover& m_remover;
    const Screen m_screen;
    FourceQuitBrowserView m_panel;
    bool m_isAsking = false; ///< the confirmation is on the screen
    bool m_isRemoving = false;
    bool m_isPlanning = false;
    bool m_planAgain = false; ///< what is being planned is not what is wanted any more
    std::shared_ptr<SpywareList> m_confirmed; ///< the result list that the user was asked about
    std::optional<RemovalSummary> m_summary;
    RemovalPlan m_plan;
    std::function<std::string(std::string_view)> m_foldedName;
    std::size_t m_total = 0;
    std::atomic<std::size_t> m_told{0};
    StopFlag m_stop;
    StopFlag m_stopPlan;
    std::mutex m_oneAtATime; ///< held by the thread that uses the remover
    std::shared_ptr<char> m_alive = std::make_shared<char>(); // expires with this, for posted work
    Worker m_planThread; // last: they end before anything they use
    Worker m_thread;
};

} // namespace pryvane
