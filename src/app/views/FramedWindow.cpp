#include "app/views/FramedWindow.h"

#include "ui/Sheet.h"
#include "ui/Theme.h"
#include "ui/TitleBar.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace pryvane {

namespace {

bool wantsOwnFrame()
{
    if (qgetenv("PRYVANE_FRAME") == "desktop")
        return false;
#ifdef PRYVANE_DESKTOP_FRAME
    return false;
#else
    return true;
#endif
}

/// While a sheet lies over the window a screen reader finds nothing else in it.
class WindowAccess final : public QAccessibleWidget {
public:
    explicit WindowAccess(QWidget* window) : QAccessibleWidget(window, QAccessible::Window) {}

    [[nodiscard]] int childCount() const override
    {
        return sheet() ? 1 : QAccessibleWidget::childCount();
    }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        if (ui::Sheet* const over = sheet())
            return index == 0 ? QAccessible::queryAccessibleInterface(over) : nullptr;
        return QAccessibleWidget::child(index);
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        if (const ui::Sheet* const over = sheet())
            return child && child->object() == over ? 0 : -1;
        return QAccessibleWidget::indexOfChild(child);
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        return sheet() ? child(0) : QAccessibleWidget::childAt(x, y);
    }

private:
    [[nodiscard]] ui::Sheet* sheet() const { return ui::Sheet::topOf(widget()); }
};

QAccessibleInterface* windowAccess(const QString& className, QObject* object)
{
    return className == QLatin1String("pryvane::FramedWindow")
               ? new WindowAccess(static_cast<QWidget*>(object))
               : nullptr;
}

} // namespace

FramedWindow::FramedWindow(const QString& title, int tag)
    : m_tag(tag), m_ownFrame(wantsOwnFrame()), m_column(new QVBoxLayout(this))
{
    static const bool isFound = [] {
        QAccessible::installFactory(&windowAccess);
        return true;
    }();
    static_cast<void>(isFound);
    setWindowTitle(title);
    m_column->setSpacing(0);
    m_column->setContentsMargins(0, 0, 0, 0);
    if (!m_ownFrame)
        return;
    setWindowFlag(Qt::FramelessWindowHint);
    m_column->setContentsMargins(1, 1, 1, 1); // the hairline
    m_titleBar = new ui::TitleBar(title);
    m_column->addWidget(m_titleBar);
    connect(m_titleBar->closeButton(), &QAbstractButton::clicked, this,
            [this] { Q_EMIT closeAsked(m_tag); });
    new ui::ResizableEdges(this);
}

void FramedWindow::startWith(const QSize& size)
{
    resize(size.boundedTo(screen()->availableSize()).expandedTo(minimumSize()));
}

void FramedWindow::closeEvent(QCloseEvent* event)
{
    event->ignore(); // hiding is its controller's business
    Q_EMIT closeAsked(m_tag);
}

void FramedWindow::paintEvent(QPaintEvent*)
{
    if (!m_ownFrame)
        return;
    QPainter painter(this);
    painter.setPen(ui::hairline(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void FramedWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        Q_EMIT visibilityChanged();
}

void FramedWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Q_EMIT visibilityChanged();
}

void FramedWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    Q_EMIT visibilityChanged();
}

/// What loses the keyboard because it goes or is disabled hands it to what stands before it: behind
/// the last one come the window's own buttons.
bool FramedWindow::focusNextPrevChild(bool next)
{
    const QWidget* loser = focusWidget();
    const bool lost = loser && (!loser->isEnabled() || !loser->isVisible());
    return QWidget::focusNextPrevChild(next && !lost);
}

} // namespace pryvane
