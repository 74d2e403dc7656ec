#pragma once

#include "browser/views/ReportsSource.h"

#include <QWidget>

#include <optional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;

namespace pryvane::ui {
class EmptyState;
class Notice;
class RowTable;
} // namespace pryvane::ui

namespace pryvane {

class ReportViewController;
struct ExportKind;

/// The list of stored reports with what finds one's way among them.
class ReportListPane final : public QWidget {
    Q_OBJECT

public:
    explicit ReportListPane(ReportViewController& controller, QWidget* parent = nullptr);

    /// The rows are others than before.
    void showRows();
    void showState();
    void focusFilter();
    void focusList();

Q_SIGNALS:
    void compareWanted(int row, int otherRow);
    void exportWanted(const std::vector<std::string>& reportIds, const pryvane::ExportKind& kind);

private:
    [[nodiscard]] QWidget* makeHead();
    [[nodiscard]] QWidget* makeToolbar();
    [[nodiscard]] QWidget* makeNothingYet();
    void followTable();
    [[nodiscard]] std::vector<int> selected() const;
    void showSelection();
    void act(const QModelIndex& index);
    void open(int row);
    void askToDelete();
    void wantExport(const ExportKind& kind);
    void compareSelected();
    [[nodiscard]] std::optional<int> previousOf(int row) const; ///< of the same Mac
    void showMenu(int row, const QPoint& place);

    ReportViewController& m_controller;
    ReportsSource m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
    QStackedWidget* m_pages; ///< reading, nothing stored, the list
    QStackedWidget* m_list;  ///< the table, or that nothing fits
    QLabel* m_statement;
    QWidget* m_scanning;
    ui::Notice* m_notice;
    QLineEdit* m_search;
    QComboBox* m_grouping = nullptr;
    QComboBox* m_filter;
    QPushButton* m_compare;
};

} // namespace pryvane
