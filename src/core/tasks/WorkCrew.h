#pragma once

#include "core/ThreadSafety.h"

#include <atomic>
#include <chrono>
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
/// when a thread waits for it, so every task given is at work at once. Of the tasks handed in
/// beforehand the next is begun when nobody gives anything of those before it: what comes first is
/// done by all, and done first. Callable from any thread.
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
            m_goOnUntil = {};
            m_changed.notifyOne();
        }
    }

    /// Hands in a task before any thread asks.
    void begin(Task task)
    {
        const MutexLock lock(m_mutex);
        m_first.push_back(std::move(task));
    }

    /// The next task, or none when all is walked.
    [[nodiscard]] std::optional<Task> take()
    {
        MutexLock lock(m_mutex);
        m_wanted.fetch_add(1, std::memory_order_relaxed);
        for (;;) {
            if (m_failure)
                break;
            if (!m_tasks.empty())
                return taken(m_tasks);
            if (!m_first.empty() && (m_working == 0 || Clock::now() < m_goOnUntil)) {
                m_wanted.fetch_sub(1, std::memory_order_relaxed);
                return taken(m_first);
            }
            if (m_working == 0)
                break;
            if (m_first.empty())
                m_changed.wait(lock);
            else
                waitForGift(lock);
        }
        m_changed.notifyAll();
        return std::nullopt;
    }

    /// Says that the task taken before has been walked.
    void finished()
    {
        const MutexLock lock(m_mutex);
        // With tasks left to begin this thread takes the next one; nobody else need wake for it.
        if (--m_working == 0 && m_first.empty())
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
    using Clock = std::chrono::steady_clock;

    /// So long a thread may sit in one large folder, or wait for the disk, until the others go on
    /// without it, and so long they then do before they ask it again.
    static constexpr std::chrono::milliseconds kPatience{2};
    static constexpr std::chrono::milliseconds kGoOn{10};

    [[nodiscard]] std::optional<Task> taken(std::deque<Task>& tasks) REQUIRES(m_mutex)
    {
        std::optional<Task> task(std::move(tasks.front()));
        tasks.pop_front();
        ++m_working;
        return task;
    }

    void waitForGift(MutexLock& lock) REQUIRES(m_mutex)
    {
        const auto end = Clock::now() + kPatience;
        m_changed.waitUntil(lock, end);
        if (const auto now = Clock::now(); m_tasks.empty() && now >= end)
            m_goOnUntil = now + kGoOn;
    }

    mutable Mutex m_mutex;
    Condition m_changed;
    std::deque<Task> m_first GUARDED_BY(m_mutex); ///< not begun
    std::deque<Task> m_tasks GUARDED_BY(m_mutex); ///< given, on their way to who waits
    Clock::time_point m_goOnUntil GUARDED_BY(m_mutex);
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
