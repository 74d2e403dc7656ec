#pragma once

#include "inventory/views/InventorySource.h"

#include <QTimer>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QStackedWidget;

namespace pryvane::ui {
class EmptyState;
class RowTable;
} // namespace pryvane::ui

namespace pryvane {

/// What is installed around the browsers and at the system's start, to be looked through. Judges
/// and changes nothing.
class InventoryView final : public QWidget {
    Q_OBJECT

public:
    explicit InventoryView(InventoryController& controller, QWidget* parent = nullptr);

    void focusFilter();

Q_SIGNALS:
    void revealWanted(const FileURL& location);

private:
    void layOut();
    void showState();
    void showKind(int choice);
    void showList();
    void showMenu(int row, const QPoint& place);

    InventoryController& m_controller;
    InventorySource m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
    ui::EmptyState* m_empty;
    QStackedWidget* m_list;
    QLabel* m_summary;
    QLineEdit* m_filter;
    QComboBox* m_kinds;
    QProgressBar* m_bar;
    QPushButton* m_stop;
    QPushButton* m_gather;
    QTimer m_update;
    std::size_t m_shown = 0;
};

} // namespace pryvane
