#include "platform/posix/folders/WorkCrew.h"

#include <algorithm>
#include <sys/resource.h>

namespace pryvane {

namespace {

constexpr std::size_t kHandlesOfOthers = 24; // left to the rest of the process
constexpr std::size_t kFewestHandles = 4;    // with which a thread gets anywhere
constexpr std::size_t kMostHandles = 32;
constexpr unsigned kUsualThreads = 8;

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

} // namespace pryvane
