#pragma once

#include <QString>

#include <string_view>

namespace pryvane::qt {

/// Text of the engine as a QString. What came from a disk must have been escaped before.
[[nodiscard]] inline QString text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// The same for buttons and menus, where "&" would mark a shortcut.
[[nodiscard]] inline QString buttonText(std::string_view utf8)
{
    return text(utf8).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace pryvane::qt
