#pragma once

#include "platform/Remover.h"

#include <mutex>

namespace pryvane {

/// Lets several screens share one remover: each call waits for the one before. Callable from any
/// thread.
class SharedRemover final : public Remover {
public:
    explicit SharedRemover(Remover& remover) : m_remover(remover) {}

    void plan(std::span<const RemovalItem> items, const StopFlag& stop,
              const RemovalForecasts& told) override
    {
        const std::lock_guard lock(m_oneAtATime);
        m_remover.plan(items, stop, told);
    }

    void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                const RemovalResults& told) override
    {
        const std::lock_guard lock(m_oneAtATime);
        m_remover.remove(items, stop, told);
    }

    /// Whatever else must not happen while something is removed.
    template <typename Work>
    void meanwhileNothing(Work work)
    {
        const std::lock_guard lock(m_oneAtATime);
        work();
    }

private:
    Remover& m_remover;
    std::mutex m_oneAtATime;
};

} // namespace pryvane
