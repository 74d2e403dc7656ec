#pragma once

#include "engine/walker/WalkTask.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

namespace pryvane {

/// Where threads without work wait for others to give some of theirs away. A task is only given
/// when a thread waits for it, so every task is at work at once. Callable from any thread.
class WalkCrew {
public:
    /// Whether some thread waits. One atomic read, meant for hot loops.
    [[nodiscard]] bool wantsWork() const { return m_wanted.load(std::memory_order_relaxed) > 0; }

    /// Calls make() for the task and hands it over, unless no thread waits any more.
    template <typename Make>
    void give(Make&& make)
    {
        const std::lock_guard lock(m_mutex);
        if (m_wanted.load(std::memory_order_relaxed) <= 0)
            return;
        if (std::optional<WalkTask> task = make()) {
            m_tasks.push_back(std::move(*task));
            m_wanted.fetch_sub(1, std::memory_order_relaxed);
            m_changed.notify_one();
        }
    }

    /// Hands in the first task, before any thread asks.
    void begin(WalkTask task)
    {
        m_tasks.push_back(std::move(task));
        m_wanted.fetch_sub(1, std::memory_order_relaxed);
    }

    /// The next task, or none when all is walked.
    [[nodiscard]] std::optional<WalkTask> take()
    {
        std::unique_lock lock(m_mutex);
        m_wanted.fetch_add(1, std::memory_order_relaxed);
        m_changed.wait(lock, [this] { return !m_tasks.empty() || m_working == 0; });
        if (m_tasks.empty()) {
            m_changed.notify_all();
            return std::nullopt;
        }
        std::optional<WalkTask> task(std::move(m_tasks.front()));
        m_tasks.pop_front();
        ++m_working;
        return task;
    }

    /// Says that the task taken before has been walked.
    void finished()
    {
        const std::lock_guard lock(m_mutex);
        if (--m_working == 0)
            m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<WalkTask> m_tasks; // guarded by m_mutex
    int m_working = 0;            // guarded by m_mutex
    std::atomic<int> m_wanted{0}; ///< waiting threads less tasks on their way to them
};

} // namespace pryvane
