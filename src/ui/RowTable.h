#pragma once

#include "ui/RowModel.h"

#include <QLineEdit>
#include <QTableView>
#include <QTimer>

#include <functional>
#include <map>
#include <string>

namespace pryvane::ui {

/// A box to type a filter into, with its icon and a button that clears it.
[[nodiscard]] QLineEdit* makeFilterField(const QString& placeholder);

/// Where the widths that a person has given the columns of tables are kept, by the table's name.
/// Empty: nowhere.
struct WidthKeeper {
    std::function<std::string(const std::string& table)> load;
    std::function<void(const std::string& table, const std::string& widths)> keep;
};
void setWidthKeeper(WidthKeeper keeper);

/// The table of a RowModel: whole rows, Space ticks, Ctrl+A ticks all that is shown, Return and a
/// double click activate, the menu key opens the row's menu. A ring marks the current row. Columns
/// can be made wider and narrower.
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
    [[nodiscard]] std::vector<int> wantedWidths() const;
    void takeWidth(int column, int width);
    void loadWidths();
    void paintSecondLines(QPainter& painter);
    void spanHeadings();
    void sortBy(int column, Qt::SortOrder order);

    RowModel& m_model;
    int m_below = -1;            ///< the column that is the second line; -1: there is none
    int m_beside = -1;           ///< the spare column while it has no room; -1: it has
    std::map<int, int> m_chosen; ///< the widths that a person gave
    int m_sorted = -1;           ///< by which title; -1: as they came
    bool m_isFitting = false;
    bool m_hasLoaded = false;
    QTimer m_keeping;
};

} // namespace pryvane::ui
