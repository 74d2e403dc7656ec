#pragma once

#include "core/StopFlag.h"
#include "core/ThreadSafety.h"
#include "scan/walker/WalkObserver.h"

#include <atomic>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// Brings what several threads find into the order of one walk and tells it to the observer, one
/// call at a time. The walk is a row of stretches; each belongs to one thread, which fills it and
/// then says that it is complete. What stands in the first incomplete stretch is told at once, what
/// stands in later ones waits. Callable from any thread.
class WalkReport {
public:
    struct Item {
        std::string path;
        std::size_t nameAt = 0; ///< where the last name begins
        std::string reason;     ///< of a refusal; empty for a match
        SeenEntry seen = {};    ///< of a match
        bool isOtherDisk = false;
    };
    struct Stretch {
        std::vector<Item> waiting;
        bool complete = false;
    };
    using Place = std::list<Stretch>::iterator;

    WalkReport(WalkObserver& observer, const StopFlag& stop) : m_stop(stop), m_observer(observer) {}

    /// The stretch of the whole walk, before any was split off.
    [[nodiscard]] Place first();

    /// A new stretch that comes right after the given one.
    [[nodiscard]] Place insertAfter(Place place);

    /// Hands in what comes next in the stretch. Waits while far too much waits already, which ends
    /// when the stretch comes first or the walk is stopped.
    void add(Place place, Item item);
    void complete(Place place);

    /// Tells what still waits, in order. For the end of the walk.
    void flush();

    /// Runs `tell` with no other call to the observer at the same time.
    template <typename Tell>
    void alone(Tell&& tell)
    {
        const MutexLock lock(m_mutex);
        tell(m_observer);
    }

    [[nodiscard]] std::int64_t refusals() const
    {
        const MutexLock lock(m_mutex);
        return m_refusals;
    }

private:
    void tell(const Item& item) REQUIRES(m_mutex);
    void tellWaiting(Stretch& stretch) REQUIRES(m_mutex);

    const StopFlag& m_stop;
    mutable Mutex m_mutex;
    Condition m_advanced;
    WalkObserver& m_observer GUARDED_BY(m_mutex);
    std::list<Stretch> m_stretches GUARDED_BY(m_mutex);
    std::int64_t m_refusals GUARDED_BY(m_mutex) = 0;
    std::int64_t m_otherDisks GUARDED_BY(m_mutex) = 0;
};

} // namespace pryvane
