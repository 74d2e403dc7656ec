#pragma once

#include "core/Notifications.h"
#include "core/ThreadSafety.h"

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <vector>

namespace pryvane {

/// Named notifications inside the process. Delivery is synchronous, on the posting thread, in the
/// order of registration; any thread may post, observe or stop observing.
class NotificationCenter {
public:
    using Handler = std::function<void(const Notification&)>;

    /// Keeps one observation alive; destroying it ends the observation. A handler that another
    /// thread has already entered still finishes.
    class [[nodiscard]] Observation {
    public:
        Observation() = default;
        ~Observation() { end(); }
        Observation(Observation&& other) noexcept { *this = std::move(other); }
        Observation& operator=(Observation&& other) noexcept;
        Observation(const Observation&) = delete;
        Observation& operator=(const Observation&) = delete;
        void end();

    private:
        friend class NotificationCenter;
        Observation(NotificationCenter& center, NotificationName name, std::uint64_t id)
            : m_center(&center), m_name(name), m_id(id)
        {
        }
        NotificationCenter* m_center = nullptr;
        NotificationName m_name{};
        std::uint64_t m_id = 0;
    };

    /// Calls `handler` for every notification of that name until the observation ends. The center
    /// must outlive the observation.
    Observation observe(NotificationName name, Handler handler);

    /// Whether a posting of that name would reach anybody. One atomic read, so that a hot loop can
    /// skip making an object that nobody reads.
    [[nodiscard]] bool hasObservers(NotificationName name) const
    {
        return m_counts[index(name)].load(std::memory_order_acquire) != 0;
    }

    void post(NotificationName name, const NotificationObject& object = {});

private:
    struct Observer {
        std::uint64_t id;
        Handler handler;
    };
    using Observers = std::vector<Observer>;

    void replace(NotificationName name, Observers observers) REQUIRES(m_mutex);
    void forget(NotificationName name, std::uint64_t id) EXCLUDES(m_mutex);

    Mutex m_mutex;
    std::uint64_t m_lastId GUARDED_BY(m_mutex) = 0;
    /// By name; copied on change.
    std::array<std::shared_ptr<const Observers>, kNotificationCount>
        m_observers GUARDED_BY(m_mutex);
    std::array<std::atomic<std::size_t>, kNotificationCount> m_counts{}; ///< of observers, by name
};

} // namespace pryvane
