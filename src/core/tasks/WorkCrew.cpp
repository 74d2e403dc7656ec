#include "core/tasks/WorkCrew.h"

#include <algorithm>
#include <sched.h>
#include <sys/resource.h>

namespace pryvane {

namespace {

constexpr std::size_t kHandlesOfOthers = 24; // left to the rest of the process
constexpr std::size_t kFewestHandles = 4;    // with which a thread gets anywhere
constexpr std::size_t kMostHandles = 32;
constexpr unsigned kUsualThreads = 8;
constexpr int kReadsBetweenLooks = 16;
constexpr long kOftenOfThem = 4;

/// Those that this process may run on.
std::size_t processors()
{
#ifdef __linux__
    cpu_set_t set;
    if (sched_getaffinity(0, sizeof set, &set) == 0)
        return static_cast<std::size_t>(CPU_COUNT(&set));
#endif
    return std::max(std::thread::hardware_concurrency(), 1U);
}

/// How often the calling thread has given up the processor to wait; none where it cannot be told.
std::optional<long> timesWaited()
{
#ifdef RUSAGE_THREAD
    rusage usage{};
    if (getrusage(RUSAGE_THREAD, &usage) == 0)
        return usage.ru_nvcsw;
#endif
    return std::nullopt;
}

} // namespace

CrewSize CrewSize::forThreads(unsigned asked)
{
    rlimit limit{};
    std::size_t free = kFewestHandles;
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0 && limit.rlim_cur > kHandlesOfOthers)
        free = static_cast<std::size_t>(limit.rlim_cur) - kHandlesOfOthers;
    const std::size_t most = std::max<std::size_t>(free / kFewestHandles, 1);
    const std::size_t threads = std::clamp<std::size_t>(asked, 1, most);
    return {threads, std::clamp(free / threads, kFewestHandles, kMostHandles)};
}

unsigned CrewSize::usualThreads()
{
    return std::max(kUsualThreads, std::thread::hardware_concurrency());
}

GrowingCrew::GrowingCrew(std::size_t most, std::function<void()> work)
    : m_most(most), m_work(std::move(work))
{
}

void GrowingCrew::run()
{
    for (std::size_t i = 1; i < std::min(processors(), m_most); ++i)
        addOne();
    m_work();
    for (std::size_t i = 0;; ++i) {
        std::thread helper;
        {
            const MutexLock lock(m_mutex);
            if (i == m_helpers.size())
                return;
            helper = std::move(m_helpers[i]);
        }
        helper.join(); // outside the lock, as it may add another
    }
}

void GrowingCrew::addOne()
{
    const MutexLock lock(m_mutex);
    if (m_helpers.size() + 1 >= m_most)
        return;
    try {
        m_helpers.emplace_back(m_work);
    } catch (const std::exception&) {
        // Fewer will do.
    }
}

void DiskWaits::begin()
{
    m_reads = 0;
    m_switches = timesWaited().value_or(0);
}

bool DiskWaits::often()
{
    if (++m_reads < kReadsBetweenLooks)
        return false;
    m_reads = 0;
    const auto now = timesWaited();
    const long waits = now.value_or(m_switches + kOftenOfThem) - m_switches;
    m_switches = now.value_or(0);
    return waits >= kOftenOfThem;
}

} // namespace pryvane
