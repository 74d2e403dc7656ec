#pragma once

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

    /// Waits for the work before, which must be ending.
    template <typename Work>
    void start(Work work)
    {
        join();
        m_thread = std::thread(std::move(work));
    }

    void join()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    std::thread m_thread;
};

} // namespace pryvane
