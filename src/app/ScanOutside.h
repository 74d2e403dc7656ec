#pragma once

#include "core/Signal.h"
#include "core/tasks/BoundQueue.h"
#include "platform/PlatformServices.h"

#include <functional>
#include <memory>

namespace pryvane {

class AppDelegate;
class ScanViewController;
class SpywareScanReport;

/// What the desktop shows of a scan outside the window: how far it is, and one message at its end,
/// unless somebody looks at the window. Main thread only.
class ScanOutside final {
public:
    /// Where the window shows what a scan came to, by the time somebody wants to see it.
    struct Shows {
        std::function<void()> findings; ///< of the last scan
        std::function<void(const std::shared_ptr<SpywareScanReport>&)> report;
    };

    ScanOutside(const PlatformServices& services, const DesktopServices& desktop,
                AppDelegate& delegate, ScanViewController& scan, Shows shows);
    ~ScanOutside();
    ScanOutside(const ScanOutside&) = delete;
    ScanOutside& operator=(const ScanOutside&) = delete;

private:
    void showProgress();
    void tellEnd();
    void show(const std::shared_ptr<SpywareScanReport>& report, bool isKept);

    PlatformServices m_services;
    DesktopServices m_desktop;
    AppDelegate& m_delegate;
    ScanViewController& m_scan;
    const Shows m_shows;
    bool m_showsProgress = false;
    BoundQueue m_later;
    Signal::Listening m_changed, m_ended;
};

} // namespace pryvane
