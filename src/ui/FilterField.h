#pragma once

#include <QLineEdit>

namespace pryvane::ui {

/// A box to type a filter into, with its icon and a button that clears it.
[[nodiscard]] QLineEdit* makeFilterField(const QString& placeholder);

} // namespace pryvane::ui
