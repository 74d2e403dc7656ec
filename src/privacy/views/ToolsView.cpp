#include "privacy/views/ToolsView.h"

#include "inventory/FactsController.h"
#include "inventory/InventoryController.h"
#include "inventory/views/FactsView.h"
#include "inventory/views/InventoryView.h"
#include "privacy/ToolsViewController.h"
#include "privacy/views/PrivacyPane.h"
#include "ui/Pages.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace pryvane {

namespace {

enum Page { Privacy, Inventory, Watchers };

} // namespace

ToolsView::ToolsView(ToolsViewController& tools, InventoryController& inventory,
                     FactsController& facts, QWidget* parent)
    : QWidget(parent), m_tools(tools), m_inventory(inventory), m_facts(facts),
      m_pages(new ui::Pages)
{
    setObjectName(QStringLiteral("toolsVC"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(ui::kEdge, ui::kGroups, ui::kEdge, ui::kGroups);
    column->setSpacing(ui::kGroups);
    column->addWidget(makePages());
    m_pages->addWidget(new PrivacyPane(tools));
    for (const int page : {Inventory, Watchers})
        m_pages->insertWidget(page, new QWidget);
    column->addWidget(m_pages, 1);
}

/// One of three, side by side; the arrow keys change between them.
QWidget* ToolsView::makePages()
{
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(4);
    auto* choice = new QButtonGroup(this);
    const auto add = [&](const QString& name, const char* objectName, Page page) {
        auto* button = new QPushButton(name);
        button->setObjectName(QLatin1String(objectName));
        button->setCheckable(true);
        button->setChecked(page == Privacy);
        button->setMinimumWidth(120);
        choice->addButton(button, page);
        row->addWidget(button);
    };
    add(tr("Privacy"), "showPrivacy", Privacy);
    add(tr("Inventory"), "showInventory", Inventory);
    add(tr("Who May Watch"), "showFacts", Watchers);
    row->addStretch();
    connect(choice, &QButtonGroup::idToggled, this, [this](int page, bool on) {
        if (on)
            showPage(page);
    });
    return bar;
}

void ToolsView::makePage(int page)
{
    QWidget* made = nullptr;
    if (page == Inventory && m_inventoryView == nullptr) {
        made = m_inventoryView = new InventoryView(m_inventory);
        connect(m_inventoryView, &InventoryView::revealWanted, this, &ToolsView::revealWanted);
    } else if (page == Watchers && m_factsView == nullptr) {
        made = m_factsView = new FactsView(m_facts);
        connect(m_factsView, &FactsView::revealWanted, this, &ToolsView::revealWanted);
    }
    if (made == nullptr)
        return;
    const std::unique_ptr<QWidget> nothingYet(m_pages->widget(page));
    m_pages->insertWidget(page, made);
}

void ToolsView::showPage(int page)
{
    makePage(page);
    m_pages->setCurrentIndex(page);
    if (page == Inventory)
        m_inventory.viewWillAppear();
    else if (page == Watchers)
        m_facts.viewWillAppear();
}

void ToolsView::viewWillAppear()
{
    m_tools.viewWillAppear();
}

void ToolsView::focusFilter()
{
    if (m_pages->currentIndex() == Inventory)
        m_inventoryView->focusFilter();
    else if (m_pages->currentIndex() == Watchers)
        m_factsView->focusFilter();
}

} // namespace pryvane
