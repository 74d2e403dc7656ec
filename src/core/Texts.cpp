#include "core/Texts.h"

#include "core/HostKernel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <langinfo.h>
#include <locale.h>
#include <string_view>

#if __has_include(<xlocale.h>)
#include <xlocale.h> // where <locale.h> does not have all of it
#endif

namespace pryvane {

namespace {

/// snprintf for the few number formats of this file; all of them fit.
template <typename... Args>
std::string formatted(const char* format, Args... args)
{
    std::array<char, 96> buffer{};
    const int length = std::snprintf(buffer.data(), buffer.size(), format, args...);
    return {buffer.data(), static_cast<std::size_t>(std::max(length, 0))};
}

/// A date split into a civil day of the local time zone and the milliseconds into that day.
struct CivilTime {
    std::chrono::year_month_day day;
    std::int64_t millisecond;
};

CivilTime civil(Date date)
{
    using namespace std::chrono;
    const std::tm parts = localParts(date);
    const auto fraction = date - floor<seconds>(date);
    return {year(parts.tm_year + 1900) / (parts.tm_mon + 1) / parts.tm_mday,
            ((parts.tm_hour * 60LL + parts.tm_min) * 60 + parts.tm_sec) * 1000 + fraction.count()};
}

/// The same day of the month `count` months later, or the last one where that month is shorter.
std::chrono::year_month_day monthsLater(std::chrono::year_month_day day, int count)
{
    const auto moved = day + std::chrono::months(count);
    return moved.ok() ? moved : moved.year() / moved.month() / std::chrono::last;
}

std::string agoText(long long count, const char* unit)
{
    return formatted("%lld %s%s ago", count, unit, count == 1 ? "" : "s");
}

} // namespace

std::string lowerAscii(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
        c = lowerAscii(c);
    return lower;
}

std::tm localParts(Date date)
{
    tzset(); // follows a change of the system's zone, which localtime_r alone need not
    const std::time_t time =
        std::chrono::floor<std::chrono::seconds>(date).time_since_epoch().count();
    std::tm parts{};
    localtime_r(&time, &parts);
    return parts;
}

std::string stringFromTimeInterval(double seconds)
{
    // Clamped so that a clock that jumped cannot overflow the conversion.
    const auto t = static_cast<long long>(std::clamp(seconds, -9.0e15, 9.0e15));
    const long long s = t % 60, m = (t / 60) % 60, h = t / 3600;
    const char* plural = s == 1 ? "" : "s";
    std::string text =
        t < 1 ? std::string("less then 1 second") : formatted("%2lld second%s", s, plural);
    if (m > 0)
        text = formatted("%2lld minute%s ", m, plural) + text;
    if (t >= 3600)
        text = formatted("%2lld hour%s ", h, plural) + text;
    return text;
}

std::string relativeDateStringForDate(Date date, Date now)
{
    using namespace std::chrono;
    if (now <= date)
        return "Not scan yet";
    const CivilTime from = civil(date), to = civil(now);

    // A unit counts once the same time of day has been reached after moving by it.
    const auto reached = [&](year_month_day day) {
        return day < to.day || (day == to.day && from.millisecond <= to.millisecond);
    };
    const int monthDistance = (int(to.day.year()) - int(from.day.year())) * 12 +
                              int(unsigned(to.day.month())) - int(unsigned(from.day.month()));
    const int wholeMonths = monthDistance - (reached(monthsLater(from.day, monthDistance)) ? 0 : 1);
    if (wholeMonths >= 12)
        return agoText(wholeMonths / 12, "year");
    if (wholeMonths >= 1)
        return agoText(wholeMonths, "month");

    const auto dayDistance = (sys_days(to.day) - sys_days(from.day)).count();
    const auto wholeDays = dayDistance - (from.millisecond <= to.millisecond ? 0 : 1);
    if (wholeDays >= 7)
        return agoText(wholeDays / 7, "week");
    if (wholeDays == 1)
        return "Yesterday";
    if (wholeDays > 1)
        return agoText(wholeDays, "day");

    const long long elapsed = duration_cast<seconds>(now - date).count();
    if (elapsed >= 3600)
        return agoText(elapsed / 3600, "hour");
    if (elapsed >= 60)
        return agoText(elapsed / 60, "minute");
    if (elapsed >= 1)
        return agoText(elapsed, "second");
    return "In few seconds";
}

std::string sinceText(Date date, Date now)
{
    const bool isNow = date <= now && now - date < std::chrono::minutes(1);
    return isNow ? "just now" : relativeDateStringForDate(date, now);
}

std::string countedText(std::uint64_t count, const char* one, const char* many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string sizeText(std::int64_t bytes)
{
    if (bytes <= 0)
        return "0 byte";
    if (bytes < 1000)
        return formatted("%lld byte%s", static_cast<long long>(bytes), bytes == 1 ? "" : "s");
    constexpr std::array<const char*, 6> units = {"KB", "MB", "GB", "TB", "PB", "EB"};
    double value = static_cast<double>(bytes) / 1000;
    std::size_t unit = 0;
    while (value >= 999.95 && unit + 1 < units.size()) {
        value /= 1000;
        ++unit;
    }
    return formatted(value < 99.95 ? "%.1f %s" : "%.0f %s", value, units[unit]);
}

std::string iso8601(Date date)
{
    const auto second = std::chrono::floor<std::chrono::seconds>(date);
    const std::time_t time = second.time_since_epoch().count();
    std::tm parts{};
    gmtime_r(&time, &parts);
    return formatted("%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", parts.tm_year + 1900, parts.tm_mon + 1,
                     parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec,
                     static_cast<int>((date - second).count()));
}

std::string localDateText(Date date)
{
    const std::tm parts = localParts(date);
    return formatted("%04d-%02d-%02d %02d:%02d", parts.tm_year + 1900, parts.tm_mon + 1,
                     parts.tm_mday, parts.tm_hour, parts.tm_min);
}

namespace {

/// The user's locale for dates; plain C where the environment names one that is not installed.
class DateLocale {
public:
    DateLocale() : m_locale(newlocale(LC_TIME_MASK | LC_CTYPE_MASK, userLocale().c_str(), nullptr))
    {
        if (m_locale == nullptr)
            m_locale = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "C", nullptr);
    }
    ~DateLocale() { freelocale(m_locale); }
    DateLocale(const DateLocale&) = delete;
    DateLocale& operator=(const DateLocale&) = delete;

    [[nodiscard]] std::string_view format(nl_item item) const
    {
        return nl_langinfo_l(item, m_locale);
    }
    [[nodiscard]] std::string text(const std::tm& time, const std::string& format) const
    {
        std::array<char, 256> buffer{};
        return {buffer.data(),
                strftime_l(buffer.data(), buffer.size(), format.c_str(), &time, m_locale)};
    }

private:
    locale_t m_locale;
};

/// POSIX knows no medium or long date: they are spelled in the order of the short one.
std::string spelledDate(std::string_view shortDate, const std::string& monthName)
{
    const auto day = std::min(shortDate.find("%d"), shortDate.find("%e"));
    const auto month = std::min(shortDate.find("%m"), shortDate.find("%b"));
    const auto year = std::min(shortDate.find("%Y"), shortDate.find("%y"));
    if (year < day && year < month)
        return "%x";
    return day < month && day != std::string_view::npos ? "%e " + monthName + " %Y"
                                                        : monthName + " %e, %Y";
}

std::string shortTime(std::string_view mediumTime)
{
    const bool twelveHours = mediumTime.find("%r") != std::string_view::npos ||
                             mediumTime.find("%I") != std::string_view::npos ||
                             mediumTime.find("%l") != std::string_view::npos;
    return twelveHours ? "%I:%M %p" : "%H:%M";
}

bool isSameDay(const std::tm& a, const std::tm& b)
{
    return a.tm_year == b.tm_year && a.tm_yday == b.tm_yday;
}

} // namespace

std::string localizedDate(Date date, DateStyle dateStyle, TimeStyle timeStyle)
{
    const std::tm parts = localParts(date);
    const DateLocale locale;
    const std::string day =
        dateStyle == DateStyle::Short
            ? "%x"
            : spelledDate(locale.format(D_FMT), dateStyle == DateStyle::Medium ? "%b" : "%B");
    const std::string time =
        timeStyle == TimeStyle::Medium ? "%X" : shortTime(locale.format(T_FMT));
    std::string text = locale.text(parts, day + ", " + time);
    // A padded day of the month leaves a blank at the start, or two in a row.
    if (text.starts_with(' '))
        text.erase(0, 1);
    if (const auto twice = text.find("  "); twice != std::string::npos)
        text.erase(twice, 1);
    return text;
}

std::string relativeLocalizedDate(Date date, Date now)
{
    const std::tm parts = localParts(date);
    const std::tm today = localParts(now);
    std::tm dayBefore = today;
    dayBefore.tm_mday -= 1;
    dayBefore.tm_hour = 12; // a day may be an hour shorter or longer
    dayBefore.tm_isdst = -1;
    static_cast<void>(std::mktime(&dayBefore));
    const char* name = isSameDay(parts, today)       ? "Today, "
                       : isSameDay(parts, dayBefore) ? "Yesterday, "
                                                     : nullptr;
    if (!name)
        return localizedDate(date, DateStyle::Long, TimeStyle::Medium);
    return name + DateLocale().text(parts, "%X");
}

} // namespace pryvane
