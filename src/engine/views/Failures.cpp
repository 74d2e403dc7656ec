#include "engine/views/FailuresSheet.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "ui/RowTable.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace pryvane {

namespace {

constexpr int kRowsInSight = 8;

} // namespace

ui::Cell FailuresSheet::Source::cell(int row, int column) const
{
    const Spyware& record = *m_records[static_cast<std::size_t>(row)];
    if (column == 1)
        return {.text = ui::text(forScreen(record.url.relativePath()))};
    return {.text = ui::text(forScreen(record.removalFailure))};
}

FailuresSheet::FailuresSheet(QWidget* over, const SpywareList& failed)
    : Sheet(over, tr("What could not be removed")), m_source(failed),
      m_model(m_source, {{.width = 8},
                         {.title = tr("Location"), .stretches = true, .isPath = true},
                         {.title = tr("Why it stayed, and what to do"), .stretches = true}}),
      m_table(new ui::RowTable(m_model, tr("What could not be removed")))
{
    setObjectName(QStringLiteral("failuresSheet"));
    m_table->setMinimumHeight(ui::kTarget * (2 + std::min(kRowsInSight, m_source.count())));
    body()->addWidget(m_table, 1);
    auto* close = new QPushButton(tr("Close"));
    connect(close, &QPushButton::clicked, this, &Sheet::dismiss);
    buttons()->addWidget(close);
    setWidth(820);
}

void FailuresSheet::present()
{
    Sheet::present(m_table);
}

} // namespace pryvane
