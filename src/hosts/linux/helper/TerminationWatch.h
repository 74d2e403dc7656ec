#pragma once

#include "core/Result.h"

#include <chrono>
#include <memory>

struct DBusConnection;

namespace pryvane {

/// Hears on the session bus that the login helper is to quit.
class TerminationWatch {
public:
    /// Listens from now on. Waits for the bus no longer than a few seconds, and starts none. The
    /// error says why there is nothing to listen to.
    [[nodiscard]] static Result<TerminationWatch> start();

    /// To be polled for reading.
    [[nodiscard]] int descriptor() const;

    enum class News : std::uint8_t { None, Terminate, BusGone };

    /// What has come in. Never waits.
    [[nodiscard]] News read();

private:
    struct Close {
        void operator()(DBusConnection* bus) const;
    };
    using Bus = std::unique_ptr<DBusConnection, Close>;

    explicit TerminationWatch(Bus bus) : m_bus(std::move(bus)) {}

    Bus m_bus;
};

} // namespace pryvane
