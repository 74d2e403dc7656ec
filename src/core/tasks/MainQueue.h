#pragma once

#include <chrono>
#include <functional>

namespace pryvane {

/// Runs work on the main thread, in the order in which it was posted. Callable from any thread.
class MainQueue {
public:
    using Work = std::function<void()>;

    virtual ~MainQueue() = default;
    virtual void post(Work work) = 0;

    /// Runs it no earlier than after that delay.
    virtual void postAfter(std::chrono::milliseconds delay, Work work) = 0;

    [[nodiscard]] virtual bool isMainThread() const = 0;
};

} // namespace pryvane
