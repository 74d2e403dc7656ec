#pragma once

#include "core/tasks/MainQueue.h"
#include "platform/Clock.h"

#include <QObject>

namespace pryvane {

/// The main queue on Qt's event loop, of the thread that makes it. Work that is still waiting when
/// this ends is dropped. Must not end while other threads still post.
class QtMainQueue final : public MainQueue {
public:
    void post(Work work) override;
    void postAfter(std::chrono::milliseconds delay, Work work) override;
    [[nodiscard]] bool isMainThread() const override;

private:
    QObject m_context; // its end drops what waits
};

/// Timers on Qt's event loop. They sleep until they are due, those of the wall clock no longer than
/// a minute at a time: the loop's own clock stands still while a machine sleeps, and does not
/// notice when the wall clock is set.
class QtTimers final : public Timers {
public:
    static constexpr std::chrono::milliseconds kRecheck{60'000};

    explicit QtTimers(Clock& clock, std::chrono::milliseconds recheck = kRecheck)
        : m_clock(clock), m_recheck(recheck)
    {
    }

    [[nodiscard]] std::unique_ptr<Timer> every(Clock::Interval interval, Fire fire) override;
    [[nodiscard]] std::unique_ptr<Timer> at(Date first, Clock::Interval interval,
                                            Fire fire) override;

private:
    Clock& m_clock;
    std::chrono::milliseconds m_recheck;
};

} // namespace pryvane
