#include "ui/Theme.h"

#include "ui/ItemAccess.h"
#include "ui/KeyboardFocus.h"
#include "ui/Style.h"

#include <QApplication>
#include <QFontDatabase>
#include <QWidget>

namespace pryvane::ui {

namespace {

struct Shades {
    QRgb window, base, alternate, text, secondary, hairline, sidebar, button, accent, onAccent;
};

constexpr Shades kLight{0xfff5f6f8, 0xffffffff, 0xfffafbfc, 0xff1b1f27, 0xff566070,
                        0xffd9dde4, 0xffebedf1, 0xffffffff, 0xff2b5bc7, 0xffffffff};
constexpr Shades kDark{0xff1c1e23, 0xff24272d, 0xff282b32, 0xffeceef2, 0xffa6aebb,
                       0xff3a3f48, 0xff17191d, 0xff2e323a, 0xff84a9ff, 0xff10182b};
constexpr Shades kLightContrast{0xffffffff, 0xffffffff, 0xffffffff, 0xff000000, 0xff2a2f38,
                                0xff000000, 0xffffffff, 0xffffffff, 0xff0b3a9e, 0xffffffff};
constexpr Shades kDarkContrast{0xff000000, 0xff000000, 0xff000000, 0xffffffff, 0xffd6dbe4,
                               0xffffffff, 0xff000000, 0xff000000, 0xffa9c4ff, 0xff000000};

Appearance g_appearance = Appearance::FollowDesktop; // main thread only, like all of Qt Widgets

const Shades& shadesOf(Appearance appearance)
{
    switch (appearance) {
    case Appearance::Dark:
        return kDark;
    case Appearance::LightContrast:
        return kLightContrast;
    case Appearance::DarkContrast:
        return kDarkContrast;
    case Appearance::Light:
    case Appearance::FollowDesktop:
        break;
    }
    return kLight;
}

const Shades& shadesOf(const QPalette& palette)
{
    if (isHighContrast())
        return isDark(palette) ? kDarkContrast : kLightContrast;
    return isDark(palette) ? kDark : kLight;
}

QPalette paletteOf(const Shades& shades)
{
    QPalette palette;
    const auto set = [&](QPalette::ColorRole role, QRgb shade) { palette.setColor(role, shade); };
    set(QPalette::Window, shades.window);
    set(QPalette::WindowText, shades.text);
    set(QPalette::Base, shades.base);
    set(QPalette::AlternateBase, shades.alternate);
    set(QPalette::ToolTipBase, shades.base);
    set(QPalette::ToolTipText, shades.text);
    set(QPalette::PlaceholderText, shades.secondary);
    set(QPalette::Text, shades.text);
    set(QPalette::Button, shades.button);
    set(QPalette::ButtonText, shades.text);
    set(QPalette::BrightText, shades.text);
    set(QPalette::Light, shades.base);
    set(QPalette::Midlight, shades.hairline);
    set(QPalette::Mid, shades.hairline);
    set(QPalette::Dark, shades.secondary);
    set(QPalette::Shadow, shades.hairline);
    set(QPalette::Highlight, shades.accent);
    set(QPalette::HighlightedText, shades.onAccent);
    set(QPalette::Link, shades.accent);
    set(QPalette::LinkVisited, shades.accent);
    QColor faded(shades.text);
    faded.setAlphaF(0.42F);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded);
    return palette;
}

Appearance fromEnvironment()
{
    const QByteArray wanted = qgetenv("PRYVANE_APPEARANCE");
    if (wanted == "light")
        return Appearance::Light;
    if (wanted == "dark")
        return Appearance::Dark;
    if (wanted == "light-contrast")
        return Appearance::LightContrast;
    if (wanted == "dark-contrast")
        return Appearance::DarkContrast;
    return Appearance::FollowDesktop;
}

} // namespace

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

bool isHighContrast()
{
    return g_appearance == Appearance::LightContrast || g_appearance == Appearance::DarkContrast;
}

bool reducedMotion()
{
    return !QApplication::isEffectEnabled(Qt::UI_General) ||
           qEnvironmentVariableIsSet("PRYVANE_REDUCED_MOTION");
}

QColor colorOf(Meaning meaning, const QPalette& palette)
{
    const bool dark = isDark(palette);
    const bool strong = isHighContrast();
    switch (meaning) {
    case Meaning::Found:
        if (strong)
            return dark ? QColor(255, 170, 170) : QColor(130, 10, 18);
        return dark ? QColor(246, 128, 132) : QColor(181, 47, 53);
    case Meaning::Clean:
        if (strong)
            return dark ? QColor(130, 235, 145) : QColor(10, 80, 28);
        return dark ? QColor(74, 192, 86) : QColor(27, 120, 48);
    case Meaning::Attention:
        if (strong)
            return dark ? QColor(255, 205, 110) : QColor(104, 62, 0);
        return dark ? QColor(236, 178, 76) : QColor(146, 92, 0);
    case Meaning::Neutral:
        break;
    }
    return palette.color(QPalette::WindowText);
}

QColor hairline(const QPalette& palette)
{
    return shadesOf(palette).hairline;
}

QColor secondaryText(const QPalette& palette)
{
    return shadesOf(palette).secondary;
}

QColor sidebar(const QPalette& palette)
{
    return shadesOf(palette).sidebar;
}

QFont fontOf(TextRole role)
{
    QFont font = role == TextRole::Path ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
                                        : QApplication::font();
    const double body = QApplication::font().pointSizeF();
    switch (role) {
    case TextRole::Statement:
        font.setPointSizeF(body * 1.7);
        font.setWeight(QFont::DemiBold);
        break;
    case TextRole::GroupTitle:
        font.setPointSizeF(body * 1.16);
        font.setWeight(QFont::DemiBold);
        break;
    case TextRole::Small:
        font.setPointSizeF(body * 0.92);
        break;
    case TextRole::Path:
        font.setPointSizeF(body * 0.95);
        break;
    case TextRole::Body:
        break;
    }
    return font;
}

void setTextRole(QWidget& widget, TextRole role)
{
    widget.setFont(fontOf(role));
}

void applyTheme(QApplication& application, Appearance appearance)
{
    application.setStyle(new Style);
    new KeyboardFocus(application);
    makeItemsObey();
    setAppearance(appearance);
}

Appearance appearanceFor(AppearanceSetting setting, std::optional<bool> desktopIsDark,
                         bool desktopWantsContrast)
{
    const bool dark = desktopIsDark.value_or(isDark(QApplication::style()->standardPalette()));
    const bool strong = setting == AppearanceSetting::MoreContrast ||
                        (setting == AppearanceSetting::System && desktopWantsContrast);
    if (strong)
        return dark ? Appearance::DarkContrast : Appearance::LightContrast;
    if (setting == AppearanceSetting::System)
        return dark ? Appearance::Dark : Appearance::Light;
    return setting == AppearanceSetting::Dark ? Appearance::Dark : Appearance::Light;
}

void setAppearance(Appearance appearance)
{
    if (const Appearance asked = fromEnvironment(); asked != Appearance::FollowDesktop)
        appearance = asked;
    if (appearance == Appearance::FollowDesktop)
        appearance = appearanceFor(AppearanceSetting::System, std::nullopt, false);
    if (appearance == g_appearance)
        return;
    g_appearance = appearance;
    QApplication::setPalette(paletteOf(shadesOf(appearance)));
}

} // namespace pryvane::ui
