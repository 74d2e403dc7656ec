#include "removal/session/RemovalPlanning.h"

#include "core/tasks/MainQueue.h"

namespace pryvane {

void RemovalPlanning::start(RecordSelection selection, std::function<void(RemovalPlan)> done)
{
    stop();
    m_stop.clear();
    m_wanted = std::make_shared<char>();
    m_thread.start(
        [this, selection = std::move(selection), done, wanted = std::weak_ptr(m_wanted)] {
            m_queue.post([plan = RecordRemoval(m_disk, m_remover).plan(selection, m_stop), done,
                          wanted]() mutable {
                if (!wanted.expired())
                    done(std::move(plan));
            });
        },
        [this, done, wanted = std::weak_ptr(m_wanted)](const char*) {
            m_queue.post([done, wanted] {
                if (!wanted.expired())
                    done({});
            });
        });
}

void RemovalPlanning::stop()
{
    m_stop.request();
    m_wanted.reset();
    m_thread.join();
}

} // namespace pryvane
