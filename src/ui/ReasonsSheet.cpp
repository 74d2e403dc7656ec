#include "ui/ReasonsSheet.h"

#include "ui/Labels.h"
#include "ui/RowTable.h"

#include <QItemSelectionModel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane::ui {

namespace {

enum Column : int { Tick, Item, Location, Reason };
constexpr int kRowsInSight = 8;

} // namespace

Cell ReasonsSheet::Source::cell(int row, int column) const
{
    const Row& shown = m_rows[static_cast<std::size_t>(row)];
    switch (column) {
    case Item:
        return {.text = shown.item};
    case Location:
        return {.text = shown.location};
    case Reason:
        return {.text = shown.reason,
                .iconName = QStringLiteral("attention"),
                .meaning = Meaning::Attention};
    default:
        return {};
    }
}

bool ReasonsSheet::Source::haveItems() const
{
    return std::ranges::any_of(m_rows, [](const Row& row) { return !row.item.isEmpty(); });
}

ReasonsSheet::ReasonsSheet(QWidget* over, const QString& title, const QString& reasonTitle,
                           std::vector<Row> rows)
    : Sheet(over, title), m_source(std::move(rows)),
      m_model(m_source, {{.width = 8},
                         {.title = tr("Item"), .width = 120},
                         {.title = tr("Location"), .stretches = true, .isPath = true},
                         {.title = reasonTitle, .stretches = true}}),
      m_table(new RowTable(m_model, title)), m_reason(makeLabel(TextRole::Body))
{
    setObjectName(QStringLiteral("reasonsSheet"));
    m_table->setObjectName(QStringLiteral("reasons"));
    m_table->setColumnHidden(Item, !m_source.haveItems());
    m_table->setMinimumHeight(kTarget * (2 + std::min(kRowsInSight, m_source.count())));
    m_reason->setObjectName(QStringLiteral("currentReason"));
    m_reason->setWordWrap(true);
    m_reason->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_reason->setFocusPolicy(Qt::NoFocus);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& index) {
                m_reason->setText(index.siblingAtColumn(Reason).data().toString());
            });
    body()->addWidget(m_table, 1);
    body()->addWidget(m_reason);
    auto* close = new QPushButton(tr("Close"));
    connect(close, &QPushButton::clicked, this, &Sheet::dismiss);
    buttons()->addWidget(close);
    setWidth(860);
}

void ReasonsSheet::present()
{
    m_table->setCurrentIndex(m_model.index(0, Location));
    Sheet::present(m_table);
}

} // namespace pryvane::ui
