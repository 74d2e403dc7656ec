#include "core/Texts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace pryvane {
namespace {

TEST(Texts, DurationKeepsThePluralOfTheSeconds)
{
    const struct {
        double seconds;
        const char* text;
    } rows[] = {
        {0, "less then 1 second"},
        {0.9, "less then 1 second"},
        {-5, "less then 1 second"},
        {1, " 1 second"},
        {2, " 2 seconds"},
        {61, " 1 minute  1 second"},
        {120, " 2 minutes  0 seconds"},
        {3600, " 1 hours  0 seconds"},
        {3725, " 1 hours  2 minutes  5 seconds"},
        {3661, " 1 hour  1 minute  1 second"},
        {360000, "100 hours  0 seconds"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(stringFromTimeInterval(row.seconds), row.text) << row.seconds;
}

/// "2026-11-21", at noon or at the time that follows.
Date local(const std::string& text)
{
    std::tm parts{};
    EXPECT_TRUE(strptime((text + " 12:00:00").c_str(), "%Y-%m-%d %H:%M:%S", &parts)) << text;
    parts.tm_isdst = -1;
    return Date(std::chrono::seconds(std::mktime(&parts)));
}

TEST(RelativeDate, UsesTheFirstWholeCalendarUnit)
{
    setenv("TZ", "Europe/Vienna", 1);
    tzset();
    const Date now = local("2026-11-21");
    const struct {
        Date date;
        const char* text;
        std::optional<Date> now = {};
    } rows[] = {
        {now, "Not scan yet"},
        {now + std::chrono::hours(5), "Not scan yet"},
        {now - std::chrono::milliseconds(500), "In few seconds"},
        {now - std::chrono::seconds(1), "1 second ago"},
        {now - std::chrono::seconds(59), "59 seconds ago"},
        {now - std::chrono::hours(1), "1 hour ago"},
        {now - std::chrono::hours(23), "23 hours ago"},
        {local("2026-11-20 12:00:01"), "23 hours ago"},
        {local("2026-11-20"), "Yesterday"},
        {local("2026-11-19 12:00:01"), "Yesterday"},
        {local("2026-11-19"), "2 days ago"},
        {local("2026-11-13"), "1 week ago"},
        {local("2026-11-07"), "2 weeks ago"},
        {local("2026-10-21"), "1 month ago"},
        {local("2026-10-21 12:00:01"), "4 weeks ago"},
        {local("2025-11-21 12:00:01"), "11 months ago"},
        {local("2025-11-21"), "1 year ago"},
        {local("1999-01-01"), "27 years ago"},
        // Short months, and the nights in which clocks go forward and back.
        {local("2026-01-31"), "1 month ago", local("2026-02-28")},
        {local("2024-02-29"), "1 year ago", local("2025-02-28")},
        {local("2026-03-28"), "Yesterday", local("2026-03-29")},
        {local("2026-10-24"), "24 hours ago", local("2026-10-25 11:30:00")},
    };
    for (const auto& row : rows)
        EXPECT_EQ(relativeDateStringForDate(row.date, row.now.value_or(now)), row.text);
    unsetenv("TZ");
    tzset();
}

std::string in(const char* locale, const char* zone, Date date, DateStyle day, TimeStyle time)
{
    setenv("LC_ALL", locale, 1);
    setenv("TZ", zone, 1);
    tzset();
    return localizedDate(date, day, time);
}

TEST(DateText, FollowsStylesZoneAndLocale)
{
    constexpr Date evening{std::chrono::milliseconds(1'699'999'400'999)}; // 2023-11-14 22:03:20 UTC
    constexpr Date early{std::chrono::milliseconds(1'699'142'700'000)};   // 2023-11-05 00:05:00 UTC
    const struct {
        const char *locale, *zone;
        Date date;
        DateStyle day;
        TimeStyle time;
        const char* text;
    } rows[] = {
        {"C", "UTC", evening, DateStyle::Short, TimeStyle::Medium, "11/14/23, 22:03:20"},
        {"C", "UTC", evening, DateStyle::Medium, TimeStyle::Short, "Nov 14, 2023, 22:03"},
        {"C", "JST-9", evening, DateStyle::Short, TimeStyle::Short, "11/15/23, 07:03"},
        {"C", "UTC", early, DateStyle::Medium, TimeStyle::Medium, "Nov 5, 2023, 00:05:00"},
        {"xx_XX.none", "UTC", evening, DateStyle::Short, TimeStyle::Medium, "11/14/23, 22:03:20"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(in(row.locale, row.zone, row.date, row.day, row.time), row.text) << row.locale;

    // Where the host has them: the order and the clock of the language.
    if (locale_t german = newlocale(LC_TIME_MASK, "de_DE.UTF-8", nullptr)) {
        freelocale(german);
        EXPECT_EQ(in("de_DE.UTF-8", "UTC", early, DateStyle::Medium, TimeStyle::Short),
                  "5 Nov 2023, 00:05");
    }
    if (locale_t american = newlocale(LC_TIME_MASK, "en_US.UTF-8", nullptr)) {
        freelocale(american);
        EXPECT_EQ(in("en_US.UTF-8", "UTC", evening, DateStyle::Medium, TimeStyle::Short),
                  "Nov 14, 2023, 10:03 PM");
    }
}

TEST(DateText, NamesTheDaysNextToNow)
{
    setenv("LC_ALL", "C", 1);
    setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
    tzset();
    // Monday 2023-10-30 00:30, the night after a day of 25 hours.
    constexpr Date now{std::chrono::milliseconds(1'698'622'200'000)};
    const struct {
        std::chrono::minutes before;
        const char* text;
    } rows[] = {
        {std::chrono::minutes(10), "Today, 00:20:00"},
        {std::chrono::minutes(40), "Yesterday, 23:50:00"},
        {std::chrono::minutes(25 * 60 + 20), "Yesterday, 00:10:00"},
        {std::chrono::minutes(25 * 60 + 40), "October 28, 2023, 23:50:00"},
        {std::chrono::minutes(-60), "Today, 01:30:00"},
        {std::chrono::minutes(-24 * 60), "October 31, 2023, 00:30:00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(relativeLocalizedDate(now - row.before, now), row.text);
}

TEST(Texts, SizesAndDates)
{
    EXPECT_EQ(sizeText(0), "0 byte");
    EXPECT_EQ(sizeText(1), "1 byte");
    EXPECT_EQ(sizeText(999), "999 bytes");
    EXPECT_EQ(sizeText(1000), "1.0 KB");
    EXPECT_EQ(sizeText(999'950), "1.0 MB");
    EXPECT_EQ(sizeText(123'456'789), "123 MB");
    EXPECT_EQ(iso8601(Date(std::chrono::milliseconds(1'700'000'000'007))),
              "2023-11-14T22:13:20.007Z");
    EXPECT_EQ(iso8601(Date(std::chrono::seconds(32'503'680'000))), "3000-01-01T00:00:00.000Z");
    EXPECT_EQ(iso8601(Date(std::chrono::milliseconds(-1))), "1969-12-31T23:59:59.999Z");
}

} // namespace
} // namespace pryvane
