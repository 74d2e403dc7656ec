#pragma once

#include "platform/Clock.h"
#include "platform/ClosedScans.h"
#include "platform/DesktopPrograms.h"
#include "platform/DesktopWindows.h"
#include "platform/FolderAccess.h"
#include "platform/Network.h"
#include "platform/PlatformServices.h"

#include <array>
#include <list>
#include <map>
#include <set>
#include <string>
#include <vector>

/// Fakes of the desktop: each does what its interface says in memory and records what it was asked.
/// Main thread only.
namespace pryvane::test {

class FakeLoginItem final : public LoginItem {
public:
    bool fails = false;
    bool helperRuns = false;
    std::vector<bool> asked;
    Result<Done> setEnabled(bool enabled) override
    {
        asked.push_back(enabled);
        return fails ? Result<Done>(Error{"no autostart folder"}) : Result<Done>(Done{});
    }
    bool helperIsRunning() override { return helperRuns; }
};

class FakeDistributedNotifications final : public DistributedNotifications {
public:
    std::vector<std::string> posted; ///< "NAME OBJECT"
    void post(std::string_view name, std::string_view object) override
    {
        posted.push_back(std::string(name) + " " + std::string(object));
    }
    /// What it is told reaches nobody.
    std::unique_ptr<Observation> observe(std::string_view, Handler) override { return nullptr; }
};

class FakeDockIcon final : public DockIcon {
public:
    std::vector<ActivationPolicy> set;
    ActivationPolicy policy() const override
    {
        return set.empty() ? ActivationPolicy::Regular : set.back();
    }
    void setPolicy(ActivationPolicy policy) override { set.push_back(policy); }
};

class FakeStatusItem final : public StatusItem {
public:
    int created = 0;
    std::vector<StatusMenuEntry> menu;
    std::vector<std::string> titles; ///< of the first entry, as they changed

    void create(std::string_view, int) override { ++created; }
    bool available() const override { return created > 0 && m_hasPlace; }
    void whenAvailabilityChanges(std::function<void()> changed) override
    {
        m_changed = std::move(changed);
    }
    void setMenu(std::vector<StatusMenuEntry> entries) override
    {
        menu = std::move(entries);
        if (!menu.empty() && (titles.empty() || titles.back() != menu.front().title))
            titles.push_back(menu.front().title);
    }

    /// The desktop gets or loses its status bar.
    void setHasPlace(bool hasPlace)
    {
        m_hasPlace = hasPlace;
        m_changed();
    }

private:
    bool m_hasPlace = true;
    std::function<void()> m_changed = [] {};
};

class FakeGrantTokens final : public GrantTokens {
public:
    std::set<std::string> hostWritable; ///< absolute paths that the host lets this user write
    std::set<std::string> valid;        ///< tokens that reopen
    bool makeFails = false;
    bool granted = false; ///< whether a grant was made or reopened in this process

    Result<Bytes> make(const FileURL& folder) override
    {
        if (makeFails)
            return Error{"no such folder"};
        granted = true;
        valid.insert(folder.absolutePath());
        return Bytes{folder.absolutePath()};
    }
    bool reopen(const Bytes& token) override
    {
        granted = granted || valid.contains(token.data);
        return valid.contains(token.data);
    }
    bool writable(const FileURL& folder) override
    {
        return granted && hostWritable.contains(folder.absolutePath());
    }
};

class FakeSettingsFile final : public SettingsFile {
public:
    int asked = 0;
    void fetch(Reply reply) override
    {
        ++asked;
        m_reply = std::move(reply);
    }
    void answer(Result<std::string> body) { std::exchange(m_reply, {})(std::move(body)); }

private:
    Reply m_reply;
};

class FakeWebBrowser final : public WebBrowser {
public:
    std::vector<std::string> opened;
    Result<Done> open(const std::string& address) override
    {
        opened.push_back(address);
        return Done{};
    }
};

/// Timers of a fake clock. Moving the clock fires nothing; run() does, as a main loop would.
class FakeTimers final : public Timers {
public:
    explicit FakeTimers(Clock& clock) : m_clock(clock) {}

    std::unique_ptr<Timer> every(Clock::Interval interval, Fire fire) override
    {
        return add({FireTimes(now(true) + interval, interval), true, std::move(fire)});
    }
    std::unique_ptr<Timer> at(Date first, Clock::Interval interval, Fire fire) override
    {
        return add({FireTimes(first, interval), false, std::move(fire)});
    }

