#pragma once

#include "platform/FileURL.h"

#include <QWidget>

class QStackedWidget;

namespace pryvane {

class FactsController;
class FactsView;
class InventoryController;
class InventoryView;
class ToolsViewController;

/// The tools screen: what can be cleared, what is installed, and who may watch.
class ToolsView final : public QWidget {
    Q_OBJECT

public:
    /// The controllers outlive this.
    ToolsView(ToolsViewController& tools, InventoryController& inventory, FactsController& facts,
              QWidget* parent = nullptr);

    /// The screen is about to be shown. Measuring begins with the first time; the inventory
    /// and the facts are gathered when their pages are first shown.
    void viewWillAppear();

    /// Puts the keyboard into the filter box, if there is one.
    void focusFilter();

Q_SIGNALS:
    void revealWanted(const FileURL& location);

private:
    [[nodiscard]] QWidget* makePages();
    void showPage(int page);
    void makePage(int page);

    ToolsViewController& m_tools;
    InventoryController& m_inventory;
    FactsController& m_facts;
    InventoryView* m_inventoryView = nullptr; ///< made when its page is first shown
    FactsView* m_factsView = nullptr;         ///< the same
    QStackedWidget* m_pages;
};

} // namespace pryvane
