#pragma once

#include "core/ThreadSafety.h"
#include "platform/Remover.h"

namespace pryvane {

/// Lets several screens share one remover: each call waits for the one before. Callable from any
/// thread.
class SharedRemover final : public Remover {
public:
    explicit SharedRemover(Remover& remover) : m_remover(remover) {}

    void plan(std::span<const RemovalItem> items, const StopFlag& stop,
              const RemovalForecasts& told) override
    {
        const MutexLock lock(m_oneAtATime);
        m_remover.plan(items, stop, told);
    }

    void remove(std::span<const RemovalItem> items, const StopFlag& stop,
                const RemovalResults& told) override
    {
        const MutexLock lock(m_oneAtATime);
        m_remover.remove(items, stop, told);
    }

    /// Whatever else must not happen while something is removed.
    template <typename Work>
    void meanwhileNothing(Work work)
    {
        const MutexLock lock(m_oneAtATime);
        work();
    }

private:
    Mutex m_oneAtATime;
    Remover& m_remover GUARDED_BY(m_oneAtATime);
};

} // namespace pryvane