    /// Fires once each timer that is due.
    void run()
    {
        const auto timers = m_timers;
        for (const auto& timer : timers) {
            if (timer->times.takeIfDue(now(timer->steady)))
                timer->fire();
        }
    }
    [[nodiscard]] std::size_t running() const { return m_timers.size(); }

private:
    struct Entry {
        FireTimes times;
        bool steady;
        Fire fire;
    };
    struct Handle final : Timer {
        Handle(FakeTimers& of, std::shared_ptr<Entry> which) : timers(of), entry(std::move(which))
        {
        }
        ~Handle() override { timers.m_timers.remove(entry); }
        std::optional<Date> nextFireDate() const override
        {
            const auto next = entry->times.next(timers.now(entry->steady));
            if (!next || !entry->steady)
                return next;
            return timers.m_clock.now() + (*next - timers.now(true));
        }
        FakeTimers& timers;
        std::shared_ptr<Entry> entry;
    };
    [[nodiscard]] Date now(bool steady) const
    {
        return steady ? Date(std::chrono::floor<Date::duration>(m_clock.steadyNow()))
                      : m_clock.now();
    }
    std::unique_ptr<Timer> add(Entry entry)
    {
        m_timers.push_back(std::make_shared<Entry>(std::move(entry)));
        return std::make_unique<Handle>(*this, m_timers.back());
    }

    Clock& m_clock;
    std::list<std::shared_ptr<Entry>> m_timers;
};

/// Windows as they would stand; `calls` tells in which order they were ordered about.
class FakeWindowHost final : public WindowHost {
public:
    std::vector<std::string> calls;       ///< "open main", "activate", ...
    std::function<void()> onOpen = [] {}; ///< called while a window opens
    void open(ShellWindow window) override
    {
        record("open", window);
        m_windows[window] = {true, false};
        onOpen();
    }
    void close(ShellWindow window) override
    {
        record("close", window);
        m_windows.erase(window);
    }
    void bringForward(ShellWindow window) override
    {
        if (State* state = record("front", window))
            *state = {true, false};
    }
    void orderOut(ShellWindow window) override
    {
        if (State* state = record("hide", window))
            state->visible = false;
    }
    void setMinimised(ShellWindow window, bool minimised) override
    {
        if (State* state = record(minimised ? "minimise" : "restore", window))
            state->minimised = minimised;
    }
    bool isMinimised(ShellWindow window) const override
    {
        return m_windows.contains(window) && m_windows.at(window).minimised;
    }
    void toggleZoomed(ShellWindow window) override { record("zoom", window); }
    bool isVisible(ShellWindow window) const override
    {
        return m_windows.contains(window) && m_windows.at(window).visible;
    }
    bool isActive(ShellWindow window) const override { return hasKeyboard && isVisible(window); }
    bool hasKeyboard = false;
    void activate() override { calls.emplace_back("activate"); }
    void terminate() override { calls.emplace_back("terminate"); }

private:
    struct State {
        bool visible = false;
        bool minimised = false;
    };
    /// The window's state, where it is open.
    State* record(const char* what, ShellWindow window)
    {
        constexpr std::array<const char*, 3> kNames = {"main", "access", "help"};
        calls.push_back(std::string(what) + " " + kNames.at(static_cast<std::size_t>(window)));
        return m_windows.contains(window) ? &m_windows[window] : nullptr;
    }
    std::map<ShellWindow, State> m_windows;
};

/// Answers at once; `calls` has what was changed: "arrange 3", "cancel".
class FakeClosedScans final : public ClosedScans {
public:
    Standing standing{Standing::Kind::Off};
    Result<Done> outcome = Done{};
    std::vector<std::string> calls;
    bool isOffered() const override { return true; }
    void look(Stands told) override { told(standing); }
    void arrange(const std::vector<Date>& moments, Outcome told) override
    {
        calls.push_back("arrange " + std::to_string(moments.size()));
        told(outcome);
    }
    void cancel(Outcome told) override
    {
        calls.emplace_back("cancel");
        told(outcome);
    }
};

class FakeTaskProgress final : public TaskProgress {
public:
    std::vector<double> shown; ///< -1: hidden
    void show(double share) override { shown.push_back(share); }
    void hide() override { shown.push_back(-1); }
};

/// A whole desktop.
struct FakeDesktop {
    explicit FakeDesktop(Clock& clock) : timers(clock) {}

    FakeWindowHost windows;
    FakeDockIcon dockIcon;
    FakeStatusItem statusItem;
    FakeLoginItem loginItem;
    FakeDistributedNotifications distributedNotifications;
    FakeGrantTokens grantTokens;
    FakeSettingsFile settingsFile;
    FakeWebBrowser webBrowser;
    FakeTimers timers;
    FakeClosedScans closedScans;
    FakeTaskProgress taskProgress;

    DesktopServices services()
    {
        return {windows,     dockIcon,     statusItem, loginItem, distributedNotifications,
                grantTokens, settingsFile, webBrowser, timers,    closedScans,
                taskProgress};
    }
};

} // namespace pryvane::test
