#include "ui/Spinner.h"

#include "ui/Labels.h"
#include "ui/Style.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QTimerEvent>

namespace pryvane::ui {

namespace {

constexpr int kSteps = 24, kFrame = 50; // a turn takes 1.2 s

}

Spinner::Spinner(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(tr("Working"));
}

void Spinner::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height()) - 4.0;
    const QRectF ring((width() - side) / 2, (height() - side) / 2, side, side);
    QColor track = palette().color(foregroundRole());
    track.setAlphaF(0.2F);
    painter.setPen(QPen(track, 2));
    painter.drawEllipse(ring);
    painter.setPen(QPen(palette().color(foregroundRole()), 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, -m_step * 5760 / kSteps, 1600);
}

void Spinner::showEvent(QShowEvent*)
{
    if (!reducedMotion())
        m_timer.start(kFrame, this);
}

void Spinner::hideEvent(QHideEvent*)
{
    m_timer.stop();
}

void Spinner::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId())
        return QWidget::timerEvent(event);
    m_step = (m_step + 1) % kSteps;
    update();
}

ButtonWithSpinner::ButtonWithSpinner(QWidget* parent)
    : QPushButton(parent), m_spinner(new Spinner(this))
{
    m_spinner->hide();
}

void ButtonWithSpinner::showSpinner()
{
    m_spinner->setForegroundRole(QPalette::ButtonText);
    m_spinner->show();
}

void ButtonWithSpinner::hideSpinner()
{
    m_spinner->hide();
}

void ButtonWithSpinner::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    const QSize size = m_spinner->sizeHint();
    m_spinner->setGeometry((width() - size.width()) / 2, (height() - size.height()) / 2,
                           size.width(), size.height());
}

QWidget* makeBusyRow(const QString& words)
{
    auto* busy = new QWidget;
    auto* row = new QHBoxLayout(busy);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kRelated);
    row->addWidget(new Spinner);
    row->addWidget(makeLabel(TextRole::Body, words));
    return busy;
}

QWidget* makeBusyPage(const QString& words)
{
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    row->addWidget(makeBusyRow(words), 0, Qt::AlignCenter);
    return page;
}

} // namespace pryvane::ui
