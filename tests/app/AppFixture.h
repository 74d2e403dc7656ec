#pragma once

#include "app/AppDelegate.h"
#include "platform/UserDefaults.h"
#include "scan/EngineFixture.h"
#include "support/DesktopFakes.h"

namespace pryvane::test {

/// The delegate over a fake desktop, with the notifications that a scan request consists of
/// recorded, and what the user was told.
class AppFixture : public EngineFixture {
protected:
    AppFixture()
    {
        desktop.grantTokens.hostWritable = {"/Users/alice"};
        record(NotificationName::MainTableChangedManually);
        record(NotificationName::MainTableSelectionChange);
        record(NotificationName::UpdateThreat);
    }

    [[nodiscard]] bool flag(const PreferenceKey<bool>& key) { return defaults.get(key); }
    void set(const PreferenceKey<bool>& key, bool value)
    {
        ASSERT_TRUE(defaults.set(key, value).ok());
    }
    std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }
    std::vector<std::string> takeWindowCalls() { return std::exchange(desktop.windows.calls, {}); }

    using Texts = std::vector<std::string>;
    const Texts kRequest = {"MainTableChangedManually 1", "MainTableSelectionChange 1 1 1"};

    FakeDesktop desktop{clock};
    ApplicationFacts facts{"alice", "com.torvell.Pryvane", "1.2", "https://pryvane.example/"};
    AppDelegate delegate{services(), desktop.services(), facts};
    std::vector<std::string> notes;

private:
    void record(NotificationName name)
    {
        m_observations.push_back(notifications.observe(name, [this](const Notification& note) {
            std::string text(kNotificationNames[index(note.name)]);
            if (const auto* row = std::get_if<std::int64_t>(&note.object))
                text += " " + std::to_string(*row);
            if (const auto* change = std::get_if<SelectionChange>(&note.object))
                text += " " + std::to_string(change->row) + " " + std::to_string(change->scan) +
                        " " + std::to_string(change->checkRoot);
            notes.push_back(text);
        }));
    }
    std::vector<NotificationCenter::Observation> m_observations;
};

} // namespace pryvane::test
