#pragma once

#include <atomic>

namespace pryvane {

/// A request to stop, set by one thread and polled by others. Setting it twice is harmless.
class StopFlag {
public:
    void request() { m_requested.store(true, std::memory_order_release); }
    void clear() { m_requested.store(false, std::memory_order_release); }
    [[nodiscard]] bool requested() const { return m_requested.load(std::memory_order_acquire); }

private:
    std::atomic<bool> m_requested{false};
};

} // namespace pryvane
