#pragma once

#include "privacy/views/PreviewSource.h"
#include "ui/Sheet.h"

#include <QTimer>

class QLabel;
class QPushButton;
class QStackedWidget;

namespace pryvane {

namespace ui {
class RowTable;
}

/// What clearing would take away, to be unticked before anything goes, with the browsers to be
/// closed first. Follows the controller; whoever closes it cancels. Cancel is the default.
class CleaningPreviewSheet final : public ui::Sheet {
    Q_OBJECT

public:
    /// Whether each location is listed at once, or items until locations are asked for.
    enum class Listing : bool { OnRequest, Open };

    CleaningPreviewSheet(QWidget* over, ToolsViewController& controller, Listing listing);
    void present();

private:
    [[nodiscard]] QWidget* makeBrowserPanel();
    [[nodiscard]] QWidget* makeDearPanel();
    void layOut();
    void follow();
    void showState();
    void showTotals();
    void showDear();
    void setListed(bool listed);

    ToolsViewController& m_controller;
    PreviewItems m_itemSource;
    ui::RowModel m_itemModel;
    ui::RowTable* m_items;
    PreviewSource m_source;
    ui::RowModel m_model;
    ui::RowTable* m_table;
    QStackedWidget* m_pages;
    QLabel* m_totals;
    QWidget* m_browsers;
    QLabel* m_browserNames;
    QPushButton* m_retry;
    QWidget* m_dear;
    QLabel* m_dearNames;
    QPushButton* m_leaveOut;
    QPushButton* m_list;
    QPushButton* m_cancel;
    QPushButton* m_clear;
    QTimer m_update; ///< ticking many rows is shown once
    bool m_filled = false;
};

} // namespace pryvane
