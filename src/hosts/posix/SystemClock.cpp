#include "hosts/posix/SystemClock.h"

#include <algorithm>
#include <thread>

namespace pryvane {

Date SystemClock::now() const
{
    return std::chrono::time_point_cast<Date::duration>(std::chrono::system_clock::now());
}

std::chrono::nanoseconds SystemClock::steadyNow() const
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

void SystemClock::pause(Interval interval, const StopFlag& stop)
{
    // A stop may come from a signal handler, which can wake nobody, so the flag is polled.
    constexpr Interval kStep{20};
    const auto end = std::chrono::steady_clock::now() + interval;
    while (!stop.requested()) {
        const auto left = end - std::chrono::steady_clock::now();
        if (left <= left.zero())
            return;
        std::this_thread::sleep_for(std::min<std::chrono::steady_clock::duration>(left, kStep));
    }
}

} // namespace pryvane
