#include "core/tasks/TaskQueue.h"

#include <condition_variable>
#include <mutex>
#include <optional>

namespace pryvane {

/// What passes between the thread and the main thread.
struct TaskQueue::Handover {
    std::mutex mutex;
    std::condition_variable ended;
    std::optional<Ending> ending; // guarded by mutex
    bool isWaitedFor = true;      // guarded by mutex
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
    std::unique_lock lock(handover->mutex);
    handover->isWaitedFor =
        handover->ended.wait_for(lock, m_patience, [&] { return handover->ending.has_value(); });
    const bool isThere = handover->isWaitedFor;
    lock.unlock();
    if (isThere)
        finish(*handover);
}

/// On the thread: leaves what it made to whoever waits for it, or to the main thread.
void TaskQueue::ended(const std::shared_ptr<Handover>& handover, Ending ending)
{
    const std::lock_guard lock(handover->mutex);
    handover->ending = std::move(ending);
    if (handover->isWaitedFor)
        handover->ended.notify_one();
    else
        m_later.post([this, handover] { finish(*handover); });
}

void TaskQueue::finish(Handover& handover)
{
    m_isRunning = false;
    if (*handover.ending)
        (*handover.ending)();
    startNext();
}

} // namespace pryvane
