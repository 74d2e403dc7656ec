#pragma once

#include <functional>

namespace pryvane {

/// What the report browser asks of the application around it. Main thread only.
class ReportBrowserHost {
public:
    virtual ~ReportBrowserHost() = default;

    /// The whole-disk question that comes before every scan request.
    virtual void checkForHDAccess() = 0;

    /// What the application's print button does from now on; empty: it is disabled.
    virtual void setPrintAction(std::function<void()> action) = 0;

    /// Opens Apple's article on switching off remote management.
    virtual void openRemoteDesktopInstructions() = 0;
};

} // namespace pryvane
