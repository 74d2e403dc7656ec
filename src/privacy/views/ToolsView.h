#pragma once

#include "platform/FileURL.h"

#include <QWidget>

class QStackedWidget;

namespace pryvane {

class InventoryController;
class InventoryView;
class ToolsViewController;

/// The tools screen: what can be cleared, and what is installed.
class ToolsView final : public QWidget {
    Q_OBJECT

public:
    /// The controllers outlive this.
    ToolsView(ToolsViewController& tools, InventoryController& inventory,
              QWidget* parent = nullptr);

    /// The screen is about to be shown. Measuring begins with the first time; the inventory is
    /// gathered when its page is first shown.
    void viewWillAppear();

    /// Puts the keyboard into the filter box, if there is one.
    void focusFilter();

Q_SIGNALS:
    void revealWanted(const FileURL& location);

private:
    [[nodiscard]] QWidget* makePages();
    void showPage(int page);

    ToolsViewController& m_tools;
    InventoryController& m_inventory;
    InventoryView* m_inventoryView;
    QStackedWidget* m_pages;
};

} // namespace pryvane
