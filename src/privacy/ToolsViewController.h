#pragma once

#include "core/Signal.h"
#include "core/StopFlag.h"
#include "core/tasks/BoundQueue.h"
#include "core/tasks/Worker.h"
#include "platform/Machine.h"
#include "platform/Messages.h"
#include "privacy/PrivacyCleaning.h"
#include "privacy/PrivacyScan.h"
#include "removal/session/RemovalSession.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace pryvane {

/// The tools screen without its window: the catalogue with its sizes, what is ticked in it, the
/// preview of a cleaning, the cleaning. Main thread only; work runs in the background.
class ToolsViewController final {
public:
    enum class State : std::uint8_t {
        Idle,
        Scanning,   ///< groups arrive one by one
        Looking,    ///< a preview is being made
        Previewing, ///< the preview waits to be unticked, cancelled or carried out
        Cleaning,
    };

    struct Services {
        CleanerServices disk;
        Remover& remover;
        MainQueue& mainQueue;
        Alerts& alerts;
        Workspace& workspace;
    };

    /// The services outlive this.
    ToolsViewController(const Services& services, UserChoice users);
    ~ToolsViewController();
    ToolsViewController(const ToolsViewController&) = delete;
    ToolsViewController& operator=(const ToolsViewController&) = delete;

    /// The screen is about to be shown: the first time, the catalogue is built.
    void viewWillAppear();

    /// Builds the catalogue anew. Nothing while anything but a scan is under way.
    void resetAndAddavailbleApplications();

    /// Ends what is under way as soon as it can; what was found or removed by then stands.
    void stop();

    /// Ticks what can be ticked: items with something to clean, of a group those that are not dear.
    /// Groups that have arrived may be ticked while others still do.
    void setChecked(std::size_t group, std::size_t item, bool checked);
    void setGroupChecked(std::size_t group, bool checked);

    /// Looks at what cleaning the ticked items would take away; nothing where none is ticked.
    void previewSelected();
    void setPreviewTicked(std::size_t row, bool ticked);
    /// Unticks in the preview what cannot be had back.
    void leaveDearOut();
    void cancelPreview();

    /// Looks again, once browsers were closed; what was unticked stays so.
    void retryCleaningAction();
    /// Puts the panel with the browsers away, and the preview with it.
    void closeWindowAction() { cancelPreview(); }

    /// Removes for good what the preview shows ticked and no application keeps open at that moment,
    /// says what became of it, and builds the catalogue anew.
    void cleanAndReloadData();

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool canTick() const
    {
        return m_state == State::Idle || m_state == State::Scanning;
    }
    /// Whether a scan has ended by itself; one that was stopped left groups out.
    [[nodiscard]] bool isMeasured() const { return m_isMeasured; }
    [[nodiscard]] const std::vector<ToolGroup>& availbleApp() const { return m_availbleApp; }
    /// The ticked items' names by their group's.
    [[nodiscard]] std::map<std::string, std::vector<std::string>> toolsSelectedDic() const;
    [[nodiscard]] const CleaningPreview& preview() const { return m_preview; }
    /// What the last cleaning removed and could not remove.
    [[nodiscard]] const CleaningOutcome& outcome() const { return m_outcome; }
    [[nodiscard]] const PrivacyProgress& progress() const { return *m_progress; }

    Signal stateChanged;

private:
    void scanInBG();
    void BGscanDone();
    void setState(State state);
    void look(std::vector<CleaningRow> rows);
    void cleaned();

    const Services m_services;
    const UserChoice m_users;
    State m_state = State::Idle;
    bool m_isMeasured = false;
    bool m_hasAppeared = false;
    std::vector<ToolGroup> m_availbleApp;
    CleaningPreview m_preview;
    CleaningOutcome m_outcome;
    std::unique_ptr<PrivacyProgress> m_progress; ///< made anew by each scan
    std::uint64_t m_round = 0; ///< tells the news of a scan from those of one before
    const std::shared_ptr<const bool> m_alive = std::make_shared<const bool>();
    BoundQueue m_queue;
    StopFlag m_stopScan;
    Worker m_scanThread; // last: they end before anything they use
    RemovalSession m_session;
};

} // namespace pryvane
