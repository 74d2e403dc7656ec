#pragma once

#include "platform/DistributedNotifications.h"

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

} // namespace pryvane
