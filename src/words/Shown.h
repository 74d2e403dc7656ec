#pragma once

#include <QString>

#include <string_view>

namespace pryvane::ui {

/// A text of the engine, already escaped for display, in the language of the window. The engine
/// writes English, which reports, exports and the command line keep; what none of its texts fits,
/// such as a path, stays as it is. Only for texts of this program: a file may bear any of its words
/// as its name. Main thread only.
[[nodiscard]] QString shown(std::string_view english);

/// The same for buttons and menus, where "&" would mark a shortcut.
[[nodiscard]] QString shownOnButton(std::string_view english);

} // namespace pryvane::ui
