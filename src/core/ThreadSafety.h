#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

// Which mutex guards what, in words that clang holds the code to (scripts/check-guards); GCC knows
// none of them.
#if defined(__clang__)
#define PRYVANE_GUARD(attribute) __attribute__((attribute))
#else
#define PRYVANE_GUARD(attribute)
#endif

/// A member that is only touched while the mutex is held.
#define GUARDED_BY(mutex) PRYVANE_GUARD(guarded_by(mutex))
/// A pointer that anyone may read, to something that is only touched while the mutex is held.
#define PT_GUARDED_BY(mutex) PRYVANE_GUARD(pt_guarded_by(mutex))
/// A function that is only called while the mutex is held.
#define REQUIRES(mutex) PRYVANE_GUARD(requires_capability(mutex))
/// A function that locks the mutex itself, and so must not be called while it is held.
#define EXCLUDES(mutex) PRYVANE_GUARD(locks_excluded(mutex))

namespace pryvane {

/// The standard library's mutex, which itself carries no such words.
template <typename Standard>
class PRYVANE_GUARD(capability("mutex")) GuardingMutex {
public:
    GuardingMutex() = default;
    GuardingMutex(const GuardingMutex&) = delete;
    GuardingMutex& operator=(const GuardingMutex&) = delete;

private:
    template <typename>
    friend class GuardingLock;
    Standard m_mutex;
};

/// Holds a mutex as long as it lives, but for where it is unlocked meanwhile.
template <typename Standard>
class PRYVANE_GUARD(scoped_lockable) GuardingLock {
public:
    explicit GuardingLock(GuardingMutex<Standard>& mutex) PRYVANE_GUARD(acquire_capability(mutex))
        : m_lock(mutex.m_mutex)
    {
    }
    ~GuardingLock() PRYVANE_GUARD(release_capability()) = default;
    GuardingLock(const GuardingLock&) = delete;
    GuardingLock& operator=(const GuardingLock&) = delete;

    void unlock() PRYVANE_GUARD(release_capability()) { m_lock.unlock(); }
    void lock() PRYVANE_GUARD(acquire_capability()) { m_lock.lock(); }

private:
    friend class Condition;
    std::unique_lock<Standard> m_lock;
};

using Mutex = GuardingMutex<std::mutex>;
using MutexLock = GuardingLock<std::mutex>;
using RecursiveMutex = GuardingMutex<std::recursive_mutex>;
using RecursiveMutexLock = GuardingLock<std::recursive_mutex>;

/// Where threads wait for a change of what a mutex guards. A wait may end without one, so whoever
/// waits looks again, in a loop.
class Condition {
public:
    void wait(MutexLock& lock) { m_condition.wait(lock.m_lock); }
    void waitFor(MutexLock& lock, std::chrono::milliseconds longest)
    {
        m_condition.wait_for(lock.m_lock, longest);
    }
    void waitUntil(MutexLock& lock, std::chrono::steady_clock::time_point end)
    {
        m_condition.wait_until(lock.m_lock, end);
    }
    void notifyOne() { m_condition.notify_one(); }
    void notifyAll() { m_condition.notify_all(); }

private:
    std::condition_variable m_condition;
};

} // namespace pryvane
