#pragma once

#include "core/Result.h"
#include "platform/FileURL.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace pryvane {

/// Named messages between the programs of one user. Main thread only.
class DistributedNotifications {
public:
    /// Called on the main thread with the object of the message, which another program chose.
    using Handler = std::function<void(const std::string& object)>;

    /// Destroying it ends the observation; it may be destroyed by its own handler.
    class Observation {
    public:
        virtual ~Observation() = default;
    };

    virtual ~DistributedNotifications() = default;

    /// Sends and forgets: never waits, and nobody may be listening. A failure is logged by the
    /// implementation.
    virtual void post(std::string_view name, std::string_view object) = 0;

    /// Never none. Where the host has no such messages the handler is simply never called.
    [[nodiscard]] virtual std::unique_ptr<Observation> observe(std::string_view name,
                                                               Handler handler) = 0;
};

/// Tells the login helper to quit; the object is the program's bundle identifier.
inline constexpr std::string_view kTerminateHelper = "TERMINATEHELPERPryvane";

/// The desktop's file viewer. Main thread only.
class FileViewer {
public:
    virtual ~FileViewer() = default;

    /// Shows the folder that holds the item, with the item selected where the viewer can. Never
    /// opens the item itself and never waits for the viewer. The error says that nothing is there
    /// any more, or that there is no viewer.
    virtual Result<Done> reveal(const FileURL& item) = 0;
};

/// Start at login through the login helper, a small program of its own. Main thread only.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    /// Registers the helper for the next login, or takes it out. Taking out what is not there is a
    /// success; on an error nothing changed.
    virtual Result<Done> setEnabled(bool enabled) = 0;

    /// Whether the helper runs right now; false where that cannot be told.
    [[nodiscard]] virtual bool helperIsRunning() = 0;
};

} // namespace pryvane
