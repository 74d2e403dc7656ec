#include "privacy/views/ClearedSheet.h"

#include "core/Escape.h"
#include "core/Texts.h"
#include "privacy/ToolGroup.h"
#include "ui/Labels.h"
#include "ui/RowTable.h"
#include "words/Shown.h"

#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

namespace {

constexpr int kRowsInSight = 10;

enum Column : int { Item = 1, Whose, Entries, Freed, Stayed };

} // namespace

std::vector<ui::Column> ClearedSheet::Source::columns()
{
    return {{.width = 8},
            {.title = ClearedSheet::tr("Item"), .stretches = true},
            {.title = ClearedSheet::tr("Whose"), .width = 110},
            {.title = ClearedSheet::tr("Entries"), .width = 80, .isNumber = true},
            {.title = ClearedSheet::tr("Freed"), .width = 100, .isNumber = true},
            {.title = ClearedSheet::tr("Stayed"), .width = 110}};
}

ui::Cell ClearedSheet::Source::cell(int row, int column) const
{
    const CleanedItem& item = m_items[static_cast<std::size_t>(row)];
    switch (column) {
    case Item:
        return {.text = ui::shown(forScreen(shownName(item.kind, item.group) + ": " + item.item))};
    case Whose:
        return {.text = ui::text(forScreen(item.user))};
    case Entries:
        return {.text = QString::number(item.entries), .number = static_cast<qint64>(item.entries)};
    case Freed:
        return {.text = ui::shown(sizeText(item.bytes)), .number = item.bytes};
    case Stayed:
        if (item.stayed == 0)
            return {};
        return {.text = ui::shown(countedText(item.stayed, "location", "locations")),
                .iconName = QStringLiteral("attention"),
                .meaning = ui::Meaning::Attention};
    default:
        return {};
    }
}

ClearedSheet::ClearedSheet(QWidget* over, std::vector<CleanedItem> items)
    : Sheet(over, tr("What was cleared")), m_source(std::move(items)),
      m_model(m_source, Source::columns()),
      m_table(new ui::RowTable(m_model, tr("What was cleared")))
{
    setObjectName(QStringLiteral("clearedSheet"));
    m_table->setObjectName(QStringLiteral("clearedItems"));
    m_table->setMinimumHeight(ui::kTarget * (2 + std::min(kRowsInSight, m_source.count())));
    body()->addWidget(m_table, 1);
    body()->addWidget(ui::makeNote(
        tr("The journal of removals keeps each location with what it took, and when it went.")));
    auto* close = new QPushButton(tr("Close"));
    connect(close, &QPushButton::clicked, this, &Sheet::dismiss);
    buttons()->addWidget(close);
    setWidth(760);
}

void ClearedSheet::present()
{
    m_table->setCurrentIndex(m_model.index(0, 1));
    Sheet::present(m_table);
}

} // namespace pryvane
