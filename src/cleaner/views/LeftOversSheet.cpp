#include "cleaner/views/LeftOversSheet.h"

#include "core/Escape.h"
#include "ui/Labels.h"
#include "ui/RowTable.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane {

namespace {

constexpr int kRowsInSight = 8;

} // namespace

ui::Cell LeftOversSheet::Source::cell(int row, int column) const
{
    const LeftOver& left = m_stayed[static_cast<std::size_t>(row)];
    switch (column) {
    case 1:
        return {.text = ui::text(forScreen(left.item))};
    case 2:
        return {.text = ui::text(forScreen(left.url.relativePath()))};
    case 3:
        return {.text = ui::text(forScreen(left.reason)),
                .iconName = QStringLiteral("attention"),
                .meaning = ui::Meaning::Attention};
    default:
        return {};
    }
}

LeftOversSheet::LeftOversSheet(QWidget* over, std::vector<LeftOver> stayed)
    : Sheet(over, tr("What stayed")), m_source(std::move(stayed)),
      m_model(m_source, {{.width = 8},
                         {.title = tr("Item"), .width = 120},
                         {.title = tr("Location"), .stretches = true, .isPath = true},
                         {.title = tr("Why it stayed, and what to do"), .stretches = true}}),
      m_table(new ui::RowTable(m_model, tr("What stayed"))),
      m_reason(ui::makeLabel(ui::TextRole::Body))
{
    setObjectName(QStringLiteral("leftOversSheet"));
    m_table->setObjectName(QStringLiteral("leftOvers"));
    m_table->setMinimumHeight(ui::kTarget * (2 + std::min(kRowsInSight, m_source.count())));
    m_reason->setObjectName(QStringLiteral("leftOverReason"));
    m_reason->setWordWrap(true);
    m_reason->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_reason->setFocusPolicy(Qt::NoFocus);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& index) {
                m_reason->setText(index.siblingAtColumn(3).data().toString());
            });
    body()->addWidget(m_table, 1);
    body()->addWidget(m_reason);
    auto* close = new QPushButton(tr("Close"));
    connect(close, &QPushButton::clicked, this, &Sheet::dismiss);
    buttons()->addWidget(close);
    setWidth(860);
}

void LeftOversSheet::present()
{
    m_table->setCurrentIndex(m_model.index(0, 1));
    Sheet::present(m_table);
}

} // namespace pryvane
