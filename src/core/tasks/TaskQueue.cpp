#include "core/tasks/TaskQueue.h"

#include "core/ThreadSafety.h"

#include <optional>

namespace pryvane {

/// What passes between the thread and the main thread.
struct TaskQueue::Handover {
    Mutex mutex;
    Condition ended;
    std::optional<Ending> ending GUARDED_BY(mutex);
    bool isWaitedFor GUARDED_BY(mutex) = true;
};

void TaskQueue::startNext()
{
    if (m_isRunning || m_waiting.empty())
        return;
    m_isRunning = true;
    Job job = std::move(m_waiting.front());
    m_waiting.pop_front();
    const auto handover = std::make_shared<Handover>();
    m_worker.start(
        [this, handover, job = std::move(job)] { ended(handover, job(m_stop)); },
        [this, handover](const char*) { ended(handover, {}); }); // what was asked for does not come
    if (isEndedSoon(*handover))
        finish(*handover);
}

/// Waits for it a little; what takes longer then ends through the main queue.
bool TaskQueue::isEndedSoon(Handover& handover) const
{
    const auto end = std::chrono::steady_clock::now() + m_patience;
    MutexLock lock(handover.mutex);
    while (!handover.ending && std::chrono::steady_clock::now() < end)
        handover.ended.waitUntil(lock, end);
    handover.isWaitedFor = handover.ending.has_value();
    return handover.isWaitedFor;
}

/// On the thread: leaves what it made to whoever waits for it, or to the main thread.
void TaskQueue::ended(const std::shared_ptr<Handover>& handover, Ending ending)
{
    const MutexLock lock(handover->mutex);
    handover->ending = std::move(ending);
    if (handover->isWaitedFor)
        handover->ended.notifyOne();
    else
        m_later.post([this, handover] { finish(*handover); });
}

void TaskQueue::finish(Handover& handover)
{
    Ending ending;
    {
        const MutexLock lock(handover.mutex);
        ending = std::move(*handover.ending);
    }
    m_isRunning = false;
    if (ending)
        ending();
    startNext();
}

} // namespace pryvane
