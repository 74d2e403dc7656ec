#include "support/Fakes.h"

#include <gtest/gtest.h>

namespace pryvane::test {

Date FakeClock::now() const
{
    const std::lock_guard lock(m_mutex);
    return m_now;
}

std::chrono::nanoseconds FakeClock::steadyNow() const
{
    const std::lock_guard lock(m_mutex);
    return m_steady;
}

void FakeClock::pause(Interval interval, const StopFlag&)
{
    advance(interval);
    std::size_t number = 0;
    {
        const std::lock_guard lock(m_mutex);
        m_pauses.push_back(interval);
        number = m_pauses.size();
    }
    if (onPause)
        onPause(number);
}

void FakeClock::advance(Interval interval)
{
    const std::lock_guard lock(m_mutex);
    m_now += interval;
    m_steady += interval;
}

void FakeClock::setNow(Date date)
{
    const std::lock_guard lock(m_mutex);
    m_now = date;
}

std::vector<Clock::Interval> FakeClock::pauses() const
{
    const std::lock_guard lock(m_mutex);
    return m_pauses;
}

void ManualMainQueue::postAfter(std::chrono::milliseconds delay, Work work)
{
    const std::lock_guard lock(m_mutex);
    if (delay.count() == 0)
        m_now.push_back(std::move(work));
    else
        m_later.emplace(delay, std::move(work));
    m_posted.notify_one();
}

bool ManualMainQueue::runOne()
{
    Work work;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_now.empty()) {
            work = std::move(m_now.front());
            m_now.pop_front();
        } else if (!m_later.empty()) {
            work = std::move(m_later.begin()->second);
            m_later.erase(m_later.begin());
        }
    }
    if (!work)
        return false;
    work();
    return true;
}

void ManualMainQueue::drain()
{
    while (runOne()) {
    }
}

bool ManualMainQueue::runUntil(const std::function<bool()>& done)
{
    constexpr auto kLook = std::chrono::milliseconds(10),
                   kPatience = std::chrono::milliseconds(60'000);
    for (auto idle = std::chrono::milliseconds(0); !done();) {
        if (runOne()) {
            idle = idle.zero();
            continue;
        }
        // Counted in looks, so that time in which this process does not run is not held against it.
        std::unique_lock lock(m_mutex);
        m_posted.wait_for(lock, kLook, [this] { return !m_now.empty() || !m_later.empty(); });
        if ((idle += kLook) > kPatience)
            return false;
    }
    return true;
}

int ScriptedAlerts::runModal(const Alert& alert)
{
    m_asked.push_back(alert);
    if (m_answers.empty()) {
        ADD_FAILURE() << "unexpected alert: " << alert.messageText << " / "
                      << alert.informativeText;
        return kAlertFirstButton;
    }
    const int answer = m_answers.front();
    m_answers.pop_front();
    return answer;
}

std::optional<FileURL> ScriptedFolderPicker::pickFolder(const FolderQuestion& question)
{
    m_asked.push_back(question);
    if (m_answers.empty()) {
        ADD_FAILURE() << "unexpected open panel: " << question.message;
        return std::nullopt;
    }
    auto answer = std::move(m_answers.front());
    m_answers.pop_front();
    return answer;
}

void RecordingLog::line(std::string_view text)
{
    const std::lock_guard lock(m_mutex);
    m_lines.emplace_back(text);
}

std::vector<std::string> RecordingLog::lines() const
{
    const std::lock_guard lock(m_mutex);
    return m_lines;
}

std::optional<FileURL> FakeWorkspace::fullPathForApplication(std::string_view name)
{
    const auto found = applications.find(name);
    return found == applications.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> FakeWorkspace::bundleIdentifier(const FileURL& bundle)
{
    bundleReaders.push_back(std::this_thread::get_id());
    const auto found = bundleIdentifiers.find(bundle.absolutePath());
    return found == bundleIdentifiers.end() ? std::nullopt : std::optional(found->second);
}

} // namespace pryvane::test
