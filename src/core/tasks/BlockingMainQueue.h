#pragma once

#include "core/ThreadSafety.h"
#include "core/tasks/MainQueue.h"

#include <map>
#include <thread>

namespace pryvane {

/// The main queue of a program without an event loop: the thread that made it runs the work inside
/// run().
class BlockingMainQueue final : public MainQueue {
public:
    void post(Work work) override { postAfter(std::chrono::milliseconds(0), std::move(work)); }
    void postAfter(std::chrono::milliseconds delay, Work work) override;
    [[nodiscard]] bool isMainThread() const override
    {
        return std::this_thread::get_id() == m_owner;
    }

    /// Runs posted work, and `idle` about every 20 ms, until quit() was called.
    void run(const Work& idle = {});

    /// Lets run() return after the work in hand. Callable from any thread.
    void quit();

private:
    using Time = std::chrono::steady_clock::time_point;

    const std::thread::id m_owner = std::this_thread::get_id();
    Mutex m_mutex;
    Condition m_changed;
    std::multimap<Time, Work> m_work GUARDED_BY(m_mutex); // equal times keep the posting order
    bool m_quit GUARDED_BY(m_mutex) = false;
};

} // namespace pryvane
