#include "scan/walker/WalkTally.h"

#include "findings/ScanState.h"

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::chrono::milliseconds kBetweenSamples{33};

std::string_view withoutLastSlash(std::string_view path)
{
    return path.size() > 1 && path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
}

} // namespace

WalkTally::WalkTally(Pass pass, ScanState& state, WalkReport& report, bool samples)
    : m_pass(pass), m_state(state), m_report(report), m_samples(samples),
      m_step(std::max<std::int64_t>(state.totalCount / 100, 1))
{
}

void WalkTally::add(std::int64_t entries)
{
    m_entries.fetch_add(entries, std::memory_order_relaxed);
    if (m_pass == Pass::Counting)
        m_state.totalCount.fetch_add(entries, std::memory_order_relaxed);
    else if (m_state.totalScanCount.fetch_add(entries) + entries > m_step)
        postProgress();
}

/// One post for each time the count, taken one by one, would have come to exceed the step.
void WalkTally::postProgress()
{
    m_report.alone([this](WalkObserver& observer) {
        while (m_state.totalScanCount > m_step) {
            m_state.totalScanCount -= m_step + 1;
            observer.progress((m_step + 1) / m_step);
        }
    });
}

void WalkTally::folderRead(std::string_view path)
{
    m_folders.fetch_add(1, std::memory_order_relaxed);
    if (!m_samples || !sampleIsDue())
        return;
    m_report.alone([this, path](WalkObserver& observer) {
        if (m_pass == Pass::Counting)
            observer.counting(m_state.totalCount);
        else
            observer.location(withoutLastSlash(path));
    });
}

bool WalkTally::sampleIsDue()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    auto next = m_nextSample.load(std::memory_order_relaxed);
    using Ticks = std::chrono::steady_clock::duration;
    return now >= next &&
           m_nextSample.compare_exchange_strong(next, now + Ticks(kBetweenSamples).count());
}

} // namespace pryvane
