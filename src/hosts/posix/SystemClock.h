#pragma once

#include "platform/Clock.h"

namespace pryvane {

/// The host's clocks.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
    [[nodiscard]] std::chrono::nanoseconds steadyNow() const override;
    void pause(Interval interval, const StopFlag& stop) override;
};

/// Skips every pause: the command line's default, where nobody watches labels go by.
class UnpacedClock final : public Clock {
public:
    [[nodiscard]] Date now() const override { return m_clock.now(); }
    [[nodiscard]] std::chrono::nanoseconds steadyNow() const override
    {
        return m_clock.steadyNow();
    }
    void pause(Interval, const StopFlag&) override {}

private:
    SystemClock m_clock;
};

} // namespace pryvane
