#pragma once

#include "platform/PlatformServices.h"
#include "removal/session/RecordRemoval.h"
#include "removal/session/RemovalConsent.h"
#include "removal/session/RemovalSession.h"
#include "removal/session/RemovalSummary.h"
#include "reports/SpywareScanReport.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {

/// The removing half of the report browser: what of the open report is removed, and the banner that
/// follows. Outcomes stay in memory; nothing here changes the store. Main thread only.
class ReportRemoval final {
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
    ReportRemoval(const ReportRemoval&) = delete;
    ReportRemoval& operator=(const ReportRemoval&) = delete;

    /// Looks in the background what removing the checked threats would do, and tells it unless
    /// something else was asked for meanwhile.
    void planSelected(std::function<void(RemovalPlan)> done);

    /// Whether the disk lets nothing be removed; says so in words then. To be asked before the
    /// plan.
    [[nodiscard]] bool isRefused() const;

    /// The remove button: asks, has browsers quit, removes the checked threats.
    void removeSelected();
    /// See RemovalConsent.
    [[nodiscard]] bool forceQuitBrowsers() { return m_consent.forceQuitBrowsers(); }
    /// Removes the checked threats without a question, as after a retry.
    void reloadReportView();

    /// Removes all the threats of the open report without a question.
    void removeSpyware();
    /// Removes these; the remote-desktop entry is left to the instructions.
    void removeThisAdware(const SpywareList& list);

    [[nodiscard]] bool tryAgain() { return m_consent.tryAgain(); }
    bool retryActionForWebBrowser() { return m_consent.retryActionForWebBrowser(); }
    void disMissPanel() { panel().dismiss(); }
    void stopRemoval() { m_session.stop(); }
    /// Forgets what the last run came to.
    void reset();

    [[nodiscard]] bool isRemoving() const { return m_session.isRemoving(); }
    /// How many locations of the running removal have been dealt with, and of how many.
    [[nodiscard]] RemovalProgress progress() const { return m_session.progress(); }
    [[nodiscard]] FourceQuitBrowserView& panel() { return m_consent.panel(); }
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
    void start(const SpywareList& records, Then then);
    void removed(const SpywareList& records, const SpywareList& once,
                 const std::vector<RemovalResult>& results);
    void tell(Then then, const RemovalCounts& counts);

    Alerts& m_alerts;
    const Remover& m_remover;
    const Screen m_screen;
    const RecordRemoval m_records;
    RemovalConsent m_consent;
    bool m_isFileListPresented = false;
    std::optional<RemovalSummary> m_banner;
    SpywareList m_deletedSpyware, m_unDeletedSpyware, m_listUnDeleted;
    std::size_t m_deletedCount = 0;
    RemovalSession m_session; // last: its thread ends before anything it uses
};

} // namespace pryvane
