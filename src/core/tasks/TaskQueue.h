#pragma once

#include "core/StopFlag.h"
#include "core/tasks/BoundQueue.h"
#include "core/tasks/Worker.h"

#include <chrono>
#include <deque>
#include <functional>
#include <memory>

namespace pryvane {

/// Runs pieces of work in turn on a thread of its own and hands what each made to the main thread.
/// The caller waits for quick work, so that what it shows need not change twice; slow work ends
/// through the main queue. Main thread only; work not begun when it ends is dropped.
class TaskQueue {
public:
    explicit TaskQueue(MainQueue& queue,
                       std::chrono::milliseconds patience = std::chrono::milliseconds(10))
        : m_later(queue), m_patience(patience)
    {
    }
    ~TaskQueue() { m_stop.request(); }
    TaskQueue(const TaskQueue&) = delete;
    TaskQueue& operator=(const TaskQueue&) = delete;

    /// `work` runs on the thread and is given the flag that asks it to end; `finish` gets, on the
    /// main thread, what it returned.
    template <typename Work, typename Finish>
    void run(Work work, Finish finish)
    {
        m_waiting.push_back([work = std::move(work),
                             finish = std::move(finish)](const StopFlag& stop) mutable -> Ending {
            auto made = std::make_shared<std::invoke_result_t<Work&, const StopFlag&>>(work(stop));
            return [made, finish = std::move(finish)]() mutable { finish(std::move(*made)); };
        });
        startNext();
    }

    /// Whether work is under way or waits.
    [[nodiscard]] bool isBusy() const { return m_isRunning || !m_waiting.empty(); }

private:
    using Ending = std::function<void()>;
    using Job = std::function<Ending(const StopFlag&)>;
    struct Handover;

    void startNext();
    [[nodiscard]] bool isEndedSoon(Handover& handover) const;
    void ended(const std::shared_ptr<Handover>& handover, Ending ending);
    void finish(Handover& handover);

    BoundQueue m_later;
    const std::chrono::milliseconds m_patience;
    StopFlag m_stop;
    bool m_isRunning = false;
    std::deque<Job> m_waiting;
    Worker m_worker; // last: it ends before anything it uses
};

} // namespace pryvane
