#pragma once

#include <xcb/xcb.h>

/// The little of X11 that Qt does not offer. Main thread only.
namespace pryvane::x11 {

/// The program's own connection; null where the desktop is none of X11.
[[nodiscard]] xcb_connection_t* connection();

/// Needs a connection.
[[nodiscard]] xcb_atom_t atom(const char* name);

/// The window that holds the selection; 0 for none.
[[nodiscard]] xcb_window_t selectionOwner(xcb_atom_t selection);

/// Asks the window manager to list the window in task bars and pagers, or not to.
void setSkipTaskbar(xcb_window_t window, bool skip);

/// Whether the window is not mapped and no window manager has put its mark on it, as one does with
/// each window that it shows or hides.
[[nodiscard]] bool isOverlooked(xcb_window_t window);

/// Asks for the window to be mapped.
void map(xcb_window_t window);

/// Asks to be told when that window goes.
void watchEndOf(xcb_window_t window);

} // namespace pryvane::x11
