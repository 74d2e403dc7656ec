#include "core/DateText.h"

#include <array>
#include <langinfo.h>
#include <locale.h>
#include <string_view>
#ifdef __APPLE__
#include <xlocale.h>
#endif

namespace pryvane {

namespace {

/// The user's locale for dates; plain C where the environment names one that is not installed.
class DateLocale {
public:
    DateLocale() : m_locale(newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr))
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
