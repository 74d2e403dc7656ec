#pragma once

#include "inventory/InventoryController.h"
#include "ui/RowModel.h"

#include <QTimer>
#include <QWidget>

#include <optional>

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

/// What is installed, as rows of a table. Nothing in it can be ticked.
class InventorySource final : public ui::RowSource {
public:
    enum Column : int { Tick, Name, Detail, Location, Size };
    enum Grouping : int { None, ByKind };

    explicit InventorySource(const InventoryController& controller) : m_controller(controller) {}

    [[nodiscard]] static std::vector<ui::Column> columns();

    /// Shows one list only; none shows all.
    void setKind(std::optional<InventoryKind> kind) { m_kind = kind; }
    [[nodiscard]] const InventoryEntry& entry(int row) const
    {
        return m_controller.entries()[static_cast<std::size_t>(row)];
    }

    [[nodiscard]] int count() const override;
    [[nodiscard]] ui::Cell cell(int row, int column) const override;
    [[nodiscard]] QString group(int row, int grouping) const override;
    [[nodiscard]] bool hidden(int row) const override;
    [[nodiscard]] QString searchText(int row) const override;

private:
    const InventoryController& m_controller;
    std::optional<InventoryKind> m_kind;
};

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
