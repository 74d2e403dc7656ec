#include "app/LocalCalendar.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace pryvane {

Date clampedDate(Date date)
{
    using namespace std::chrono;
    constexpr Date kFirst{sys_days(year(1) / 1 / 2)};
    constexpr Date kLast{sys_days(year(9999) / 12 / 30)};
    return std::clamp(date, kFirst, kLast);
}

Date localClock(Date date, int hour, int minute, int second)
{
    std::tm parts = localParts(clampedDate(date));
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    parts.tm_isdst = -1;
    return Date(std::chrono::seconds(std::mktime(&parts)));
}

int localHour(Date date)
{
    return localParts(clampedDate(date)).tm_hour;
}

std::string localMomentText(Date date)
{
    constexpr std::array kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::tm parts = localParts(clampedDate(date));
    std::array<char, 64> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "%s %d %s, %02d:%02d",
        kDays.at(static_cast<std::size_t>(parts.tm_wday)), parts.tm_mday,
        kMonths.at(static_cast<std::size_t>(parts.tm_mon)), parts.tm_hour, parts.tm_min);
    return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

} // namespace pryvane
