#pragma once

#include "core/tasks/BlockingMainQueue.h"

#include <chrono>
#include <vector>

namespace pryvane {

/// The main queue, with the time that each piece of work takes.
class TimedMainQueue final : public MainQueue {
public:
    void post(Work work) override { postAfter(std::chrono::milliseconds(0), std::move(work)); }
    void postAfter(std::chrono::milliseconds delay, Work work) override
    {
        inner.postAfter(delay, [this, work = std::move(work)] { timed(work); });
    }
    bool isMainThread() const override { return inner.isMainThread(); }

    /// Runs it now, as part of the account.
    void timed(const Work& work)
    {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken =
            std::chrono::steady_clock::now() - start;
        held.push_back(taken.count());
    }

    BlockingMainQueue inner;
    std::vector<double> held; ///< milliseconds
};

} // namespace pryvane
