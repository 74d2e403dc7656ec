#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

namespace pryvane::ui {

/// The ground of a statement, by the name of its artwork ("no_threats_bg"): a slanted gradient
/// under rings that lie at the right end, with round corners and nothing outside them. Unknown
/// names give the calm one. `pixels` is in device pixels, and so is `corner`.
[[nodiscard]] QPixmap drawnArtwork(const QString& name, const QSize& pixels, double corner);

} // namespace pryvane::ui
