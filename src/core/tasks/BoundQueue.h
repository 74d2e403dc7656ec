#pragma once

#include "core/tasks/MainQueue.h"

#include <memory>
#include <utility>

namespace pryvane {

/// Posts work to the main queue for its owner: work still waiting when the owner ends is dropped.
/// The owner ends on the main thread. Callable from any thread that ends before the owner does.
class BoundQueue {
public:
    explicit BoundQueue(MainQueue& queue) : m_queue(queue) {}
    BoundQueue(const BoundQueue&) = delete;
    BoundQueue& operator=(const BoundQueue&) = delete;

    void post(MainQueue::Work work) { m_queue.post(bound(std::move(work))); }

    /// Runs it no earlier than after that delay.
    void postAfter(std::chrono::milliseconds delay, MainQueue::Work work)
    {
        m_queue.postAfter(delay, bound(std::move(work)));
    }

    /// The same function, doing nothing once the owner has ended.
    template <typename... Arguments>
    [[nodiscard]] std::function<void(Arguments...)>
    bound(std::function<void(Arguments...)> work) const
    {
        return [alive = std::weak_ptr(m_alive), work = std::move(work)](Arguments... arguments) {
            if (!alive.expired())
                work(std::move(arguments)...);
        };
    }

private:
    MainQueue& m_queue;
    std::shared_ptr<char> m_alive = std::make_shared<char>();
};

} // namespace pryvane
