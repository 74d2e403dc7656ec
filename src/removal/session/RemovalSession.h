#pragma once

#include "core/StopFlag.h"
#include "core/tasks/BoundQueue.h"
#include "core/tasks/Worker.h"
#include "platform/Remover.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace pryvane {

/// How many of the items of a removal have been dealt with.
struct RemovalProgress {
    std::size_t done = 0;
    std::size_t total = 0;
};

/// What a screen has done in the background before and while it removes: looking what would go, and
/// removing it. One thing at a time: looking gives way to whatever is asked for after it. Main
/// thread only; it works on a thread of its own, which ends with it.
class RemovalSession {
public:
    /// Removes, on the session's thread, and tells what became of each item as a Remover does.
    using Removing = std::function<void(const StopFlag& stop, const RemovalResults& told)>;
    /// Gets what became of each item, on the main thread; may end the session.
    using Ended = std::function<void(const std::vector<RemovalResult>& results)>;

    /// `progressed` is called on the main thread while items are removed, about 30 times a second.
    explicit RemovalSession(MainQueue& queue, std::function<void()> progressed = {})
        : m_queue(queue), m_progressed(std::move(progressed))
    {
    }
    ~RemovalSession() { stop(); }
    RemovalSession(const RemovalSession&) = delete;
    RemovalSession& operator=(const RemovalSession&) = delete;

    /// Calls `look` with a flag on the thread, and `planned` on the main thread with what it made,
    /// or with nothing in it where it was stopped or given up. `planned` is not called where
    /// something else was asked for meanwhile. Nothing while items are removed.
    template <typename Look, typename Planned>
    void plan(Look look, Planned planned)
    {
        if (m_isRemoving)
            return;
        m_isPlanning = true;
        auto plan = std::make_shared<std::invoke_result_t<Look&, const StopFlag&>>();
        begin(std::make_shared<Job>(
            Job{[this, plan, look = std::move(look)]() mutable { *plan = look(m_stopPlan); },
                [](const char*) {},
                [this, plan, planned = std::move(planned)]() mutable {
                    if (m_stopPlan.requested())
                        *plan = {};
                    planned(std::move(*plan));
                }}));
    }

    /// Removes that many items; what was not reached before a stop is told as `removing` has it.
    /// Nothing while others are removed.
    void remove(std::size_t count, Removing removing, Ended ended);

    /// Ends what is under way as soon as that can be.
    void stop()
    {
        m_stopPlan.request();
        m_stop.request();
    }

    [[nodiscard]] bool isPlanning() const { return m_isPlanning; }
    [[nodiscard]] bool isRemoving() const { return m_isRemoving; }
    /// Of the running or last removal.
    [[nodiscard]] RemovalProgress progress() const { return {m_done, m_total}; }

private:
    /// `work` and `giveUp` are called on the thread, `end` on the main thread.
    struct Job {
        std::function<void()> work;
        std::function<void(const char* why)> giveUp;
        std::function<void()> end;
    };

    void begin(std::shared_ptr<Job> job);
    void ended(Job& job);
    void carryOut(const Removing& removing, std::vector<RemovalResult>& results);

    BoundQueue m_queue;
    const std::function<void()> m_progressed;
    bool m_isRunning = false; ///< the thread has a job
    bool m_isPlanning = false;
    bool m_isRemoving = false;
    std::shared_ptr<Job> m_next; ///< begins once the job before it has given way
    std::size_t m_total = 0;
    std::atomic<std::size_t> m_done{0};
    StopFlag m_stopPlan, m_stop;
    Worker m_thread; // last: it ends before anything it uses
};

} // namespace pryvane
