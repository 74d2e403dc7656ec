#include "ui/Sheet.h"

#include "ui/Labels.h"
#include "ui/RowTable.h"
#include "ui/Surfaces.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

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

namespace {

/// A screen reader says that a dialogue has opened, and stays in it.
class SheetAccess final : public QAccessibleWidget {
public:
    explicit SheetAccess(QWidget* sheet)
        : QAccessibleWidget(sheet, QAccessible::Dialog, sheet->accessibleName())
    {
    }

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
};

QAccessibleInterface* sheetAccess(const QString& className, QObject* object)
{
    return className == QLatin1String("pryvane::ui::Sheet")
               ? new SheetAccess(static_cast<QWidget*>(object))
               : nullptr;
}

void announceSheets()
{
    static const bool once = [] {
        QAccessible::installFactory(&sheetAccess);
        return true;
    }();
    static_cast<void>(once);
}

} // namespace

Sheet::Sheet(QWidget* over, const QString& title)
    : QWidget(over->window()), m_card(new Card(this)), m_body(new QVBoxLayout),
      m_buttons(new QHBoxLayout), m_focusedBefore(QApplication::focusWidget())
{
    announceSheets();
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

void Sheet::setDefault(QPushButton* button)
{
    m_default = button;
    button->setDefault(true);
}

Sheet* Sheet::topOf(const QWidget* window)
{
    Sheet* top = nullptr;
    if (window)
        for (QObject* child : window->children()) // the one raised last comes last
            if (auto* sheet = qobject_cast<Sheet*>(child); sheet && !sheet->m_closed)
                top = sheet;
    return top;
}

bool Sheet::isOver(const QWidget* window)
{
    return topOf(window) != nullptr;
}

void Sheet::present(QWidget* first)
{
    if (!m_default && m_buttons->count() == 1)
        if (auto* only = qobject_cast<QPushButton*>(m_buttons->itemAt(0)->widget()))
            setDefault(only);
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

bool Sheet::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride)
        event->accept(); // it comes back as a key, which nothing behind hears
    return QWidget::event(event);
}

void Sheet::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->key() == Qt::Key_Escape)
        return dismiss();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !event->isAutoRepeat() && m_default && m_default->isEnabled())
        m_default->click();
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
