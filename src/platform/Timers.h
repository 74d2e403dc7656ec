#pragma once

#include "platform/Clock.h"

#include <functional>
#include <memory>
#include <optional>

namespace pryvane {

/// Repeating timers of the main loop. None fires while a modal panel or a menu holds the loop: what
/// came due meanwhile fires once, afterwards. Main thread only.
class Timers {
public:
    using Fire = std::function<void()>;

    /// A running timer; destroying it stops it, also from inside its own firing.
    class Timer {
    public:
        virtual ~Timer() = default;

        /// When it fires next, by the wall clock; none when it has done so for the last time.
        [[nodiscard]] virtual std::optional<Date> nextFireDate() const = 0;
    };

    virtual ~Timers() = default;

    /// Fires every `interval`, for the first time after one. Time is counted by the clock that
    /// never jumps; setting the wall clock changes nothing. Never none.
    [[nodiscard]] virtual std::unique_ptr<Timer> every(Clock::Interval interval, Fire fire) = 0;

    /// Fires when the wall clock reaches `first` and every `interval` after it, as FireTimes tells;
    /// a clock that is set, or a machine that sleeps, is noticed within a minute. Never none.
    [[nodiscard]] virtual std::unique_ptr<Timer> at(Date first, Clock::Interval interval,
                                                    Fire fire) = 0;
};

} // namespace pryvane
