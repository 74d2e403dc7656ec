#include "platform/Clock.h"

namespace pryvane {

FireTimes::FireTimes(Date first, Clock::Interval interval)
    : m_first(first), m_interval(interval), m_next(first)
{
}

Date FireTimes::firstAfter(Date now) const
{
    if (now < m_first)
        return m_first;
    return m_first + ((now - m_first) / m_interval + 1) * m_interval;
}

/// A program that fired under a clock far ahead must not wait for that time to come again.
void FireTimes::followClock(Date now)
{
    if (m_next && m_interval.count() > 0 && *m_next > m_first && now < *m_next - 2 * m_interval)
        m_next = firstAfter(now);
}

bool FireTimes::takeIfDue(Date now)
{
    followClock(now);
    if (!m_next || now < *m_next)
        return false;
    m_next = m_interval.count() > 0 ? std::optional(firstAfter(now)) : std::nullopt;
    return true;
}

std::optional<Date> FireTimes::next(Date now)
{
    followClock(now);
    return m_next;
}

} // namespace pryvane
