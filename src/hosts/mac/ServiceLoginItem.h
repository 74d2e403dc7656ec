#pragma once

#include "platform/DesktopPrograms.h"

#include <string>

namespace pryvane {

/// Start at login by the helper bundle in Contents/Library/LoginItems, which the system starts.
class ServiceLoginItem final : public LoginItem {
public:
    /// `helper` is the bundle identifier of that helper.
    explicit ServiceLoginItem(std::string helper) : m_helper(std::move(helper)) {}

    Result<Done> setEnabled(bool enabled) override;
    [[nodiscard]] bool helperIsRunning() override;

private:
    std::string m_helper;
};

} // namespace pryvane
