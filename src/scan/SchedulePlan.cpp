#include "scan/SchedulePlan.h"

#include "platform/UserDefaults.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace pryvane {

Clock::Interval scheduleStep(int kind)
{
    const bool known = kind >= 0 && kind < static_cast<int>(kScheduleSteps.size());
    return known ? kScheduleSteps.at(static_cast<std::size_t>(kind)) : Clock::Interval(0);
}

double sensibleTime(double seconds)
{
    return std::isfinite(seconds) ? std::clamp(seconds, 0.0, 90'000.0) : 0.0;
}

Date clampedDate(Date date)
{
    using namespace std::chrono;
    constexpr Date kFirst{sys_days(year(1) / 1 / 2)};
    constexpr Date kLast{sys_days(year(9999) / 12 / 30)};
    return std::clamp(date, kFirst, kLast);
}

std::optional<Date> SchedulePlan::next(Date after) const
{
    Date moment = start + time;
    if (moment <= start) // the very start does not count
        moment += step;
    if (step.count() > 0 && moment <= after)
        moment += ((after - moment) / step + 1) * step;
    return moment > after && moment > start && moment < end ? std::optional(moment) : std::nullopt;
}

std::optional<Date> SchedulePlan::latest(Date now) const
{
    const auto first = next(start);
    if (!first || *first > now)
        return std::nullopt;
    const Date last = std::min(now, end - Clock::Interval(1));
    return step.count() > 0 ? *first + (last - *first) / step * step : *first;
}

std::vector<Date> SchedulePlan::ahead(Date after, std::size_t most) const
{
    std::vector<Date> moments;
    for (auto moment = next(after); moment && moments.size() < most; moment = next(*moment))
        moments.push_back(*moment);
    return moments;
}

std::optional<SchedulePlan> storedSchedule(UserDefaults& defaults)
{
    if (defaults.get(preferences::kScheduleOn) != "Yes")
        return std::nullopt;
    const std::int64_t kind = defaults.get(preferences::kScheduleRepeat);
    const bool known = kind >= 0 && kind < static_cast<std::int64_t>(kScheduleSteps.size());
    return SchedulePlan{clampedDate(defaults.get(preferences::kScheduleStartDate)),
                        clampedDate(defaults.get(preferences::kScheduleEndDate)),
                        Clock::Interval(std::llround(
                            sensibleTime(defaults.get(preferences::kScheduleTime)) * 1000.0)),
                        scheduleStep(known ? static_cast<int>(kind) : 0)};
}

namespace {

std::optional<Date> dateOf(const std::optional<Bytes>& stored)
{
    std::int64_t milliseconds = 0;
    if (!stored)
        return std::nullopt;
    const char* const end = stored->data.data() + stored->data.size();
    const auto read = std::from_chars(stored->data.data(), end, milliseconds);
    return read.ec == std::errc() && read.ptr == end
               ? std::optional(Date(std::chrono::milliseconds(milliseconds)))
               : std::nullopt;
}

bool isTaken(const std::optional<Bytes>& stored, Date moment, Date now)
{
    const auto taken = dateOf(stored);
    return taken && *taken >= moment && *taken <= now;
}

} // namespace

bool isScheduledTaken(UserDefaults& defaults, Date moment, Date now)
{
    return isTaken(defaults.getBytes(preferences::kScheduleTaken), moment, now);
}

bool takeScheduled(UserDefaults& defaults, Date moment, Date now)
{
    bool isTakenBefore = false;
    static_cast<void>(
        defaults.updateBytes(preferences::kScheduleTaken, [&](const std::optional<Bytes>& stored) {
            isTakenBefore = isTaken(stored, moment, now);
            return isTakenBefore
                       ? std::nullopt
                       : std::optional(Bytes{std::to_string(moment.time_since_epoch().count())});
        }));
    return !isTakenBefore;
}

std::string encoded(const ScheduledDisk& disk)
{
    // No path and no name holds a NUL.
    return disk.folder + '\0' + disk.user + '\0' + (disk.caseSensitive ? "exact" : "");
}

std::optional<ScheduledDisk> storedScheduledDisk(UserDefaults& defaults)
{
    const auto stored = defaults.getBytes(preferences::kScheduleDisk);
    const auto folder = stored ? stored->data.find('\0') : std::string::npos;
    const auto user = folder == std::string::npos ? folder : stored->data.find('\0', folder + 1);
    if (user == std::string::npos || !stored->data.starts_with('/'))
        return std::nullopt;
    return ScheduledDisk{stored->data.substr(0, folder),
                         stored->data.substr(folder + 1, user - folder - 1),
                         stored->data.substr(user + 1) == "exact"};
}

} // namespace pryvane
