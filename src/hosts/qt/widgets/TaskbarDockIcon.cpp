#include "hosts/qt/widgets/TaskbarDockIcon.h"

#include "hosts/qt/widgets/X11.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace pryvane {

namespace {

/// Task bars list these; menus and tooltips they leave out anyway.
bool isListed(const QWindow& window)
{
    return window.isTopLevel() && (window.type() == Qt::Window || window.type() == Qt::Dialog);
}

void apply(const QWindow& window, ActivationPolicy policy)
{
    if (isListed(window) && window.isExposed())
        x11::setSkipTaskbar(static_cast<xcb_window_t>(window.winId()),
                            policy == ActivationPolicy::Accessory);
}

} // namespace

TaskbarDockIcon::TaskbarDockIcon(Log& log) : m_log(log) {}

bool TaskbarDockIcon::available()
{
    return x11::connection() != nullptr;
}

void TaskbarDockIcon::setPolicy(ActivationPolicy policy)
{
    if (policy == m_policy)
        return;
    m_policy = policy;
    if (!available()) {
        m_log.line("this desktop gives programs no say in its list of windows; the icon stays");
        return;
    }
    // The window manager forgets the hint with each hiding, so every showing is looked at.
    qGuiApp->removeEventFilter(this);
    if (policy == ActivationPolicy::Accessory)
        qGuiApp->installEventFilter(this);
    for (const QWindow* window : QGuiApplication::topLevelWindows())
        apply(*window, policy);
}

bool TaskbarDockIcon::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Expose) {
        if (const auto* window = qobject_cast<QWindow*>(watched))
            apply(*window, m_policy);
    }
    return false;
}

} // namespace pryvane
