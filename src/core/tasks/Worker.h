#pragma once

#include "core/Exhaustion.h"

#include <thread>
#include <utility>

namespace pryvane {

/// One background thread at a time, joined on destruction. Whoever owns it has asked the work to
/// stop before that. Main thread only.
class Worker {
public:
    Worker() = default;
    ~Worker() { join(); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Waits for the work before, which must be ending. Where the work throws, or no thread can be
    /// had for it, `failed` is called with the reason instead of the work's own end: on the thread,
    /// or on the caller's. It hands the owner, on the main thread, what the work leaves undone; it
    /// is called again while there is no memory even for that.
    template <typename Work, typename Failed>
    void start(Work work, Failed failed)
    {
        join();
        try {
            m_thread = std::thread([work = std::move(work), failed]() mutable {
                try {
                    work();
                } catch (const std::exception& error) {
                    giveUp(error, failed);
                }
            });
        } catch (const std::exception& error) {
            giveUp(error, failed);
        }
    }

    void join()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    template <typename Failed>
    static void giveUp(const std::exception& error, const Failed& failed)
    {
        const char* why = exhaustionText(error);
        untilThereIsMemory([&] { failed(why); });
        untilThereIsMemory([&] { tellGivenUp(why); });
    }

    std::thread m_thread;
};

} // namespace pryvane
