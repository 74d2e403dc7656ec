#pragma once

#include <exception>
#include <functional>
#include <thread>
#include <utility>

namespace pryvane {

/// One thread, joined at the end of this; whoever owns it has asked the work to end by then. The
/// work must not throw. Making it throws std::system_error where the system gives no thread.
class Thread {
public:
    template <typename Work>
    explicit Thread(Work work) : m_thread(std::move(work))
    {
    }
    ~Thread() { m_thread.join(); }
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

private:
    std::thread m_thread;
};

/// Runs the work on a thread made for it alone, and waits. What the work throws is thrown here, and
/// std::system_error where the system gives no thread.
inline void runOnOwnThread(const std::function<void()>& work)
{
    std::exception_ptr thrown;
    {
        const Thread thread([&] {
            try {
                work();
            } catch (...) {
                thrown = std::current_exception();
            }
        });
    }
    if (thrown)
        std::rethrow_exception(thrown);
}

} // namespace pryvane
