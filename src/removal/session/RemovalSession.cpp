#include "removal/session/RemovalSession.h"

#include <chrono>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kBetweenUpdates{33};

} // namespace

void RemovalSession::remove(std::size_t count, Removing removing, Ended ended)
{
    if (m_isRemoving)
        return;
    m_isPlanning = false;
    m_isRemoving = true;
    m_stop.clear();
    m_done = 0;
    m_total = count;
    const auto results = std::make_shared<std::vector<RemovalResult>>(count);
    begin(std::make_shared<Job>(
        Job{[this, removing = std::move(removing), results] { carryOut(removing, *results); },
            [results](const char* why) {
                for (RemovalResult& result : *results)
                    result.giveUp(why);
            },
            [ended = std::move(ended), results] { ended(*results); }}));
}

/// Only looking is ever under way already, and it gives way.
void RemovalSession::begin(std::shared_ptr<Job> job)
{
    if (m_isRunning) {
        m_stopPlan.request();
        m_next = std::move(job);
        return;
    }
    m_isRunning = true;
    m_stopPlan.clear();
    const auto end = [this, job] { m_queue.post([this, job] { ended(*job); }); };
    m_thread.start(
        [job, end] {
            job->work();
            end();
        },
        [job, end](const char* why) {
            job->giveUp(why);
            end();
        });
}

void RemovalSession::ended(Job& job)
{
    m_thread.join();
    m_isRunning = false;
    if (m_next)
        return begin(std::exchange(m_next, nullptr));
    m_isPlanning = false;
    m_isRemoving = false;
    job.end();
}

/// On the session's thread.
void RemovalSession::carryOut(const Removing& removing, std::vector<RemovalResult>& results)
{
    auto nextUpdate = std::chrono::steady_clock::now();
    removing(m_stop, [&](std::size_t item, const RemovalResult& result) {
        results[item] = result;
        ++m_done;
        const auto now = std::chrono::steady_clock::now();
        if (!m_progressed || now < nextUpdate)
            return;
        nextUpdate = now + kBetweenUpdates;
        m_queue.post(m_progressed);
    });
}

} // namespace pryvane
