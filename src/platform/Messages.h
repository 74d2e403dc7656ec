#pragma once

#include "core/Result.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pryvane {

/// A question or message for the user. All texts are plain text.
struct Alert {
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons; ///< from the first, which the Return key chooses
};

/// The response that stands for an alert's first button; the others follow it.
inline constexpr int kAlertFirstButton = 1000;

/// Shows modal alerts. Main thread only.
class Alerts {
public:
    virtual ~Alerts() = default;

    /// Waits for the answer: kAlertFirstButton + the index of the chosen button.
    virtual int runModal(const Alert& alert) = 0;
};

/// Shows short messages outside the window. Never waits. Main thread only.
class UserNotifier {
public:
    virtual ~UserNotifier() = default;
    virtual void deliver(const std::string& title, const std::string& informativeText) = 0;

    /// Shows the message in the place of the one that was shown this way before, where the desktop
    /// can do that. Of several in short order the last one counts.
    virtual void update(const std::string& title, const std::string& informativeText)
    {
        deliver(title, informativeText);
    }

    /// Shows the last message of a scan in the place of all that were shown since the one before,
    /// and offers to show more, which calls `show` once at most. Of that only the newest counts.
    /// The texts are escaped for display already, and are shown in the user's language.
    virtual void conclude(const std::string& title, const std::string& informativeText,
                          const std::function<void()>& /*show*/)
    {
        update(title, informativeText);
    }

    /// Takes back, where the desktop can do that, what was shown since the last conclude().
    virtual void withdraw() {}
};

/// Shows nothing, for faces that tell findings in their own way.
class SilentUserNotifier final : public UserNotifier {
public:
    void deliver(const std::string&, const std::string&) override {}
};

/// Takes plain log lines. Callable from any thread.
class Log {
public:
    virtual ~Log() = default;
    virtual void line(std::string_view text) = 0;
};

class SilentLog final : public Log {
public:
    void line(std::string_view) override {}
};

/// For an outcome that changes nothing for the caller: a failure leaves a line in the log.
inline void logFailure(Log& log, const Result<Done>& outcome)
{
    if (!outcome)
        log.line(outcome.error().message);
}

} // namespace pryvane
