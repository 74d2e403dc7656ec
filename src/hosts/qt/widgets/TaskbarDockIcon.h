#pragma once

#include "platform/DockIcon.h"
#include "platform/Log.h"

#include <QObject>

namespace pryvane {

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
