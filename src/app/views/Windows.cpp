#include "app/views/Windows.h"

#include <QCoreApplication>

namespace pryvane {

Windows::~Windows()
{
    closeAll();
}

void Windows::closeAll()
{
    for (Known& window : m_windows)
        delete window.widget;
}

void Windows::setMaker(ShellWindow window, Maker maker)
{
    known(window).maker = std::move(maker);
}

QWidget* Windows::widget(ShellWindow window) const
{
    return m_windows[static_cast<std::size_t>(window)].widget;
}

Windows::Known& Windows::known(ShellWindow window)
{
    return m_windows[static_cast<std::size_t>(window)];
}

void Windows::open(ShellWindow window)
{
    Known& wanted = known(window);
    if (!wanted.widget && wanted.maker)
        wanted.widget = wanted.maker();
    bringForward(window);
}

void Windows::close(ShellWindow window)
{
    if (QWidget* const closing = known(window).widget) {
        known(window).widget = nullptr;
        closing->hide();
        closing->deleteLater(); // its own button may be what called
    }
}

void Windows::bringForward(ShellWindow window)
{
    QWidget* const wanted = widget(window);
    if (!wanted)
        return;
    if (wanted->isMinimized())
        wanted->setWindowState(wanted->windowState() & ~Qt::WindowMinimized);
    wanted->show();
    wanted->raise();
    wanted->activateWindow();
}

void Windows::orderOut(ShellWindow window)
{
    if (QWidget* const wanted = widget(window))
        wanted->hide();
}

void Windows::setMinimised(ShellWindow window, bool minimised)
{
    QWidget* const wanted = widget(window);
    if (!wanted)
        return;
    if (minimised)
        wanted->showMinimized();
    else
        bringForward(window);
}

bool Windows::isMinimised(ShellWindow window) const
{
    return widget(window) && widget(window)->isMinimized();
}

void Windows::toggleZoomed(ShellWindow window)
{
    if (QWidget* const wanted = widget(window))
        wanted->isMaximized() ? wanted->showNormal() : wanted->showMaximized();
}

bool Windows::isVisible(ShellWindow window) const
{
    return widget(window) && widget(window)->isVisible();
}

bool Windows::isActive(ShellWindow window) const
{
    return isVisible(window) && !isMinimised(window) && widget(window)->isActiveWindow();
}

void Windows::activate()
{
    for (const auto window : {ShellWindow::Main, ShellWindow::Access})
        if (isVisible(window))
            return widget(window)->activateWindow();
}

void Windows::terminate()
{
    // Not quit(): that asks the windows, which hide instead.
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

} // namespace pryvane
