#pragma once

#include "core/StopFlag.h"
#include "core/tasks/Worker.h"
#include "removal/session/RecordRemoval.h"

#include <functional>
#include <memory>

namespace pryvane {

class MainQueue;

/// Looks in the background what removing findings would do. Main thread only; a thread of its own
/// looks, and ends with it.
class RemovalPlanning {
public:
    /// The remover is used by nobody else meanwhile.
    RemovalPlanning(FileSystem& disk, Remover& remover, MainQueue& queue)
        : m_disk(disk), m_remover(remover), m_queue(queue)
    {
    }
    ~RemovalPlanning() { m_stop.request(); }
    RemovalPlanning(const RemovalPlanning&) = delete;
    RemovalPlanning& operator=(const RemovalPlanning&) = delete;

    /// `done` gets the plan on the main thread, unless another was started or this was stopped.
    void start(RecordSelection selection, std::function<void(RemovalPlan)> done);

    /// Waits until the thread has let go of the remover.
    void stop();

private:
    FileSystem& m_disk;
    Remover& m_remover;
    MainQueue& m_queue;
    StopFlag m_stop;
    std::shared_ptr<char> m_wanted; // expires with the wish for the plan
    Worker m_thread;                // last: it ends before anything it uses
};

} // namespace pryvane
