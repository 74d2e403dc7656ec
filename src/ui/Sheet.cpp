#include "ui/Sheet.h"

#include "ui/Labels.h"
#include "ui/Surfaces.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace pryvane::ui {

namespace {

bool takesTab(const QWidget* widget)
{
    return (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && widget->isVisible() &&
           !widget->focusProxy();
}

/// The widgets below `sheet` that the Tab key reaches now, in order.
QList<QWidget*> tabStops(const QWidget* sheet)
{
    QList<QWidget*> stops;
    auto* start = const_cast<QWidget*>(sheet);
    for (QWidget* widget = start->nextInFocusChain(); widget != start;
         widget = widget->nextInFocusChain())
        if (sheet->isAncestorOf(widget) && takesTab(widget))
            stops.append(widget);
    return stops;
}

/// The widget itself, or where it can have no focus the nearest before it that can.
QWidget* nearestStop(QWidget* widget)
{
    QWidget* stop = widget;
    while (!takesTab(stop)) {
        stop = stop->previousInFocusChain();
        if (stop == widget)
            break;
    }
    return stop;
}

} // namespace

Sheet::Sheet(QWidget* over, const QString& title)
    : QWidget(over->window()), m_card(new Card(this)), m_body(new QVBoxLayout),
      m_buttons(new QHBoxLayout), m_focusedBefore(QApplication::focusWidget())
{
    setAccessibleName(title);
    setAttribute(Qt::WA_DeleteOnClose);
    m_card->column()->setContentsMargins(kEdge, kEdge, kEdge, kGroups);
    m_card->column()->setSpacing(kGroups);
    auto* heading = makeLabel(TextRole::GroupTitle, title);
    heading->setWordWrap(true);
    m_body->setSpacing(kRelated);
    m_buttons->setDirection(QBoxLayout::RightToLeft);
    m_buttons->setSpacing(kRelated);
    m_card->column()->addWidget(heading);
    m_card->column()->addLayout(m_body, 1);
    m_card->column()->addLayout(m_buttons);
    window()->installEventFilter(this);
    m_card->installEventFilter(this);
    hide();
}

void Sheet::setWidth(int width)
{
    m_width = width;
    place();
}

void Sheet::present(QWidget* first)
{
    m_buttons->addStretch();
    place();
    show();
    raise();
    (first ? first : this)->setFocus(Qt::OtherFocusReason);
    QAccessibleEvent told(this, QAccessible::DialogStart);
    QAccessible::updateAccessibility(&told);
}

void Sheet::dismiss()
{
    if (m_closed)
        return;
    m_closed = true;
    hide();
    if (m_focusedBefore) // it may have been disabled by what the sheet began
        nearestStop(m_focusedBefore)->setFocus(Qt::OtherFocusReason);
    QAccessibleEvent told(this, QAccessible::DialogEnd);
    QAccessible::updateAccessibility(&told);
    Q_EMIT closed();
    deleteLater();
}

void Sheet::place()
{
    setGeometry(window()->rect());
    const int width = std::min(m_width, this->width() - 2 * kEdge);
    m_card->setFixedWidth(width);
    const int wanted =
        m_card->hasHeightForWidth() ? m_card->heightForWidth(width) : m_card->sizeHint().height();
    const int height = std::min(wanted, this->height() - 2 * kEdge);
    m_card->setGeometry((this->width() - width) / 2, (this->height() - height) / 2, width, height);
}

void Sheet::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), QColor(0, 0, 0, isDark(palette()) ? 150 : 90));
}

void Sheet::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        return dismiss();
    event->accept(); // nothing behind it hears a key
}

void Sheet::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

bool Sheet::focusNextPrevChild(bool next)
{
    const QList<QWidget*> stops = tabStops(this);
    if (stops.isEmpty())
        return false;
    const auto at = stops.indexOf(QApplication::focusWidget());
    const auto count = stops.size();
    const auto target = at < 0 ? 0 : (at + (next ? 1 : count - 1)) % count;
    stops[target]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

bool Sheet::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == window() && event->type() == QEvent::Resize)
        place();
    if (event->type() == QEvent::LayoutRequest && (watched == window() || watched == m_card))
        place();
    return QWidget::eventFilter(watched, event);
}

} // namespace pryvane::ui
