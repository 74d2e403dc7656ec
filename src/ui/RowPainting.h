#pragma once

#include <QString>

class QAbstractItemDelegate;
class QFontMetrics;
class QHeaderView;
class QObject;
class QWidget;

namespace pryvane::ui {

class RowModel;
struct Column;

/// In pixels: of a cell's icon, and the room around its words.
inline constexpr int kIconSize = 18, kCellMargin = 3, kLinePadding = 4;

/// Draws the rows of the model: parted by a hairline, the selected ones tinted, chips on a ground
/// of their own. With a second line each cell keeps to the first one.
[[nodiscard]] QAbstractItemDelegate* makeRowDelegate(RowModel& model, bool hasSecondLine,
                                                     QObject* parent);

/// The titles of its columns, which stand as the words below them do.
[[nodiscard]] QHeaderView* makeRowTitles(const RowModel& model, QWidget* parent);

/// The room that the longest of a chip's words takes.
[[nodiscard]] int chipWidth(const Column& column, const QFontMetrics& metrics);

/// Keeps the order of a name, a path or a size where the window is laid out from the right.
[[nodiscard]] QString isolated(const QString& text, Qt::LayoutDirection direction);

} // namespace pryvane::ui
