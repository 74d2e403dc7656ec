#pragma once

#include "privacy/views/ItemsSource.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;
class QStackedWidget;

namespace pryvane::ui {
class RowTable;
}

namespace pryvane {

class GroupList;
class CleaningPreviewSheet;
class ToolsStatus;

/// What can be cleared: groups left, the chosen group's items right, what is ticked at the foot.
class PrivacyPane final : public QWidget {
    Q_OBJECT

public:
    explicit PrivacyPane(ToolsViewController& controller, QWidget* parent = nullptr);

private:
    [[nodiscard]] QWidget* makeLists();
    [[nodiscard]] QWidget* makeItems();
    [[nodiscard]] QWidget* makeFooter();
    void showState();
    void showItems();
    void explain(int row);
    void openPreview(bool listed);
    void showCleared();
    void showLeftOvers();

    ToolsViewController& m_controller;
    ItemsSource m_source;
    ui::RowModel m_model;
    ToolsStatus* m_status;
    GroupList* m_groups;
    ui::RowTable* m_items;
    QStackedWidget* m_lists;
    QLabel* m_groupName;
    QLabel* m_explanation;
    QLabel* m_total;
    QPushButton* m_preview;
    QPushButton* m_clear;
    QTimer m_update;
    std::optional<std::size_t> m_shownGroup;
    int m_shownItems = 0;
};

} // namespace pryvane
