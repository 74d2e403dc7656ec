#pragma once

#include "core/Texts.h"
#include "platform/Clock.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace pryvane {

class UserDefaults;

/// How long after each scan of the schedule the next one is, by the kind of the schedule.
inline constexpr std::array<std::chrono::seconds, 4> kScheduleSteps = {
    std::chrono::seconds(86'400), std::chrono::seconds(604'800), std::chrono::seconds(2'592'000),
    std::chrono::seconds(31'536'000)};

/// 0 for a kind that there is not.
[[nodiscard]] Clock::Interval scheduleStep(int kind);

/// A stored time of day, which may be anything, within one day of 25 hours.
[[nodiscard]] double sensibleTime(double seconds);

/// A date of the years 1 to 9999, so that arithmetic on it cannot overflow.
[[nodiscard]] Date clampedDate(Date date);

/// The moments of a schedule: its first one and each that is a step later, between two dates.
struct SchedulePlan {
    Date start{};            ///< 00:00:01 of the first day
    Date end{};              ///< 23:59:59 of the last one
    Clock::Interval time{0}; ///< from the start to its first moment
    Clock::Interval step{0};

    /// The first moment after that one; none: the schedule is over.
    [[nodiscard]] std::optional<Date> next(Date after) const;
    /// The last moment up to that one; none: it has not begun.
    [[nodiscard]] std::optional<Date> latest(Date now) const;
    /// All moments after that one, but no more than `most`.
    [[nodiscard]] std::vector<Date> ahead(Date after, std::size_t most) const;
};

/// The schedule that is on; none: no scan is scheduled.
[[nodiscard]] std::optional<SchedulePlan> storedSchedule(UserDefaults& defaults);

/// Whether the scan of that moment is the caller's. Window and command line both ask when it is
/// due, and one of them is told so. A moment that lies ahead of `now` was taken by a wrong clock
/// and does not count. A store that cannot be written says so, and the scan is the caller's.
[[nodiscard]] bool takeScheduled(UserDefaults& defaults, Date moment, Date now);

/// Whether it has been taken. Only a look: it may be taken by the time that it is asked for.
[[nodiscard]] bool isScheduledTaken(UserDefaults& defaults, Date moment, Date now);

/// The disk that timed scans look at while the window is closed.
struct ScheduledDisk {
    std::string folder; ///< of the host, absolute, raw bytes
    std::string user;   ///< as Users.h names it; empty: everyone
    bool caseSensitive = false;

    friend bool operator==(const ScheduledDisk&, const ScheduledDisk&) = default;
};

[[nodiscard]] std::string encoded(const ScheduledDisk& disk);
/// None for anything but what encoded() makes.
[[nodiscard]] std::optional<ScheduledDisk> storedScheduledDisk(UserDefaults& defaults);

} // namespace pryvane
