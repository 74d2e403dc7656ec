#pragma once

#include "ui/RowModel.h"

#include <QLineEdit>
#include <QTableView>

namespace pryvane::ui {

/// A box to type a filter into, with its icon and a button that clears it.
[[nodiscard]] QLineEdit* makeFilterField(const QString& placeholder);

/// The table of a RowModel: whole rows, Space ticks, Ctrl+A ticks all that is shown, Return and a
/// double click activate, the menu key opens the row's menu. A ring marks the current row.
class RowTable final : public QTableView {
    Q_OBJECT

public:
    RowTable(RowModel& model, const QString& accessibleName, QWidget* parent = nullptr);

    /// Keeps the pointer's row where it is while the source grows.
    void takeAppended();

Q_SIGNALS:
    void rowActivated(int sourceRow);
    void menuWanted(int sourceRow, const QPoint& globalPlace);

protected:
    void keyPressEvent(QKeyEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void fitColumns();
    void spanHeadings();

    RowModel& m_model;
};

} // namespace pryvane::ui
