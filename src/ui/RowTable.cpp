#include "ui/RowTable.h"

#include "ui/Icons.h"
#include "ui/KeyboardFocus.h"
#include "ui/RowPainting.h"
#include "ui/Theme.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>
#include <numeric>
#include <sstream>
#include <utility>

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
constexpr int kKeepAfter = 300;               // ms
constexpr int kNameMargin = 8, kIconGap = 10; ///< of a name's cell, which its second line keeps
constexpr int kLeastStretched = 120;
constexpr int kLeastOfAll = 80; ///< where nothing else gives way any more
constexpr int kNarrow = 104;    ///< columns up to this width are never squeezed
constexpr std::size_t kHeadingsSpanned = 500;

WidthKeeper& widthKeeper()
{
    static WidthKeeper keeper;
    return keeper;
}

bool givesWay(const Column& column)
{
    return column.width > kNarrow && !column.isChip && !column.isBelow;
}

/// What its title takes, which other languages have longer. That of the tick boxes is not drawn.
int titleWidth(const Column& column, std::size_t index, const QFontMetrics& metrics)
{
    return index == 0 ? 0 : metrics.horizontalAdvance(column.title) + 4 * kCellMargin;
}

} // namespace

RowTable::RowTable(RowModel& model, const QString& accessibleName, QWidget* parent)
    : QTableView(parent), m_model(model)
{
    setModel(&model);
    setHorizontalHeader(makeRowTitles(model, this));
    for (std::size_t i = 0; i < m_model.columns().size(); ++i)
        if (m_model.columns()[i].isBelow)
            m_below = static_cast<int>(i);
    setItemDelegate(makeRowDelegate(m_model, m_below >= 0, this));
    if (m_below >= 0)
        setColumnHidden(m_below, true);
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
    verticalHeader()->setDefaultSectionSize(
        m_below >= 0 ? std::max(fontMetrics().height(), kIconSize) + fontMetrics().height() +
                           2 * kLinePadding
                     : std::max(kRowHeight, fontMetrics().height() + 16));
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicatorClearable(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    horizontalHeader()->setMinimumHeight(kTarget);
    horizontalHeader()->setMinimumSectionSize(1);
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(kKeepAfter);
    connect(&m_keeping, &QTimer::timeout, this, &RowTable::fitColumns);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { takeWidth(column, width); });
    connect(horizontalHeader(), &QHeaderView::sortIndicatorChanged, this, &RowTable::sortBy);
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
    if (m_below >= 0) {
        QPainter painter(viewport());
        paintSecondLines(painter);
    }
    if (!hasFocus() || !KeyboardFocus::isShown())
        return;
    const QModelIndex current = currentIndex();
    const QRect first = visualRect(current.siblingAtColumn(0));
    const QRect row = current.isValid() ? QRect(0, first.top(), viewport()->width(), first.height())
                                        : viewport()->rect();
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

/// After both orders of the first line, its title offers those of the second.
void RowTable::sortBy(int column, Qt::SortOrder order)
{
    const bool goesOn = column < 0 && m_sorted == 1 && m_below >= 0;
    const bool staysBelow = column == 1 && m_sorted == m_below && order == Qt::DescendingOrder;
    m_sorted = goesOn || staysBelow ? m_below : column;
    m_model.sort(m_sorted, order);
    if (goesOn) {
        const QSignalBlocker quiet(horizontalHeader());
        horizontalHeader()->setSortIndicator(1, Qt::AscendingOrder);
        m_model.sort(m_below, Qt::AscendingOrder);
    }
    horizontalHeader()->viewport()->update();
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

/// Below the cells of each row in sight, over all of its width.
void RowTable::paintSecondLines(QPainter& painter)
{
    const int last = rowAt(viewport()->height() - 1);
    const bool isPath = m_model.columns()[static_cast<std::size_t>(m_below)].isPath;
    const QFont font = isPath ? fontOf(TextRole::Path) : this->font();
    const QFontMetrics metrics(font), plain(fontMetrics());
    const bool mirrored = isRightToLeft();
    for (int row = std::max(rowAt(0), 0); row <= (last < 0 ? m_model.rowCount() - 1 : last);
         ++row) {
        const QModelIndex index = m_model.index(row, m_below);
        if (m_model.isHeading(index))
            continue;
        const bool hasIcon = !index.siblingAtColumn(1).data(Qt::DecorationRole).isNull();
        const int indent = columnWidth(0) + kNameMargin + (hasIcon ? kIconSize + kIconGap : 0);
        const int top = rowViewportPosition(row), line = plain.height();
        QRect place(indent, top + rowHeight(row) - line - kLinePadding,
                    viewport()->width() - indent - 2 * kRelated, line);
        if (mirrored)
            place.moveLeft(2 * kRelated);
        if (m_beside >= 0) {
            const QString beside = index.siblingAtColumn(m_beside).data().toString();
            painter.setFont(this->font());
            painter.setPen(secondaryText(palette()));
            painter.drawText(place, Qt::AlignVCenter | Qt::AlignTrailing | Qt::TextSingleLine,
                             isolated(beside, layoutDirection()));
            const int taken = plain.horizontalAdvance(beside) + kRelated;
            place.adjust(mirrored ? taken : 0, 0, mirrored ? 0 : -taken, 0);
        }
        const Cell remark = m_model.remark(index);
        const int needed =
            remark.text.isEmpty() ? 0 : plain.horizontalAdvance(remark.text) + kRelated;
        const int room = place.width() - std::min(needed, place.width() * 2 / 3);
        const QString path = metrics.elidedText(index.data().toString(), Qt::ElideMiddle, room);
        painter.setFont(font);
        painter.setPen(secondaryText(palette()));
        painter.drawText(place, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                         isolated(path, layoutDirection()));
        if (needed == 0)
            continue;
        const int used = metrics.horizontalAdvance(path) + kRelated;
        painter.setFont(this->font());
        painter.setPen(remark.meaning == Meaning::Neutral ? secondaryText(palette())
                                                          : colorOf(remark.meaning, palette()));
        painter.drawText(
            place.adjusted(mirrored ? 0 : used, 0, mirrored ? -used : 0, 0),
            Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
            isolated(plain.elidedText(remark.text, Qt::ElideRight, place.width() - used),
                     layoutDirection()));
    }
}

void setWidthKeeper(WidthKeeper keeper)
{
    widthKeeper() = std::move(keeper);
}

void RowTable::takeWidth(int column, int width)
{
    if (m_isFitting || m_model.columns()[static_cast<std::size_t>(column)].stretches)
        return;
    m_chosen[column] = width;
    m_keeping.start(); // the rest gives way once the hand is still
    std::string text;
    for (const auto& [chosen, pixels] : m_chosen)
        text += std::to_string(chosen) + ":" + std::to_string(pixels) + " ";
    if (widthKeeper().keep && !objectName().isEmpty())
        widthKeeper().keep(objectName().toStdString(), text);
}

/// What is kept may be of another version of the program: other columns are passed over.
void RowTable::loadWidths()
{
    if (m_hasLoaded || objectName().isEmpty() || !widthKeeper().load)
        return;
    m_hasLoaded = true;
    std::istringstream text(widthKeeper().load(objectName().toStdString()));
    int column = 0, pixels = 0;
    char colon = 0;
    while (text >> column >> colon >> pixels)
        if (column > 0 && column < m_model.columnCount() && pixels >= kTarget && pixels < 4000)
            m_chosen[column] = pixels;
}

void RowTable::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

/// What a person gave the columns, or else what each asks for; 0 for those that stretch.
std::vector<int> RowTable::wantedWidths() const
{
    const double scale = fontMetrics().height() / 17.0; // widths were chosen at this text height
    std::vector<int> widths;
    for (const Column& column : m_model.columns()) {
        const auto chosen = m_chosen.find(static_cast<int>(widths.size()));
        const int width = chosen != m_chosen.end() ? chosen->second
                          : column.isChip
                              ? chipWidth(column, fontMetrics())
                              : std::max(titleWidth(column, widths.size(), fontMetrics()),
                                         static_cast<int>(column.width * std::max(1.0, scale)));
        widths.push_back(column.stretches || column.isBelow ? 0 : width);
    }
    return widths;
}

/// Fixed columns keep their widths, the stretching ones share what is left. Where nothing is left
/// the spare one leaves, and then the wide fixed ones give way, but for chips.
void RowTable::fitColumns()
{
    loadWidths();
    const QScopedValueRollback fitting(m_isFitting, true);
    const auto& columns = m_model.columns();
    const int room = viewport()->width();
    std::vector<int> widths = wantedWidths();
    int fixed = std::accumulate(widths.begin(), widths.end(), 0), wide = 0, stretching = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        wide += givesWay(columns[i]) ? widths[i] : 0;
        stretching += columns[i].stretches ? 1 : 0;
    }
    int missing = fixed + stretching * kLeastStretched - room;
    const auto spare = std::ranges::find(columns, true, &Column::isSpare);
    const bool goes = missing > 0 && spare != columns.end();
    m_beside = goes ? static_cast<int>(spare - columns.begin()) : -1;
    if (spare != columns.end())
        setColumnHidden(static_cast<int>(spare - columns.begin()), goes);
    if (goes) {
        int& width = widths[static_cast<std::size_t>(m_beside)];
        missing -= width;
        fixed -= std::exchange(width, 0);
    }
    if (missing > 0 && wide > 0) {
        const double squeeze = std::max(0.6, 1.0 - double(missing) / wide);
        for (std::size_t i = 0; i < columns.size(); ++i)
            widths[i] = givesWay(columns[i]) ? int(widths[i] * squeeze) : widths[i];
        fixed = std::accumulate(widths.begin(), widths.end(), 0);
    }
    const int left = (room - fixed) / std::max(1, stretching);
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (static_cast<int>(i) != m_beside)
            setColumnWidth(static_cast<int>(i),
                           columns[i].stretches ? std::max(left, kLeastOfAll) : widths[i]);
}

} // namespace pryvane::ui
