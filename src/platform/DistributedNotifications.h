#pragma once

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

} // namespace pryvane
