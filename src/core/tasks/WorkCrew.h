#pragma once

#include "core/ThreadSafety.h"

#include <atomic>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace pryvane {

/// Where threads without work wait for others to give some of theirs away. A task is only given
/// when a thread waits for it, so every task given is at work at once. Callable from any thread.
template <typename Task>
class WorkCrew {
public:
    /// Whether some thread waits. One atomic read, meant for hot loops.
    [[nodiscard]] bool wantsWork() const { return m_wanted.load(std::memory_order_relaxed) > 0; }

    /// Calls make() for the task and hands it over, unless no thread waits any more.
    template <typename Make>
    void give(Make&& make)
    {
        const MutexLock lock(m_mutex);
        if (m_wanted.load(std::memory_order_relaxed) <= 0)
            return;
        if (std::optional<Task> task = make()) {
            m_tasks.push_back(std::move(*task));
            m_wanted.fetch_sub(1, std::memory_order_relaxed);
            m_changed.notifyOne();
        }
    }

    /// Hands in a first task, before any thread asks.
    void begin(Task task)
    {
        const MutexLock lock(m_mutex);
        m_tasks.push_back(std::move(task));
        m_wanted.fetch_sub(1, std::memory_order_relaxed);
    }

    /// The next task, or none when all is walked.
    [[nodiscard]] std::optional<Task> take()
    {
        MutexLock lock(m_mutex);
        m_wanted.fetch_add(1, std::memory_order_relaxed);
        while (m_tasks.empty() && m_working > 0 && !m_failure)
            m_changed.wait(lock);
        if (m_tasks.empty() || m_failure) {
            m_changed.notifyAll();
            return std::nullopt;
        }
        std::optional<Task> task(std::move(m_tasks.front()));
        m_tasks.pop_front();
        ++m_working;
        return task;
    }

    /// Says that the task taken before has been walked.
    void finished()
    {
        const MutexLock lock(m_mutex);
        if (--m_working == 0)
            m_changed.notifyAll();
    }

    /// Does one thread's share of the work. What it throws ends the shares of the others, too, each
    /// after its task in hand.
    template <typename Work>
    void share(const Work& work)
    {
        try {
            work();
        } catch (...) {
            const MutexLock lock(m_mutex);
            m_failure = std::current_exception();
            m_changed.notifyAll();
        }
    }

    /// Throws on what a share threw, once all threads have ended.
    void throwOn() const
    {
        const MutexLock lock(m_mutex);
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

private:
    mutable Mutex m_mutex;
    Condition m_changed;
    std::deque<Task> m_tasks GUARDED_BY(m_mutex);
    int m_working GUARDED_BY(m_mutex) = 0;
    std::exception_ptr m_failure GUARDED_BY(m_mutex);
    std::atomic<int> m_wanted{0}; ///< waiting threads less tasks on their way to them
};

/// How many threads walk, and how many folders each may hold open.
struct CrewSize {
    std::size_t threads;
    std::size_t handles; ///< of each

    /// As many threads as asked for, if the process may open enough for them.
    [[nodiscard]] static CrewSize forThreads(unsigned asked);

    /// More than there are cores: while one waits for the disk, others walk on, and where nothing
    /// waits the surplus costs nothing.
    [[nodiscard]] static unsigned usualThreads();
};

/// Threads that share one piece of work: at first as many as there are processors, then one more
/// each time the work asks for it.
class GrowingCrew {
public:
    /// At most so many threads, the calling one included.
    GrowingCrew(std::size_t most, std::function<void()> work);

    /// Works on the calling thread too; returns when all threads have ended.
    void run();

    /// Callable from within the work.
    void addOne();

private:
    const std::size_t m_most;
    const std::function<void()> m_work;
    Mutex m_mutex;
    std::vector<std::thread> m_helpers GUARDED_BY(m_mutex);
};

/// Notices that the calling thread keeps waiting for the disk. One thread's own.
class DiskWaits {
public:
    /// From here on; waits before it were for something else.
    void begin();

    /// To be called for each folder read: whether a good part of the last ones had to be waited
    /// for. Without a way to tell, the answer is yes.
    [[nodiscard]] bool often();

private:
    int m_reads = 0;
    long m_switches = 0; ///< of the processor, away from the thread, as it waited
};

/// Runs the same work on the calling thread and on as many others as can be had.
template <typename Work>
void onThreads(std::size_t count, Work work)
{
    std::vector<std::thread> helpers;
    try {
        helpers.reserve(count);
        while (helpers.size() + 1 < count)
            helpers.emplace_back(work);
    } catch (const std::exception&) {
        // Fewer will do.
    }
    work();
    for (std::thread& helper : helpers)
        helper.join();
}

} // namespace pryvane
