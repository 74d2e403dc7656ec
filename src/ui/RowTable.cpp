#include "ui/RowTable.h"

#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <numeric>

namespace pryvane::ui {

QLineEdit* makeFilterField(const QString& placeholder)
{
    auto* field = new QLineEdit;
    field->setObjectName(QStringLiteral("filter"));
    field->setPlaceholderText(placeholder);
    field->setAccessibleName(QObject::tr("Filter"));
    field->setMinimumHeight(kTarget);
    field->setClearButtonEnabled(true);
    if (auto* clear = field->findChild<QAction*>(QStringLiteral("_q_qlineeditclearaction")))
        clear->setText(QObject::tr("Clear the filter"));
    QAction* picture = field->addAction(icon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    picture->setText(QObject::tr("Filter"));
    return field;
}

namespace {

constexpr int kRowHeight = 34;
constexpr int kLeastStretched = 120;
constexpr int kNarrow = 96; ///< columns up to this width are never squeezed
constexpr std::size_t kHeadingsSpanned = 500;

/// Rows parted by a hairline, the selected ones tinted.
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
            painter->fillRect(option.rect, option.palette.color(QPalette::Base)); // over the view's
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

void RowTable::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    const QModelIndex current = currentIndex();
    if (!hasFocus() || !current.isValid())
        return;
    const QRect first = visualRect(current.siblingAtColumn(0));
    const QRect row(0, first.top(), viewport()->width(), first.height());
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(row).adjusted(1, 1, -1, -1), 4, 4);
}

void RowTable::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    viewport()->update(); // for the ring
}

void RowTable::focusOutEvent(QFocusEvent* event)
{
    QTableView::focusOutEvent(event);
    viewport()->update();
}

void RowTable::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    viewport()->update();
}

void RowTable::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index =
        byKey ? currentIndex() : indexAt(viewport()->mapFromGlobal(event->globalPos()));
    const int row = m_model.sourceRow(index);
    if (row < 0)
        return;
    // On one of several chosen rows the menu is about them all.
    if (selectionModel()->isSelected(index))
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    else
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

/// Fixed columns keep their widths, the stretching ones share what is left. Where nothing is left
/// the wide fixed ones give way.
void RowTable::fitColumns()
{
    const auto& columns = m_model.columns();
    const int room = viewport()->width();
    const double scale = fontMetrics().height() / 17.0; // widths were chosen at this text height
    std::vector<int> widths;
    int fixed = 0, wide = 0, stretching = 0;
    for (const Column& column : columns) {
        const int width = static_cast<int>(column.width * std::max(1.0, scale));
        widths.push_back(column.stretches ? 0 : width);
        fixed += widths.back();
        wide += column.width > kNarrow ? widths.back() : 0;
        stretching += column.stretches ? 1 : 0;
    }
    const int missing = fixed + stretching * kLeastStretched - room;
    if (missing > 0 && wide > 0) {
        const double squeeze = std::max(0.6, 1.0 - double(missing) / wide);
        for (std::size_t i = 0; i < columns.size(); ++i)
            widths[i] = columns[i].width > kNarrow ? int(widths[i] * squeeze) : widths[i];
        fixed = std::accumulate(widths.begin(), widths.end(), 0);
    }
    const int left = (room - fixed) / std::max(1, stretching);
    for (std::size_t i = 0; i < columns.size(); ++i)
        setColumnWidth(static_cast<int>(i),
                       columns[i].stretches ? std::max(left, kLeastStretched) : widths[i]);
}

} // namespace pryvane::ui
