#include "ui/RowPainting.h"

#include "ui/RowModel.h"
#include "ui/Theme.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace pryvane::ui {

namespace {

constexpr int kChipPadding = 8, kChipGap = 4, kRounding = 2; // of a text's width
constexpr int kNumberGap = 12; // after a column of numbers, so that the next one's words stand off

/// Icon and words on a ground of their own.
void drawChip(QPainter& painter, const QStyleOptionViewItem& cell)
{
    const QFontMetrics metrics(cell.font);
    const int width = std::min(cell.rect.width() - 2 * kCellMargin,
                               metrics.horizontalAdvance(cell.text) + kRounding + kIconSize +
                                   kChipGap + 2 * kChipPadding);
    const int height = metrics.height() + 6;
    const QRect chip =
        QStyle::alignedRect(cell.direction, Qt::AlignLeft | Qt::AlignVCenter, QSize(width, height),
                            cell.rect.adjusted(kCellMargin, 0, -kCellMargin, 0));
    const QColor ink = cell.palette.color(QPalette::Text);
    QColor ground = ink;
    ground.setAlphaF(0.07F);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(isHighContrast() ? QPen(ink, 1) : QPen(Qt::NoPen));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(chip).adjusted(.5, .5, -.5, -.5), height / 2., height / 2.);
    const QRect inside = chip.adjusted(kChipPadding, 0, -kChipPadding, 0);
    const QRect picture = QStyle::alignedRect(cell.direction, Qt::AlignLeft | Qt::AlignVCenter,
                                              QSize(kIconSize, kIconSize), inside);
    cell.icon.paint(&painter, picture);
    painter.setPen(ink);
    painter.setFont(cell.font);
    const bool mirrored = cell.direction == Qt::RightToLeft;
    painter.drawText(inside.adjusted(mirrored ? 0 : kIconSize + kChipGap, 0,
                                     mirrored ? -kIconSize - kChipGap : 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     isolated(metrics.elidedText(cell.text, Qt::ElideRight,
                                                 inside.width() - kIconSize - kChipGap),
                              cell.direction));
    painter.restore();
}

/// The part of a cell or of a title that its words are in.
QRect besideNext(const RowModel& model, int column, const QRect& place)
{
    const auto& columns = model.columns();
    const auto at = static_cast<std::size_t>(column);
    const bool gives = columns[at].isNumber && at + 1 < columns.size() && !columns[at + 1].isNumber;
    return gives ? place.adjusted(0, 0, -kNumberGap, 0) : place;
}

/// Titles stand as the words below them do.
class Header final : public QHeaderView {
public:
    Header(const RowModel& model, QWidget* parent)
        : QHeaderView(Qt::Horizontal, parent), m_model(model)
    {
    }

protected:
    void paintSection(QPainter* painter, const QRect& place, int column) const override
    {
        painter->setPen(hairline(palette()));
        painter->drawLine(place.bottomLeft(), place.bottomRight());
        QHeaderView::paintSection(painter, besideNext(m_model, column, place), column);
    }

private:
    const RowModel& m_model;
};

/// Rows parted by a hairline, the selected ones tinted.
class RowDelegate final : public QStyledItemDelegate {
public:
    RowDelegate(RowModel& model, bool hasSecondLine, QObject* parent)
        : QStyledItemDelegate(parent), m_model(model), m_hasSecondLine(hasSecondLine)
    {
    }

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
        const Column& about = m_model.columns()[static_cast<std::size_t>(index.column())];
        const bool isHeading = m_model.isHeading(index);
        if (m_hasSecondLine && index.column() > 0 && !isHeading)
            cell.rect.setHeight(kLinePadding + std::max(option.fontMetrics.height(), kIconSize) +
                                (about.isChip ? kLinePadding : 0));
        if (m_hasSecondLine && index.column() > 0 && !isHeading && !about.isChip)
            cell.rect.setTop(cell.rect.top() + kLinePadding);
        if (about.isChip && !isHeading) {
            QStyleOptionViewItem chip = cell;
            initStyleOption(&chip, index);
            chip.text = fitting(chip, index);
            if (!chip.text.isEmpty())
                drawChip(*painter, chip);
        } else {
            cell.rect = besideNext(m_model, index.column(), cell.rect)
                            .adjusted(kCellMargin, 0, -kCellMargin, 0);
            QStyledItemDelegate::paint(painter, cell, index);
        }
        painter->setPen(hairline(option.palette));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const Column& column = m_model.columns()[static_cast<std::size_t>(index.column())];
        if (!column.isChip || m_model.isHeading(index)) // a chip is measured before
            option->text = isolated(option->text, option->direction);
        option->textElideMode = Qt::ElideMiddle;
        option->decorationSize = QSize(kIconSize, kIconSize);
    }

private:
    /// All that a chip has to say where there is room for it, else its word alone.
    static QString fitting(const QStyleOptionViewItem& chip, const QModelIndex& index)
    {
        const QString whole = index.data(Qt::AccessibleTextRole).toString();
        const int room =
            chip.rect.width() - 2 * (kCellMargin + kChipPadding) - kIconSize - kChipGap;
        return QFontMetrics(chip.font).horizontalAdvance(whole) + kRounding <= room ? whole
                                                                                    : chip.text;
    }

    RowModel& m_model;
    const bool m_hasSecondLine;
};

} // namespace

QString isolated(const QString& text, Qt::LayoutDirection direction)
{
    constexpr QChar kFirstStrong(0x2068), kEnd(0x2069);
    return direction == Qt::RightToLeft && !text.isEmpty() ? kFirstStrong + text + kEnd : text;
}

QAbstractItemDelegate* makeRowDelegate(RowModel& model, bool hasSecondLine, QObject* parent)
{
    return new RowDelegate(model, hasSecondLine, parent);
}

QHeaderView* makeRowTitles(const RowModel& model, QWidget* parent)
{
    return new Header(model, parent);
}

int chipWidth(const Column& column, const QFontMetrics& metrics)
{
    int widest = 0;
    for (const QString& word : column.words)
        widest = std::max(widest, metrics.horizontalAdvance(word));
    return widest + kRounding + kIconSize + kChipGap + 2 * (kChipPadding + kCellMargin);
}

} // namespace pryvane::ui
