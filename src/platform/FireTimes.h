#pragma once

#include "platform/Clock.h"

#include <optional>

namespace pryvane {

/// When a repeating timer is due: at `first` and every `interval` after it, never in between.
/// Firings that were missed are made up by one. A clock that is set back by up to an interval makes
/// no moment fire twice; set back further, it starts over with the first of these moments that lies
/// ahead. An interval of 0 fires once.
class FireTimes {
public:
    FireTimes(Date first, Clock::Interval interval);

    /// Whether a firing is due; it then counts as done.
    [[nodiscard]] bool takeIfDue(Date now);

    /// The next firing as seen at that moment; none when there is no more.
    [[nodiscard]] std::optional<Date> next(Date now);

private:
    void followClock(Date now);
    [[nodiscard]] Date firstAfter(Date now) const;

    Date m_first;
    Clock::Interval m_interval;
    std::optional<Date> m_next;
};

} // namespace pryvane
