#pragma once

#include "core/StopFlag.h"
#include "core/tasks/Worker.h"
#include "platform/PlatformServices.h"
#include "removal/session/FourceQuitBrowserView.h"
#include "removal/session/RecordRemoval.h"
#include "removal/session/RemovalPlanning.h"
#include "removal/session/RemovalSummary.h"
#include "reports/SpywareScanReport.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {

/// The removing half of the report browser: confirmation, browsers, removal, banner. Outcomes stay
/// in memory; nothing here changes the store. Main thread only; files are removed on a thread that
/// ends with it.
class ReportRemoval final : public FourceQuitBrowserDelegate {
public:
    /// What it asks of and tells the screen it is half of.
    struct Screen {
        std::string user;
        std::function<std::shared_ptr<SpywareScanReport>()> openReport; ///< none in the list
        std::function<void()> remoteDesktopInstructions;
        std::function<void()> changed;
        std::function<void()> ended; ///< the open report's records have their outcomes
    };

    /// The remover is used by nobody else meanwhile.
    ReportRemoval(const PlatformServices& services, Remover& remover, Screen screen);
    ~ReportRemoval() override;
    ReportRemoval(const ReportRemoval&) = delete;
    ReportRemoval& operator=(const ReportRemoval&) = delete;

    /// Looks in the background what removing the checked threats would do, and tells it unless
    /// something else was asked for meanwhile. `foldedName` as in ExplainQuestion.
    void planSelected(std::function<std::string(std::string_view)> foldedName,
                      std::function<void(RemovalPlan)> done);

    /// The remove button: asks, has browsers quit, removes the checked threats.
    void removeSelected();
    /// Asks for confirmation, then looks for browsers to be quit: true when removal may go on,
    /// false when the user declined or the panel is shown now.
    [[nodiscard]] bool forceQuitBrowsers();
    /// Removes the checked threats without a question, as after a retry.
    void reloadReportView();

    /// Removes all the threats of the open report without a question.
    void removeSpyware();
    /// Removes these; the remote-desktop entry is left to the instructions.
    void removeThisAdware(const SpywareList& list);

    [[nodiscard]] bool tryAgain();
    bool retryActionForWebBrowser() override;
    void disMissPanel() { m_panel.dismiss(); }
    void stopRemoval() { m_stop.request(); }
    /// Forgets what the last run came to.
    void reset();

    [[nodiscard]] bool isRemoving() const { return m_isRemoving; }
    /// How many locations of the running removal have been dealt with, and of how many.
    [[nodiscard]] RemovalProgress progress() const { return {m_done, m_total}; }
    [[nodiscard]] FourceQuitBrowserView& panel() { return m_panel; }
    /// What the last removal of checked threats came to; none before one has ended.
    [[nodiscard]] const std::optional<RemovalSummary>& banner() const { return m_banner; }

    // Of the last run, each location once.
    [[nodiscard]] const SpywareList& deletedSpyware() const { return m_deletedSpyware; }
    [[nodiscard]] const SpywareList& unDeletedSpyware() const { return m_unDeletedSpyware; }
    [[nodiscard]] std::size_t deletedCount() const { return m_deletedCount; }
    /// What the file list sheet shows; each record tells why it is still there.
    [[nodiscard]] const SpywareList& listUnDeleted() const { return m_listUnDeleted; }
    [[nodiscard]] bool isFileListPresented() const { return m_isFileListPresented; }
    void closeFileList();

private:
    /// What follows a removal.
    enum class Then : std::uint8_t { BannerPlain, BannerIndented, Confirmation };

    [[nodiscard]] bool mayStart() const;
    [[nodiscard]] SpywareList checked() const;
    [[nodiscard]] std::vector<BrowserEntry> blockingBrowsers() const;
    void start(const SpywareList& records, Then then);
    void removed(const SpywareList& records, const std::vector<RemovalResult>& results, Then then);
    void tell(Then then);

    PlatformServices m_services;
    Remover& m_remover;
    const Screen m_screen;
    FourceQuitBrowserView m_panel;
    RemovalPlanning m_planning;
    bool m_isAsking = false; ///< the confirmation is on the screen
    bool m_isRemoving = false;
    bool m_isFileListPresented = false;
    std::shared_ptr<SpywareScanReport> m_confirmed; ///< the report that the user was asked about
    std::shared_ptr<SpywareScanReport> m_removingFrom;
    std::optional<RemovalSummary> m_banner;
    SpywareList m_deletedSpyware, m_unDeletedSpyware, m_listUnDeleted;
    std::size_t m_deletedCount = 0;
    std::size_t m_total = 0;
    std::atomic<std::size_t> m_done{0};
    StopFlag m_stop;
    std::shared_ptr<char> m_alive = std::make_shared<char>(); // expires with this, for posted work
    Worker m_thread; // last: it ends before anything it uses
};

} // namespace pryvane
