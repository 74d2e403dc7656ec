#include "hosts/qt/QtMainLoop.h"

#include "platform/Clock.h"

#include <QPointer>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace pryvane {

void QtMainQueue::post(Work work)
{
    QMetaObject::invokeMethod(&m_context, std::move(work), Qt::QueuedConnection);
}

void QtMainQueue::postAfter(std::chrono::milliseconds delay, Work work)
{
    if (delay.count() <= 0) {
        post(std::move(work));
        return;
    }
    // Coarse timers may be early by a twentieth. A timer belongs to the thread that starts it.
    post([this, delay, work = std::move(work)] {
        QTimer::singleShot(delay, Qt::PreciseTimer, &m_context, work);
    });
}

bool QtMainQueue::isMainThread() const
{
    return QThread::currentThread() == m_context.thread();
}

namespace {

using std::chrono::milliseconds;

/// How soon a timer that came due behind a modal panel or a menu looks again.
constexpr milliseconds kBehindPanel{250};

/// A loop inside the main loop is a modal panel's or a menu's.
bool panelHoldsLoop()
{
    return QThread::currentThread()->loopLevel() > 1;
}

/// Counts in dates of the wall clock, or in those of a clock that starts at zero with it and never
/// jumps.
class QtTimer final : public Timers::Timer {
public:
    enum class Time : std::uint8_t { Wall, Steady };

    QtTimer(Clock& clock, Time time, milliseconds recheck, Date first, Clock::Interval interval,
            Timers::Fire fire)
        : m_clock(clock), m_time(time), m_recheck(recheck), m_times(first, interval),
          m_fire(std::move(fire))
    {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::CoarseTimer);
        m_timer.callOnTimeout(&m_timer, [this] { look(); });
        sleep();
    }

    [[nodiscard]] std::optional<Date> nextFireDate() const override
    {
        const auto next = FireTimes(m_times).next(time());
        return next ? std::optional(m_clock.now() + (*next - time())) : std::nullopt;
    }

    [[nodiscard]] static Date timeOf(const Clock& clock, Time time)
    {
        return time == Time::Wall
                   ? clock.now()
                   : Date(std::chrono::duration_cast<Date::duration>(clock.steadyNow()));
    }

private:
    [[nodiscard]] Date time() const { return timeOf(m_clock, m_time); }

    void look()
    {
        const auto next = m_times.next(time());
        if (next && *next <= time() && panelHoldsLoop()) {
            m_timer.start(kBehindPanel);
            return;
        }
        const bool due = m_times.takeIfDue(time());
        sleep();
        if (!due)
            return;
        const Timers::Fire fire = m_fire; // which may end this timer
        fire();
    }

    void sleep()
    {
        const auto next = m_times.next(time());
        if (!next)
            return;
        // Late by up to a millisecond rather than early: an early look would sleep once more.
        const auto left = std::chrono::ceil<milliseconds>(*next - time());
        m_timer.start(std::clamp(left, milliseconds(0), m_recheck));
    }

    Clock& m_clock;
    Time m_time;
    milliseconds m_recheck;
    FireTimes m_times;
    Timers::Fire m_fire;
    QTimer m_timer;
};

} // namespace

std::unique_ptr<Timers::Timer> QtTimers::every(Clock::Interval interval, Fire fire)
{
    constexpr auto kSteady = QtTimer::Time::Steady;
    // Nothing sets this clock, so only a timer's own range limits its sleep.
    constexpr milliseconds kLongest = std::chrono::hours(24);
    // The next whole millisecond, so that no firing comes early by a part of one.
    const Date first = QtTimer::timeOf(m_clock, kSteady) + milliseconds(1);
    return std::make_unique<QtTimer>(m_clock, kSteady, kLongest, first + interval, interval,
                                     std::move(fire));
}

std::unique_ptr<Timers::Timer> QtTimers::at(Date first, Clock::Interval interval, Fire fire)
{
    return std::make_unique<QtTimer>(m_clock, QtTimer::Time::Wall, m_recheck, first, interval,
                                     std::move(fire));
}

} // namespace pryvane
