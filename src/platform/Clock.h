#pragma once

#include "core/StopFlag.h"
#include "core/Texts.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

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

/// When a repeating timer is due: at `first` and every `interval` after it, never in between.
/// Firings that were missed are made up by one. A clock that is set back by up to an interval makes
/// no moment fire twice; set back further, it starts over with the first of these moments that lies
/// ahead. An interval of 0 fires once.
class FireTimes {
public:
    FireTimes(Date first, Clock::Interval interval);

    /// Whether a firing is due; it then counts as done.
    [[nodiscard]] bool takeIfDue(Date now);

    /// The next firing as seen at that moment; none when there is no more.
    [[nodiscard]] std::optional<Date> next(Date now);

private:
    void followClock(Date now);
    [[nodiscard]] Date firstAfter(Date now) const;

    Date m_first;
    Clock::Interval m_interval;
    std::optional<Date> m_next;
};

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
