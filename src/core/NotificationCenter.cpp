#include "core/NotificationCenter.h"

#include <algorithm>
#include <utility>

namespace pryvane {

NotificationCenter::Observation&
NotificationCenter::Observation::operator=(Observation&& other) noexcept
{
    if (this != &other) {
        end();
        m_center = std::exchange(other.m_center, nullptr);
        m_name = other.m_name;
        m_id = other.m_id;
    }
    return *this;
}

void NotificationCenter::Observation::end()
{
    if (m_center)
        std::exchange(m_center, nullptr)->forget(m_name, m_id);
}

NotificationCenter::Observation NotificationCenter::observe(NotificationName name, Handler handler)
{
    const MutexLock lock(m_mutex);
    const auto& known = m_observers[index(name)];
    auto changed = known ? Observers(*known) : Observers();
    const auto id = ++m_lastId;
    changed.push_back({id, std::move(handler)});
    replace(name, std::move(changed));
    return {*this, name, id};
}

void NotificationCenter::forget(NotificationName name, std::uint64_t id)
{
    const MutexLock lock(m_mutex);
    Observers changed = *m_observers[index(name)];
    std::erase_if(changed, [id](const Observer& observer) { return observer.id == id; });
    replace(name, std::move(changed));
}

void NotificationCenter::replace(NotificationName name, Observers observers)
{
    m_counts[index(name)].store(observers.size(), std::memory_order_release);
    m_observers[index(name)] = std::make_shared<const Observers>(std::move(observers));
}

void NotificationCenter::post(NotificationName name, const NotificationObject& object)
{
    if (!hasObservers(name))
        return;
    std::shared_ptr<const Observers> observers;
    {
        const MutexLock lock(m_mutex);
        observers = m_observers[index(name)];
    }
    // Outside the lock: a handler may post, observe or end observations itself.
    for (const Observer& observer : *observers)
        observer.handler({name, object});
}

} // namespace pryvane
