#include "support/DesktopFakes.h"

#include <array>

namespace pryvane::test {

void FakeStatusItem::setMenu(std::vector<StatusMenuEntry> entries)
{
    menu = std::move(entries);
    if (!menu.empty() && (titles.empty() || titles.back() != menu.front().title))
        titles.push_back(menu.front().title);
}

void FakeStatusItem::setHasPlace(bool hasPlace)
{
    m_hasPlace = hasPlace;
    if (m_changed)
        m_changed();
}

Result<Bytes> FakeGrantTokens::make(const FileURL& folder)
{
    if (makeFails)
        return Error{"no such folder"};
    granted = true;
    valid.insert(folder.absolutePath());
    return Bytes{folder.absolutePath()};
}

bool FakeGrantTokens::reopen(const Bytes& token)
{
    if (!valid.contains(token.data))
        return false;
    granted = true;
    return true;
}

void FakeSettingsFile::answer(Result<std::string> body)
{
    std::exchange(m_reply, {})(std::move(body));
}

class FakeTimers::Handle final : public Timer {
public:
    Handle(FakeTimers& timers, std::shared_ptr<Entry> entry)
        : m_timers(timers), m_entry(std::move(entry))
    {
    }
    ~Handle() override { m_timers.m_timers.remove(m_entry); }
    std::optional<Date> nextFireDate() const override
    {
        const auto next = m_entry->times.next(m_timers.now(m_entry->steady));
        if (!next || !m_entry->steady)
            return next;
        return m_timers.m_clock.now() + (*next - m_timers.now(true));
    }

private:
    FakeTimers& m_timers;
    std::shared_ptr<Entry> m_entry;
};

Date FakeTimers::now(bool steady) const
{
    return steady ? Date(std::chrono::floor<Date::duration>(m_clock.steadyNow())) : m_clock.now();
}

std::unique_ptr<Timers::Timer> FakeTimers::add(Entry entry)
{
    m_timers.push_back(std::make_shared<Entry>(std::move(entry)));
    return std::make_unique<Handle>(*this, m_timers.back());
}

std::unique_ptr<Timers::Timer> FakeTimers::every(Clock::Interval interval, Fire fire)
{
    return add({FireTimes(now(true) + interval, interval), true, std::move(fire)});
}

std::unique_ptr<Timers::Timer> FakeTimers::at(Date first, Clock::Interval interval, Fire fire)
{
    return add({FireTimes(first, interval), false, std::move(fire)});
}

void FakeTimers::run()
{
    const auto timers = m_timers;
    for (const auto& timer : timers) {
        if (timer->times.takeIfDue(now(timer->steady)))
            timer->fire();
    }
}

FakeWindowHost::State* FakeWindowHost::record(const char* what, ShellWindow window)
{
    constexpr std::array<const char*, 3> kNames = {"main", "access", "help"};
    calls.push_back(std::string(what) + " " + kNames.at(static_cast<std::size_t>(window)));
    const auto found = m_windows.find(window);
    return found == m_windows.end() ? nullptr : &found->second;
}

void FakeWindowHost::open(ShellWindow window)
{
    record("open", window);
    m_windows[window] = {true, false};
    if (onOpen)
        onOpen();
}

void FakeWindowHost::close(ShellWindow window)
{
    record("close", window);
    m_windows.erase(window);
}

void FakeWindowHost::bringForward(ShellWindow window)
{
    if (State* state = record("front", window))
        *state = {true, false};
}

void FakeWindowHost::orderOut(ShellWindow window)
{
    if (State* state = record("hide", window))
        state->visible = false;
}

void FakeWindowHost::setMinimised(ShellWindow window, bool minimised)
{
    if (State* state = record(minimised ? "minimise" : "restore", window))
        state->minimised = minimised;
}

bool FakeWindowHost::isMinimised(ShellWindow window) const
{
    return m_windows.contains(window) && m_windows.at(window).minimised;
}

bool FakeWindowHost::isVisible(ShellWindow window) const
{
    return m_windows.contains(window) && m_windows.at(window).visible;
}

} // namespace pryvane::test
