#pragma once

#include "core/Texts.h"

#include <string>

namespace pryvane {

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
