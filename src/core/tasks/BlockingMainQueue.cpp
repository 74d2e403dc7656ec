#include "core/tasks/BlockingMainQueue.h"

#include <algorithm>

namespace pryvane {

void BlockingMainQueue::postAfter(std::chrono::milliseconds delay, Work work)
{
    {
        const MutexLock lock(m_mutex);
        m_work.emplace(std::chrono::steady_clock::now() + delay, std::move(work));
    }
    m_changed.notifyOne();
}

void BlockingMainQueue::run(const Work& idle)
{
    constexpr std::chrono::milliseconds kIdleStep{20};
    MutexLock lock(m_mutex);
    while (!m_quit) {
        const auto now = std::chrono::steady_clock::now();
        if (!m_work.empty() && m_work.begin()->first <= now) {
            const Work work = std::move(m_work.begin()->second);
            m_work.erase(m_work.begin());
            lock.unlock();
            work();
            lock.lock();
            continue;
        }
        Time wake = now + kIdleStep;
        if (!m_work.empty())
            wake = std::min(wake, m_work.begin()->first);
        m_changed.waitUntil(lock, wake);
        if (idle) {
            lock.unlock();
            idle();
            lock.lock();
        }
    }
    m_quit = false;
}

void BlockingMainQueue::quit()
{
    {
        const MutexLock lock(m_mutex);
        m_quit = true;
    }
    m_changed.notifyOne();
}

} // namespace pryvane
