#pragma once

#include <string>

namespace pryvane {

/// Shows short messages outside the window. Never waits. Main thread only.
class UserNotifier {
public:
    virtual ~UserNotifier() = default;
    virtual void deliver(const std::string& title, const std::string& informativeText) = 0;
};

/// Shows nothing, for faces that tell findings in their own way.
class SilentUserNotifier final : public UserNotifier {
public:
    void deliver(const std::string&, const std::string&) override {}
};

} // namespace pryvane
