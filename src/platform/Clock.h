#pragma once

#include "core/StopFlag.h"
#include "core/Texts.h"

#include <chrono>

namespace pryvane {

/// The only source of time. Callable from any thread.
class Clock {
public:
    using Interval = std::chrono::milliseconds;

    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;

    /// Time that never jumps, for measuring.
    [[nodiscard]] virtual std::chrono::nanoseconds steadyNow() const = 0;

    /// Holds the calling thread for that long, or until the stop is requested.
    virtual void pause(Interval interval, const StopFlag& stop) = 0;
};

} // namespace pryvane
