#pragma once

#include "core/Escape.h"
#include "core/Result.h"
#include "hosts/posix/SystemClock.h"
#include "hosts/qt/DesktopHost.h"
#include "hosts/qt/LoadedSettingsFile.h"
#include "hosts/qt/QtMainLoop.h"
#include "hosts/qt/widgets/DesktopWebBrowser.h"
#include "hosts/qt/widgets/WidgetAlerts.h"
#include "platform/Machine.h"
#include "platform/Messages.h"

#include <cstdio>
#include <memory>
#include <string>

namespace pryvane {

class Host;
class Looks;
class UserDefaults;

/// Log lines on standard error, where a desktop's journal picks them up.
class StandardErrorLog final : public Log {
public:
    void line(std::string_view text) override
    {
        const std::string whole = "pryvane: " + forTerminal(text) + "\n";
        static_cast<void>(std::fwrite(whole.data(), 1, whole.size(), stderr));
    }
};

/// What the program has once, whichever volume its window looks at. Main thread only.
class Desktop {
public:
    /// Opens the store of that folder. The host outlives it. The error says what to do.
    [[nodiscard]] static Result<std::unique_ptr<Desktop>> open(Host& host,
                                                               const std::string& dataFolder);
    ~Desktop();

    [[nodiscard]] const std::string& dataFolder() const { return m_dataFolder; }
    [[nodiscard]] UserDefaults& defaults() { return *m_defaults; }
    [[nodiscard]] Looks& looks() { return *m_looks; }
    /// What the user must be told once; empty: nothing.
    [[nodiscard]] const std::string& notice() const { return m_notice; }

    Host& host;
    StandardErrorLog log;
    const std::unique_ptr<MachineInfo> machine;
    const std::unique_ptr<DesktopHost> system;
    SystemClock clock;
    QtMainQueue mainQueue;
    QtTimers timers{clock};
    WidgetAlerts alerts;
    DesktopWebBrowser webBrowser;
    LoadedSettingsFile settingsFile;

private:
    Desktop(Host& own, const std::string& dataFolder);

    std::string m_dataFolder;
    std::string m_notice;
    std::unique_ptr<UserDefaults> m_defaults;
    std::unique_ptr<Looks> m_looks;
};

} // namespace pryvane
