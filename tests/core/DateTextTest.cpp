#include "core/Texts.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace pryvane {
namespace {

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
    struct Row {
        const char *locale, *zone;
        Date date;
        DateStyle day;
        TimeStyle time;
        const char* text;
    };
    const Row rows[] = {
        {"C", "UTC", evening, DateStyle::Short, TimeStyle::Medium, "11/14/23, 22:03:20"},
        {"C", "UTC", evening, DateStyle::Medium, TimeStyle::Short, "Nov 14, 2023, 22:03"},
        {"C", "JST-9", evening, DateStyle::Short, TimeStyle::Short, "11/15/23, 07:03"},
        {"C", "UTC", early, DateStyle::Medium, TimeStyle::Medium, "Nov 5, 2023, 00:05:00"},
        {"xx_XX.none", "UTC", evening, DateStyle::Short, TimeStyle::Medium, "11/14/23, 22:03:20"},
    };
    for (const Row& row : rows)
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

} // namespace
} // namespace pryvane
