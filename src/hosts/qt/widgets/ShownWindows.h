#pragma once

#include <QObject>

class QWindow;

namespace pryvane {

/// Has windows appear that a window manager overlooked: one that starts in the same moment takes
/// the right to map windows before it listens, and a request of that moment is lost. Such a window
/// stays unmapped without a manager's mark, so the request is made again. X11 only; main thread.
class ShownWindows final : public QObject {
    Q_OBJECT

public:
    ShownWindows();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void lookAt(QWindow* window, int looksLeft);
};

} // namespace pryvane
