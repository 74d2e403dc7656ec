#pragma once

#include "core/tasks/MainQueue.h"
#include "platform/Clock.h"
#include "platform/FolderAccess.h"
#include "platform/Machine.h"
#include "platform/Messages.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

/// Fakes that record what they were asked. Those that several threads call lock themselves.
namespace pryvane::test {

/// A clock moved by hand and by pauses, which take no time and are recorded.
class FakeClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
    [[nodiscard]] std::chrono::nanoseconds steadyNow() const override;
    void pause(Interval interval, const StopFlag& stop) override;

    void advance(Interval interval);
    void setNow(Date date);
    [[nodiscard]] std::vector<Interval> pauses() const;

    /// Called on the pausing thread with the number of the pause, from 1. Set before any pause.
    std::function<void(std::size_t number)> onPause;

private:
    mutable std::mutex m_mutex;
    Date m_now{std::chrono::seconds(1'700'000'000)};
    std::chrono::nanoseconds m_steady{0};
    std::vector<Interval> m_pauses;
};

/// A main queue that the test runs itself, on the thread that made it. Delays are not waited for:
/// delayed work runs once everything due before it has run.
class ManualMainQueue final : public MainQueue {
public:
    void post(Work work) override { postAfter(std::chrono::milliseconds(0), std::move(work)); }
    void postAfter(std::chrono::milliseconds delay, Work work) override;
    [[nodiscard]] bool isMainThread() const override
    {
        return std::this_thread::get_id() == m_owner;
    }

    /// Runs everything that is posted, and what that posts, until nothing is left.
    void drain();

    /// Drains until `done` says so; false when nothing has been posted for a minute. That is for
    /// work that never comes: a machine under load may let a thread wait for many seconds.
    [[nodiscard]] bool runUntil(const std::function<bool()>& done);

private:
    [[nodiscard]] bool runOne();

    const std::thread::id m_owner = std::this_thread::get_id();
    std::mutex m_mutex;
    std::condition_variable m_posted;
    std::deque<Work> m_now;
    std::multimap<std::chrono::milliseconds, Work> m_later;
};

/// Answers alerts from a script. A question that the script does not hold fails the test.
class ScriptedAlerts final : public Alerts {
public:
    void answer(int response) { m_answers.push_back(response); }
    int runModal(const Alert& alert) override;
    [[nodiscard]] const std::vector<Alert>& asked() const { return m_asked; }

private:
    std::deque<int> m_answers;
    std::vector<Alert> m_asked;
};

/// Picks folders from a script; none stands for a cancelled panel.
class ScriptedFolderPicker final : public FolderPicker {
public:
    void answer(std::optional<FileURL> folder) { m_answers.push_back(std::move(folder)); }
    std::optional<FileURL> pickFolder(const FolderQuestion& question) override;
    [[nodiscard]] const std::vector<FolderQuestion>& asked() const { return m_asked; }

private:
    std::deque<std::optional<FileURL>> m_answers;
    std::vector<FolderQuestion> m_asked;
};

class RecordingUserNotifier final : public UserNotifier {
public:
    void deliver(const std::string& title, const std::string& informativeText) override
    {
        delivered.push_back(title + ": " + informativeText);
    }
    void update(const std::string& title, const std::string& informativeText) override
    {
        updated.push_back(title + ": " + informativeText);
    }
    void conclude(const std::string& title, const std::string& informativeText,
                  const std::function<void()>& wanted) override
    {
        concluded.push_back(title + ": " + informativeText);
        show = wanted;
    }
    void withdraw() override { ++withdrawn; }
    std::vector<std::string> concluded;
    std::function<void()> show; ///< of the last of these
    int withdrawn = 0;
    std::vector<std::string> delivered;
    std::vector<std::string> updated;
};

class RecordingLog final : public Log {
public:
    void line(std::string_view text) override;
    [[nodiscard]] std::vector<std::string> lines() const;

private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
};

/// Knows the applications that the test told it.
class FakeWorkspace final : public Workspace {
public:
    std::map<std::string, FileURL, std::less<>> applications;          ///< by display name
    std::map<std::string, std::string, std::less<>> bundleIdentifiers; ///< by absolute path
    std::optional<FileURL> fullPathForApplication(std::string_view name) override;
    std::optional<std::string> bundleIdentifier(const FileURL& bundle) override;
    std::vector<std::thread::id> bundleReaders; ///< who read a bundle's identifier, each time
    std::vector<std::string> running;           ///< display names
    std::vector<std::string> runningApplications() override { return running; }
};

} // namespace pryvane::test
