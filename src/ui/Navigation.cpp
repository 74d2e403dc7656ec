#include "ui/Navigation.h"

#include "ui/Icons.h"
#include "ui/KeyboardFocus.h"
#include "ui/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>

namespace pryvane::ui {

namespace {

constexpr int kRowHeight = 40, kIconSize = 20;

class RowPainter final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        const bool hovered = (option.state & QStyle::State_MouseOver) != 0;
        const bool focused =
            (option.state & QStyle::State_HasFocus) != 0 && KeyboardFocus::isShown();
        const QColor accent = option.palette.color(QPalette::Highlight);
        const QColor ink = selected ? accent : option.palette.color(QPalette::WindowText);
        const QRectF row = QRectF(option.rect).adjusted(0, 2, 0, -2);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        QColor ground = selected ? accent : option.palette.color(QPalette::WindowText);
        ground.setAlphaF(selected ? 0.14F : 0.05F);
        if (selected || hovered) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(ground);
            painter->drawRoundedRect(row, 6, 6);
        }
        if (focused) {
            painter->setBrush(Qt::NoBrush);
            painter->setPen(QPen(accent, 2));
            painter->drawRoundedRect(row.adjusted(1, 1, -1, -1), 6, 6);
        }
        const bool mirrored = option.direction == Qt::RightToLeft;
        painter->drawPixmap(QPointF(mirrored ? row.right() - 12 - kIconSize : row.x() + 12,
                                    row.center().y() - kIconSize / 2.0),
                            iconPixmap(index.data(Qt::UserRole).toString(), ink, kIconSize,
                                       painter->device()->devicePixelRatioF()));
        QFont font = option.font;
        if (selected)
            font.setWeight(QFont::DemiBold);
        painter->setFont(font);
        painter->setPen(ink);
        const int beside = 12 + kIconSize + 12;
        painter->drawText(row.adjusted(mirrored ? 8 : beside, 0, mirrored ? -beside : -8, 0),
                          Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                          index.data().toString());
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return {option.rect.width(), std::max(kRowHeight, option.fontMetrics.height() + 16)};
    }
};

} // namespace

Navigation::Navigation(QWidget* parent) : QListWidget(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new RowPainter(this));
    setMouseTracking(true);
    setViewportMargins(kRelated, kRelated, kRelated, kRelated);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setTabKeyNavigation(false);
    setAccessibleName(tr("Screens"));
    tint();
}

void Navigation::addScreen(const QString& iconName, const QString& name)
{
    auto* row = new QListWidgetItem(name, this);
    row->setData(Qt::UserRole, iconName);
}

void Navigation::changeEvent(QEvent* event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange)
        tint();
}

void Navigation::tint()
{
    QPalette own = palette();
    if (own.color(QPalette::Base) == sidebar(own))
        return;
    own.setColor(QPalette::Base, sidebar(own));
    setPalette(own);
}

Disclosure::Disclosure(const QString& title, QWidget* content, QWidget* parent)
    : QWidget(parent), m_button(new QToolButton(this)), m_content(content)
{
    m_button->setText(title);
    m_button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_button->setAutoRaise(true);
    m_button->setCheckable(true);
    m_button->setMinimumHeight(kTarget);
    connect(m_button, &QToolButton::toggled, this, &Disclosure::setOpen);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(m_button, 0, Qt::AlignLeft);
    column->addWidget(m_content);
    setOpen(false);
}

void Disclosure::setOpen(bool open)
{
    m_button->setChecked(open);
    m_button->setIcon(
        icon(open ? QStringLiteral("chevron-down") : QStringLiteral("chevron-right")));
    m_content->setVisible(open);
}

} // namespace pryvane::ui
