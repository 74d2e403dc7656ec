#include "ui/Surfaces.h"

#include "ui/Artwork.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Style.h"

#include <QCheckBox>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace pryvane::ui {

Card::Card(QWidget* parent) : QFrame(parent), m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(kGroups, kGroups, kGroups, kGroups);
    m_column->setSpacing(kRelated);
}

void Card::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(hairline(palette()), 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(.5, .5, -.5, -.5), kCorner, kCorner);
}

ColouredView::ColouredView(QWidget* parent)
    : QWidget(parent), m_badge(new QLabel(this)), m_statement(makeLabel(TextRole::Statement)),
      m_detail(makeLabel(TextRole::Body)), m_actions(new QHBoxLayout)
{
    QPalette white = palette();
    for (const auto role : {QPalette::WindowText, QPalette::Text})
        white.setColor(role, Qt::white);
    for (QLabel* label : {m_statement, m_detail}) {
        label->setPalette(white);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFocusPolicy(Qt::NoFocus);
    }
    m_badge->hide();
    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    words->addStretch();
    words->addWidget(m_statement);
    words->addWidget(m_detail);
    words->addStretch();
    m_detail->hide();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kEdge, 12, kEdge, 12);
    row->setSpacing(kGroups);
    row->addWidget(m_badge);
    row->addLayout(words, 1);
    row->addLayout(m_actions);
    setMinimumHeight(80);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
}

void ColouredView::setArtwork(const QString& background, const QString& badge)
{
    const QString wanted = background.isEmpty() ? QStringLiteral("idle_bg") : background;
    if (wanted != m_background) {
        m_background = wanted;
        m_drawn = QPixmap();
    }
    m_badge->setVisible(!badge.isEmpty());
    if (!badge.isEmpty())
        m_badge->setPixmap(iconPixmap(badge, Qt::white, 40, devicePixelRatioF()));
    update();
}

void ColouredView::setStatement(const QString& statement, const QString& detail)
{
    if (m_statement->text() == statement && m_detail->text() == detail)
        return; // a screen reader would say it again
    m_statement->setText(statement);
    m_detail->setText(detail);
    m_detail->setVisible(!detail.isEmpty());
    setAccessibleName(statement);
    setAccessibleDescription(detail);
}

void ColouredView::paintEvent(QPaintEvent*)
{
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (m_drawn.size() != pixels) { // the artwork is drawn once for each size
        m_drawn = drawnArtwork(m_background, pixels, kCorner * devicePixelRatioF());
        m_drawn.setDevicePixelRatio(devicePixelRatioF());
    }
    QPainter(this).drawPixmap(0, 0, m_drawn);
}

void ColouredView::resizeEvent(QResizeEvent*)
{
    m_drawn = QPixmap();
    fitStatement();
}

bool ColouredView::event(QEvent* event)
{
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) // its buttons take more or less
        fitStatement();
    return done;
}

/// A headline that would take two lines is written smaller.
void ColouredView::fitStatement()
{
    layout()->activate();
    const int taken = m_badge->isHidden() ? 0 : m_badge->sizeHint().width() + kGroups;
    const int room = width() - 2 * kEdge - kGroups - taken - m_actions->sizeHint().width();
    QFont font = fontOf(TextRole::Statement);
    const double least = fontOf(TextRole::GroupTitle).pointSizeF();
    while (font.pointSizeF() > least &&
           QFontMetrics(font).horizontalAdvance(m_statement->text()) > room)
        font.setPointSizeF(font.pointSizeF() - 1);
    if (font != m_statement->font())
        m_statement->setFont(font);
}

SwitchRow::SwitchRow(const QString& name, const QString& explanation, QWidget* parent)
    : QWidget(parent), m_box(new QCheckBox(this)), m_explanation(makeNote(explanation))
{
    makeSwitch(*m_box);
    m_box->setAccessibleName(name);
    m_box->setAccessibleDescription(explanation);
    m_box->setMinimumHeight(kTarget);
    auto* title = makeLabel(TextRole::Body, name);
    title->setBuddy(m_box);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(title);
    words->addWidget(m_explanation);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 4, 0, 4);
    row->setSpacing(kGroups);
    row->addLayout(words, 1);
    row->addWidget(m_box, 0, Qt::AlignVCenter);
}

void SwitchRow::setExplanation(const QString& explanation)
{
    m_explanation->setText(explanation);
    m_box->setAccessibleDescription(explanation);
}

Notice::Notice(const QString& name, QWidget* parent)
    : QWidget(parent), m_icon(new QLabel), m_words(makeLabel(TextRole::Body))
{
    m_icon->setPixmap(icon(QStringLiteral("attention"), Meaning::Found)
                          .pixmap(QSize(20, 20), devicePixelRatioF()));
    m_words->setObjectName(name);
    m_words->setWordWrap(true);
    m_words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_words->setFocusPolicy(Qt::NoFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kRelated);
    row->addWidget(m_icon, 0, Qt::AlignTop);
    row->addWidget(m_words, 1);
    hide();
}

void Notice::tell(const QString& words, bool failed)
{
    m_words->setText(words);
    m_icon->setVisible(failed);
    QPalette own = palette();
    own.setColor(QPalette::WindowText, failed ? colorOf(Meaning::Found, QGuiApplication::palette())
                                              : secondaryText(QGuiApplication::palette()));
    m_words->setPalette(own);
    setVisible(!words.isEmpty());
}

EmptyState::EmptyState(const QString& iconName, const QString& sentence, QWidget* parent)
    : QWidget(parent), m_iconName(iconName), m_icon(new QLabel), m_sentence(makeNote(sentence)),
      m_column(new QVBoxLayout(this))
{
    setTextRole(*m_sentence, TextRole::Body);
    m_sentence->setAlignment(Qt::AlignHCenter);
    m_icon->setAlignment(Qt::AlignHCenter);
    m_column->setSpacing(kGroups);
    m_column->addStretch();
    m_column->addWidget(m_icon);
    m_column->addWidget(m_sentence);
    m_column->addStretch();
    drawIcon();
}

void EmptyState::setSentence(const QString& sentence)
{
    m_sentence->setText(sentence);
}

void EmptyState::setAction(QWidget* button)
{
    m_column->insertWidget(m_column->count() - 1, button, 0, Qt::AlignHCenter);
}

void EmptyState::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        drawIcon();
}

void EmptyState::drawIcon()
{
    m_icon->setPixmap(iconPixmap(m_iconName, secondaryText(palette()), 56, devicePixelRatioF()));
}

} // namespace pryvane::ui
