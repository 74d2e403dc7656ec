#pragma once

#include "platform/DesktopWindows.h"
#include "platform/Messages.h"

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

/// The dock icon by the hint that keeps windows out of task bars. X11 only: elsewhere the log says
/// that the icon stays.
class TaskbarDockIcon final : public QObject, public DockIcon {
    Q_OBJECT

public:
    explicit TaskbarDockIcon(Log& log);

    [[nodiscard]] ActivationPolicy policy() const override { return m_policy; }
    void setPolicy(ActivationPolicy policy) override;

    /// Whether this desktop can do it.
    [[nodiscard]] static bool available();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Log& m_log;
    ActivationPolicy m_policy = ActivationPolicy::Regular;
};

} // namespace pryvane
