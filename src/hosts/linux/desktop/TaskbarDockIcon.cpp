#include "hosts/linux/desktop/TaskbarDockIcon.h"

#include "hosts/linux/desktop/X11.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <chrono>

namespace pryvane {

namespace {

// For ten seconds: a desktop that is just being started up is slow.
constexpr std::chrono::milliseconds kBetweenLooks{250};
constexpr int kLooks = 40;

} // namespace

ShownWindows::ShownWindows()
{
    if (x11::connection())
        qGuiApp->installEventFilter(this);
}

bool ShownWindows::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && watched->isWindowType()) {
        auto* window = static_cast<QWindow*>(watched);
        if (window->isTopLevel())
            lookAt(window, kLooks);
    }
    return false;
}

void ShownWindows::lookAt(QWindow* window, int looksLeft)
{
    QTimer::singleShot(kBetweenLooks, this, [this, window = QPointer(window), looksLeft] {
        if (!window || !window->isVisible() || window->isExposed())
            return;
        const auto id = static_cast<xcb_window_t>(window->winId());
        if (x11::isOverlooked(id))
            x11::map(id);
        if (looksLeft > 1)
            lookAt(window, looksLeft - 1);
    });
}

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
