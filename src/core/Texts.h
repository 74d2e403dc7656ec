#pragma once

#include <chrono>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

namespace pryvane {

/// A moment of the wall clock, to the millisecond.
using Date = std::chrono::time_point<std::chrono::system_clock, std::chrono::milliseconds>;

/// The ASCII letter in lower case; any other byte as it is.
[[nodiscard]] constexpr char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] std::string lowerAscii(std::string_view text);

/// Duration text of an interval in seconds, truncated to whole seconds: "less then 1 second",
/// " 1 minute  1 second", " 1 hours  2 minutes  5 seconds". The plural of all units follows the
/// seconds.
[[nodiscard]] std::string stringFromTimeInterval(double seconds);

/// How long ago `date` was, by calendar units of the local time zone: "2 weeks ago", "Yesterday",
/// "1 hour ago", "In few seconds"; "Not scan yet" where `now` is not later than `date`.
[[nodiscard]] std::string relativeDateStringForDate(Date date, Date now);

/// The same for a text that stays on a screen: "just now" for the first minute.
[[nodiscard]] std::string sinceText(Date date, Date now);

/// A count with its noun: "1 entry", "3 entries".
[[nodiscard]] std::string countedText(std::uint64_t count, const char* one, const char* many);

/// A byte count for a person, in decimal units: "0 byte", "812 bytes", "1.4 MB".
[[nodiscard]] std::string sizeText(std::int64_t bytes);

/// A date's parts in the system's time zone, also after the zone was changed.
[[nodiscard]] std::tm localParts(Date date);

/// ISO 8601 in UTC with milliseconds: "2026-11-21T04:26:23.000Z".
[[nodiscard]] std::string iso8601(Date date);

/// Date and time in the local time zone, for a table: "2026-11-21 04:26".
[[nodiscard]] std::string localDateText(Date date);

/// How much of a date is shown: 11/21/26, Nov 21, 2026, November 21, 2026.
enum class DateStyle : std::uint8_t { Short, Medium, Long };

/// How much of a time is shown: 08:23, 08:23:42.
enum class TimeStyle : std::uint8_t { Short, Medium };

/// Date and time in the local time zone, in the form of the user's locale (LC_TIME of the
/// environment, whatever the process itself has set). Callable from any thread.
[[nodiscard]] std::string localizedDate(Date date, DateStyle dateStyle, TimeStyle timeStyle);

/// The same with a long date and a medium time, and the days next to `now` named: "Today,
/// 08:23:42", "Yesterday, 08:23:42".
[[nodiscard]] std::string relativeLocalizedDate(Date date, Date now);

} // namespace pryvane
