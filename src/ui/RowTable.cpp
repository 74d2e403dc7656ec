#include "ui/RowTable.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace pryvane::ui {

namespace {

constexpr int kRowHeight = 34;
constexpr std::size_t kHeadingsSpanned = 500;

/// Rows parted by a hairline, ticks centred in their column, and one ring around the current row.
class RowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        QStyleOptionViewItem cell = option;
        cell.state.setFlag(QStyle::State_HasFocus, false);
        if ((option.state & QStyle::State_Selected) != 0) {
            QColor ground = option.palette.color(QPalette::Highlight);
            ground.setAlphaF(0.14F);
            painter->fillRect(option.rect, ground);
            cell.state.setFlag(QStyle::State_Selected, false);
        }
        QStyledItemDelegate::paint(painter, cell, index);
        painter->setPen(hairline(option.palette));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideMiddle;
        option->decorationSize = QSize(18, 18);
    }
};

} // namespace

RowTable::RowTable(RowModel& model, const QString& accessibleName, QWidget* parent)
    : QTableView(parent), m_model(model)
{
    setModel(&model);
    setItemDelegate(new RowDelegate(this));
    setAccessibleName(accessibleName);
    setShowGrid(false);
    setWordWrap(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setFrameShape(NoFrame);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(std::max(kRowHeight, fontMetrics().height() + 16));
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicatorClearable(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    horizontalHeader()->setMinimumHeight(kTarget);
    horizontalHeader()->setMinimumSectionSize(1);
    setSortingEnabled(true);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &RowTable::spanHeadings);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (const int row = m_model.sourceRow(index); row >= 0 && index.column() != 0)
            Q_EMIT rowActivated(row);
    });
}

void RowTable::takeAppended()
{
    // New rows go below, so only a rebuilt list could move what is looked at.
    m_model.takeAppended();
}

void RowTable::keyPressEvent(QKeyEvent* event)
{
    const QModelIndex current = currentIndex();
    if (event->key() == Qt::Key_Space && current.isValid()) {
        const QModelIndex tick = current.siblingAtColumn(0);
        const bool on = tick.data(Qt::CheckStateRole).toInt() != Qt::Checked;
        if (tick.flags() & Qt::ItemIsUserCheckable)
            m_model.setData(tick, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        return;
    }
    if (event->matches(QKeySequence::SelectAll))
        return m_model.tickAll(m_model.allTicked() != Qt::Checked);
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && current.isValid()) {
        if (const int row = m_model.sourceRow(current); row >= 0)
            Q_EMIT rowActivated(row);
        return;
    }
    QTableView::keyPressEvent(event);
}

void RowTable::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index =
        byKey ? currentIndex() : indexAt(viewport()->mapFromGlobal(event->globalPos()));
    const int row = m_model.sourceRow(index);
    if (row < 0)
        return;
    setCurrentIndex(index);
    Q_EMIT menuWanted(row, byKey ? viewport()->mapToGlobal(visualRect(index).center())
                                 : event->globalPos());
}

/// A heading has its row to itself. A table with very many of them would grow slow by that.
void RowTable::spanHeadings()
{
    clearSpans();
    std::vector<int> headings;
    for (int row = 0; row < m_model.rowCount() && headings.size() <= kHeadingsSpanned; ++row)
        if (m_model.isHeading(m_model.index(row, 0)))
            headings.push_back(row);
    if (headings.size() <= kHeadingsSpanned)
        for (const int row : headings)
            setSpan(row, 1, 1, m_model.columnCount() - 1);
}

void RowTable::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

/// Fixed columns keep their widths, the stretching ones share what is left.
void RowTable::fitColumns()
{
    const auto& columns = m_model.columns();
    const double scale = fontMetrics().height() / 17.0; // widths were chosen at this text height
    int fixed = 0, stretching = 0;
    const auto widthOf = [&](const Column& column) {
        return std::max(column.width, static_cast<int>(column.width * scale));
    };
    for (const Column& column : columns) {
        fixed += column.stretches ? 0 : widthOf(column);
        stretching += column.stretches ? 1 : 0;
    }
    const int left = std::max(0, viewport()->width() - fixed) / std::max(1, stretching);
    for (std::size_t i = 0; i < columns.size(); ++i)
        setColumnWidth(static_cast<int>(i),
                       columns[i].stretches ? std::max(left, 120) : widthOf(columns[i]));
}

} // namespace pryvane::ui
