#include "ui/ReasonsSheet.h"

#include "ui/Labels.h"
#include "ui/RowTable.h"

#include <QItemSelectionModel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace pryvane::ui {

namespace {

constexpr int kRowsInSight = 8;

} // namespace

ReasonsSheet::Source::Source(std::vector<Row> rows)
    : m_rows(std::move(rows)),
      m_haveItems(std::ranges::any_of(m_rows, [](const Row& row) { return !row.item.isEmpty(); }))
{
}

std::vector<Column> ReasonsSheet::Source::columns(const QString& reasonTitle) const
{
    std::vector<Column> columns{{.width = 8}};
    if (m_haveItems)
        columns.push_back({.title = ReasonsSheet::tr("Item"), .width = 120});
    columns.push_back({.title = ReasonsSheet::tr("Location"), .stretches = true, .isPath = true});
    columns.push_back({.title = reasonTitle, .stretches = true});
    return columns;
}

Cell ReasonsSheet::Source::cell(int row, int column) const
{
    const Row& shown = m_rows[static_cast<std::size_t>(row)];
    const int location = m_haveItems ? 2 : 1;
    if (column == location)
        return {.text = shown.location};
    if (column > location)
        return {.text = shown.reason,
                .iconName = QStringLiteral("attention"),
                .meaning = Meaning::Attention};
    return {.text = column > 0 ? shown.item : QString()};
}

ReasonsSheet::ReasonsSheet(QWidget* over, const QString& title, const QString& reasonTitle,
                           std::vector<Row> rows)
    : Sheet(over, title), m_source(std::move(rows)),
      m_model(m_source, m_source.columns(reasonTitle)), m_table(new RowTable(m_model, title)),
      m_reason(makeLabel(TextRole::Body))
{
    setObjectName(QStringLiteral("reasonsSheet"));
    m_table->setObjectName(QStringLiteral("reasons"));
    m_table->setMinimumHeight(kTarget * (2 + std::min(kRowsInSight, m_source.count())));
    m_reason->setObjectName(QStringLiteral("currentReason"));
    m_reason->setWordWrap(true);
    m_reason->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_reason->setFocusPolicy(Qt::NoFocus);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& index) {
                const int last = m_model.columnCount() - 1;
                m_reason->setText(index.siblingAtColumn(last).data().toString());
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
    m_table->setCurrentIndex(m_model.index(0, 1));
    Sheet::present(m_table);
}

} // namespace pryvane::ui
