#pragma once

#include "ui/Theme.h"

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace pryvane::ui {

/// The program's line icon of that name, in the colour of its meaning; follows the palette when it
/// changes. An unknown name gives a null icon.
[[nodiscard]] QIcon icon(const QString& name, Meaning meaning = Meaning::Neutral);

/// The icon once, in a colour of the caller's. `size` is in device-independent pixels.
[[nodiscard]] QPixmap iconPixmap(const QString& name, const QColor& color, int size,
                                 double devicePixelRatio);

/// The application's own icon.
[[nodiscard]] QIcon applicationIcon();

/// That icon in white on a ground of its own, so that it is seen on light and on dark panels.
[[nodiscard]] QIcon panelIcon(const QString& name);

} // namespace pryvane::ui
