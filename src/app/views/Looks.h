#pragma once

#include "ui/Theme.h"

#include <optional>

namespace pryvane {

class UserDefaults;

/// Light, dark or more contrast: what a person chose, which is kept, and what the desktop has. Main
/// thread only.
class Looks final {
public:
    explicit Looks(UserDefaults& defaults);

    [[nodiscard]] ui::AppearanceSetting setting() const { return m_setting; }
    void set(ui::AppearanceSetting setting);

    /// The desktop has told what it has, or has changed it; nothing where it does not say.
    void desktopHas(std::optional<bool> dark, bool contrast);

private:
    void apply() const;

    UserDefaults& m_defaults;
    ui::AppearanceSetting m_setting;
    std::optional<bool> m_desktopIsDark;
    bool m_desktopWantsContrast = false;
};

} // namespace pryvane
