#pragma once

#include "core/Texts.h"

#include <string>

namespace pryvane {

/// The same calendar day in the system's time zone with the clock set to h:m:s. A moment that the
/// start of summer time leaves out is the one as long after the change. A date outside the years 1
/// to 9999 is first moved to the nearest one inside.
[[nodiscard]] Date localClock(Date date, int hour, int minute, int second);

/// The hour of the day, 0 to 23, in the system's time zone.
[[nodiscard]] int localHour(Date date);

/// "Tue 24 Nov, 09:00" in the system's time zone.
[[nodiscard]] std::string localMomentText(Date date);

/// A date of the years 1 to 9999, so that arithmetic on it cannot overflow.
[[nodiscard]] Date clampedDate(Date date);

} // namespace pryvane
