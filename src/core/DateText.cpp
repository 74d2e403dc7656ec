#include "core/DateText.h"

#include <array>
#include <ctime>
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

/// POSIX knows no medium date: it is spelled in the order of the short one.
std::string mediumDate(std::string_view shortDate)
{
    const auto day = std::min(shortDate.find("%d"), shortDate.find("%e"));
    const auto month = std::min(shortDate.find("%m"), shortDate.find("%b"));
    const auto year = std::min(shortDate.find("%Y"), shortDate.find("%y"));
    if (year < day && year < month)
        return "%x";
    return day < month && day != std::string_view::npos ? "%e %b %Y" : "%b %e, %Y";
}

std::string shortTime(std::string_view mediumTime)
{
    const bool twelveHours = mediumTime.find("%r") != std::string_view::npos ||
                             mediumTime.find("%I") != std::string_view::npos ||
                             mediumTime.find("%l") != std::string_view::npos;
    return twelveHours ? "%I:%M %p" : "%H:%M";
}

} // namespace

std::string localizedDate(Date date, DateStyle dateStyle, TimeStyle timeStyle)
{
    const std::time_t seconds =
        std::chrono::floor<std::chrono::seconds>(date).time_since_epoch().count();
    std::tm parts{};
    localtime_r(&seconds, &parts);
    const DateLocale locale;
    const std::string day = dateStyle == DateStyle::Short ? "%x" : mediumDate(locale.format(D_FMT));
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

} // namespace pryvane
