#pragma once

#include "platform/Remover.h"
#include "removal/disk/VolumeRemover.h"
#include "reports/DefaultMethods.h"
#include "scan/EngineFixture.h"
#include "scan/ScanViewController.h"

#include <mutex>

namespace pryvane::test {

/// A scan screen's controller over a volume of real files, with everything it posts and shows
/// recorded.
class SessionFixture : public EngineFixture {
protected:
    SessionFixture()
    {
        for (std::size_t i = 0; i < kNotificationCount; ++i) {
            const auto name = static_cast<NotificationName>(i);
            m_observations.push_back(notifications.observe(
                name, [this, name](const Notification& note) { posted(name, note); }));
        }
        // What the dashboard does.
        m_observations.push_back(
            notifications.observe(NotificationName::StopScan,
                                  [this](const Notification&) { state.isScanStop.request(); }));
        m_listening.push_back(controller.stateChanged.listen([this] {
            const ScanDisplay& shown = controller.display();
            stopOffered |= controller.isScanning() && shown.stopButton;
            if (types.empty() || types.back() != shown.scanTypeLabel)
                types.push_back(shown.scanTypeLabel);
            if (steps.empty() || steps.back() != controller.display().progressText)
                steps.push_back(controller.display().progressText);
            if (labels.empty() || labels.back() != controller.display().location)
                labels.push_back(controller.display().location);
        }));
        m_listening.push_back(controller.scanEnded.listen([this] { ++ended; }));
    }

    /// Starts a scan and runs the main queue until it has ended.
    void scan()
    {
        const int before = ended;
        controller.SpywareScanStart();
        ASSERT_TRUE(mainQueue.runUntil([&] { return ended > before; }));
    }
    ReportList stored() { return store.loadListReportWithKey(preferences::kSaveReport); }

    NoRemovalJournal journal;
    VolumeRemover remover{*disk, journal, {}};
    DefaultMethods store{defaults, *disk, clock, log};
    const ScanOptions options{"alice", FileURL::fileURLWithPath("/")};
    ScanViewController controller{services(), state, access, store, remover, options};
    std::vector<std::string> notes, steps, labels, types;
    std::vector<std::string> places; ///< what the walk told of where it is
    bool stopOffered = false;        ///< while a scan ran
    std::mutex notesMutex;           ///< checks post from their thread too
    int ended = 0;

private:
    void posted(NotificationName name, const Notification& note)
    {
        if (name == NotificationName::ScanningStatusChange)
            return;
        std::string text(kNotificationNames[index(name)]);
        if (const auto* flag = std::get_if<bool>(&note.object))
            text += *flag ? " YES" : " NO";
        const std::lock_guard lock(notesMutex);
        notes.push_back(text);
        if (const auto* place = std::get_if<std::string_view>(&note.object))
            places.emplace_back(*place);
    }
    std::vector<NotificationCenter::Observation> m_observations;
    std::vector<Signal::Listening> m_listening;
};

} // namespace pryvane::test
