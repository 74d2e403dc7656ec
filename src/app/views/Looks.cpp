#include "app/views/Looks.h"

#include "platform/UserDefaults.h"

#include <array>
#include <string_view>

namespace pryvane {

namespace {

/// As they are kept, in the order of the settings.
constexpr std::array<std::string_view, 4> kNames = {"", "light", "dark", "contrast"};

ui::AppearanceSetting stored(UserDefaults& defaults)
{
    const std::string name = defaults.get(preferences::kAppearance);
    for (std::size_t i = 0; i < kNames.size(); ++i)
        if (kNames[i] == name)
            return static_cast<ui::AppearanceSetting>(i);
    return ui::AppearanceSetting::System;
}

} // namespace

Looks::Looks(UserDefaults& defaults) : m_defaults(defaults), m_setting(stored(defaults))
{
    apply();
}

void Looks::set(ui::AppearanceSetting setting)
{
    m_setting = setting;
    // Where it cannot be kept it holds until the program ends.
    static_cast<void>(
        m_defaults.set(preferences::kAppearance, kNames.at(static_cast<std::size_t>(setting))));
    apply();
}

void Looks::desktopHas(std::optional<bool> dark, bool contrast)
{
    m_desktopIsDark = dark;
    m_desktopWantsContrast = contrast;
    apply();
}

void Looks::apply() const
{
    ui::setAppearance(ui::appearanceFor(m_setting, m_desktopIsDark, m_desktopWantsContrast));
}

} // namespace pryvane
