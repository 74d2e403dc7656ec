#pragma once

#include "platform/DesktopPrograms.h"
#include "platform/Messages.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>

namespace pryvane {

/// Hears the messages of one name until it is destroyed.
class BusObserver final : public QObject, public DistributedNotifications::Observation {
    Q_OBJECT

public:
    BusObserver(QDBusConnection bus, const QString& name,
                DistributedNotifications::Handler handler);

private Q_SLOTS:
    void heard(const QString& name, const QString& object);

private:
    const QString m_name;
    DistributedNotifications::Handler m_handler;
};

/// Messages between the user's programs as signals on the session bus.
class BusDistributedNotifications final : public DistributedNotifications {
public:
    BusDistributedNotifications(QDBusConnection bus, Log& log);

    void post(std::string_view name, std::string_view object) override;
    [[nodiscard]] std::unique_ptr<Observation> observe(std::string_view name,
                                                       Handler handler) override;

private:
    QDBusConnection m_bus;
    Log& m_log;
};

} // namespace pryvane
