#pragma once

#include "platform/DesktopWindows.h"

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

namespace pryvane {

/// Progress with the icons of docks and task bars that listen to com.canonical.Unity.LauncherEntry.
class BusTaskProgress final : public QObject, public TaskProgress {
    Q_OBJECT

public:
    /// Between two messages, however often the share changes.
    static constexpr std::chrono::milliseconds kBetween{100};

    explicit BusTaskProgress(QDBusConnection bus);
    ~BusTaskProgress() override { hide(); }

    void show(double share) override;
    void hide() override;

private:
    void send(std::optional<double> share);

    QDBusConnection m_bus;
    QTimer m_pause;
    std::optional<double> m_wanted, m_sent;
};

} // namespace pryvane
