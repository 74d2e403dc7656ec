#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include <cstdint>
#include <optional>

class QApplication;
class QWidget;

namespace pryvane::ui {

/// Space between things, in device-independent pixels.
inline constexpr int kRelated = 8, kGroups = 16, kEdge = 24, kTarget = 28, kCorner = 8;

/// The three meanings that have a colour. Each is shown with an icon and a word beside it.
enum class Meaning : std::uint8_t { Neutral, Found, Clean, Attention };

enum class TextRole : std::uint8_t { Statement, GroupTitle, Body, Small, Path };

enum class Appearance : std::uint8_t { FollowDesktop, Light, Dark, LightContrast, DarkContrast };

/// What a person has chosen.
enum class AppearanceSetting : std::uint8_t { System, Light, Dark, MoreContrast };

/// The appearance that comes of the choice and of the desktop's own; nothing where that does not
/// tell whether it is dark.
[[nodiscard]] Appearance appearanceFor(AppearanceSetting setting, std::optional<bool> desktopIsDark,
                                       bool desktopWantsContrast);

/// Whether the palette is a dark one.
[[nodiscard]] bool isDark(const QPalette& palette);

/// Whether the desktop, or PRYVANE_APPEARANCE, asks for strong contrast.
[[nodiscard]] bool isHighContrast();

/// Whether the desktop asks for no animation.
[[nodiscard]] bool reducedMotion();

/// Colour of icons and words of that meaning, readable (4.5 : 1, or 7 : 1 in high contrast) on the
/// palette's base and window.
[[nodiscard]] QColor colorOf(Meaning meaning, const QPalette& palette);

/// The hairline around cards and between rows.
[[nodiscard]] QColor hairline(const QPalette& palette);

/// Text that explains rather than states.
[[nodiscard]] QColor secondaryText(const QPalette& palette);

/// The ground of the navigation column.
[[nodiscard]] QColor sidebar(const QPalette& palette);

/// The font of that role, from the system's own font and size.
[[nodiscard]] QFont fontOf(TextRole role);
void setTextRole(QWidget& widget, TextRole role);

/// Style and palette of the whole program, light or dark as the desktop's palette is now. Call
/// once, before the first window.
void applyTheme(QApplication& application, Appearance appearance = Appearance::FollowDesktop);

/// Gives the program this appearance from now on, unless PRYVANE_APPEARANCE names another.
void setAppearance(Appearance appearance);

} // namespace pryvane::ui
