#include "hosts/qt/widgets/ShownWindows.h"

#include "hosts/qt/widgets/X11.h"

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

} // namespace pryvane
