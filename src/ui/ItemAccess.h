#pragma once

namespace pryvane::ui {

/// Lets a screen reader, or a voice, act on the rows of the program's lists and tables, and of what
/// a combo box unfolds: choose one, tick it, press it as the Return key does, sort by a title. Qt's
/// own can only mark a row. Call once, before the first window; main thread only.
void makeItemsObey();

} // namespace pryvane::ui
