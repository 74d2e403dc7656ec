#pragma once

#include "inventory/views/FactsTableSource.h"
#include "ui/RowModel.h"

#include <QWidget>

class QLabel;
class QStackedWidget;

namespace pryvane::ui {
class EmptyState;
class RowTable;
} // namespace pryvane::ui

namespace pryvane {

/// One of the lists: the table in groups, what the chosen row says in full, what its group means,
/// and which sources could not be read.
class FactsPage final : public QWidget {
    Q_OBJECT

public:
    FactsPage(const FactsController& controller, FactKind kind, QWidget* parent = nullptr);

    void choose(const FactsTableSource::Choice& choice);
    void setFilter(const QString& text);
    void showState();

    [[nodiscard]] int deniedCount() const { return m_source.deniedCount(); }

Q_SIGNALS:
    void revealWanted(const FileURL& location);

private:
    void showList();
    void showRow();
    void showMenu(int row, const QPoint& place);
    [[nodiscard]] QString textOf(const FactRow& row) const;

    const FactsController& m_controller;
    const FactKind m_kind;
    FactsTableSource m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
    ui::EmptyState* m_empty;
    QStackedWidget* m_list;
    QLabel* m_meaningTitle;
    QLabel* m_meaning;
    QLabel* m_details;
    QLabel* m_troubles;
    bool m_hasFilter = false;
    int m_shown = 0;
};

} // namespace pryvane
