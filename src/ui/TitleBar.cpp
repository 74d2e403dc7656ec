#include "ui/TitleBar.h"

#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace pryvane::ui {

namespace {

constexpr int kEdgeWidth = 5;

Qt::CursorShape cursorOf(Qt::Edges edges)
{
    if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

} // namespace

WindowButton::WindowButton(const QString& iconName, const QString& name, QWidget* parent)
    : QAbstractButton(parent), m_iconName(iconName)
{
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void WindowButton::setIconName(const QString& iconName)
{
    m_iconName = iconName;
    update();
}

void WindowButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette().color(QPalette::WindowText);
    if (underMouse() || isDown()) {
        QColor fill = ink;
        fill.setAlphaF(isDown() ? 0.18F : 0.09F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(rect().adjusted(2, 1, -2, -1), 6, 6);
    }
    constexpr int kSize = 16;
    painter.drawPixmap((width() - kSize) / 2, (height() - kSize) / 2,
                       iconPixmap(m_iconName, ink, kSize, devicePixelRatioF()));
}

TitleBar::TitleBar(const QString& title, QWidget* parent)
    : QWidget(parent), m_close(new WindowButton(QStringLiteral("close"), tr("Close"))),
      m_minimise(new WindowButton(QStringLiteral("minimise"), tr("Minimise"))),
      m_maximise(new WindowButton(QStringLiteral("maximise"), tr("Maximise"))),
      m_title(makeLabel(TextRole::Body, title))
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->setSpacing(2);
    row->addWidget(m_minimise);
    row->addWidget(m_maximise);
    row->addWidget(m_close);
    row->addSpacing(kRelated);
    row->addWidget(m_title, 1);
    connect(m_minimise, &WindowButton::clicked, this, [this] { window()->showMinimized(); });
    connect(m_maximise, &WindowButton::clicked, this, &TitleBar::toggleMaximised);
}

void TitleBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && window()->windowHandle())
        window()->windowHandle()->startSystemMove();
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        toggleMaximised();
}

void TitleBar::toggleMaximised()
{
    if (window()->isMaximized())
        window()->showNormal();
    else
        window()->showMaximized();
}

void TitleBar::showEvent(QShowEvent*)
{
    window()->installEventFilter(this);
    showWindowState();
}

bool TitleBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == window() && event->type() == QEvent::WindowStateChange)
        showWindowState();
    return QWidget::eventFilter(watched, event);
}

void TitleBar::showWindowState()
{
    const bool maximised = window()->isMaximized();
    m_maximise->setIconName(maximised ? QStringLiteral("restore") : QStringLiteral("maximise"));
    m_maximise->setAccessibleName(maximised ? tr("Restore") : tr("Maximise"));
    m_maximise->setToolTip(m_maximise->accessibleName());
}

ResizableEdges::ResizableEdges(QWidget* window) : QObject(window), m_window(window)
{
    window->setMouseTracking(true);
    window->installEventFilter(this);
}

bool ResizableEdges::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonPress) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const Qt::Edges edges = edgesAt(mouse->position().toPoint());
        if (event->type() == QEvent::MouseMove && mouse->buttons() == Qt::NoButton) {
            if (edges)
                m_window->setCursor(cursorOf(edges));
            else
                m_window->unsetCursor();
        } else if (edges && mouse->button() == Qt::LeftButton) {
            return m_window->windowHandle()->startSystemResize(edges);
        }
    } else if (event->type() == QEvent::Leave) {
        m_window->unsetCursor();
    }
    return QObject::eventFilter(watched, event);
}

Qt::Edges ResizableEdges::edgesAt(const QPoint& place) const
{
    Qt::Edges edges;
    if (m_window->isMaximized())
        return edges;
    edges.setFlag(Qt::LeftEdge, place.x() < kEdgeWidth);
    edges.setFlag(Qt::RightEdge, place.x() >= m_window->width() - kEdgeWidth);
    edges.setFlag(Qt::TopEdge, place.y() < kEdgeWidth);
    edges.setFlag(Qt::BottomEdge, place.y() >= m_window->height() - kEdgeWidth);
    return edges;
}

} // namespace pryvane::ui
