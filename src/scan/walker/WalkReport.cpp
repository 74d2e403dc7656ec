#include "scan/walker/WalkReport.h"

#include <chrono>

namespace pryvane {

namespace {

constexpr std::size_t kMostWaiting = 2048;    // in one stretch
constexpr std::int64_t kMostRefusals = 1'000; // are told one by one
constexpr std::chrono::milliseconds kStopPolled{20};

} // namespace

WalkReport::Place WalkReport::first()
{
    const MutexLock lock(m_mutex);
    return m_stretches.emplace(m_stretches.begin());
}

WalkReport::Place WalkReport::insertAfter(Place place)
{
    const MutexLock lock(m_mutex);
    return m_stretches.emplace(std::next(place));
}

void WalkReport::add(Place place, Item item)
{
    MutexLock lock(m_mutex);
    while (place != m_stretches.begin() && place->waiting.size() >= kMostWaiting &&
           !m_stop.requested())
        m_advanced.waitFor(lock, kStopPolled);
    if (place == m_stretches.begin())
        tell(item);
    else
        place->waiting.push_back(std::move(item));
}

void WalkReport::complete(Place place)
{
    const MutexLock lock(m_mutex);
    place->complete = true;
    while (!m_stretches.empty() && m_stretches.front().complete) {
        m_stretches.pop_front();
        if (!m_stretches.empty())
            tellWaiting(m_stretches.front());
    }
    m_advanced.notifyAll();
}

void WalkReport::flush()
{
    const MutexLock lock(m_mutex);
    for (Stretch& stretch : m_stretches)
        tellWaiting(stretch);
    m_stretches.clear();
}

void WalkReport::tellWaiting(Stretch& stretch)
{
    for (const Item& item : stretch.waiting)
        tell(item);
    stretch.waiting.clear();
}

void WalkReport::tell(const Item& item)
{
    if (item.isOtherDisk) {
        if (++m_otherDisks <= kMostRefusals)
            m_observer.otherDisk(item.path);
    } else if (item.reason.empty()) {
        m_observer.match(item.path, std::string_view(item.path).substr(item.nameAt), item.seen);
    } else if (++m_refusals <= kMostRefusals) {
        m_observer.refused(item.path, item.reason);
    }
}

} // namespace pryvane
