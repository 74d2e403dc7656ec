#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <atomic>

namespace pryvane::test {

/// A connection of its own to the bus that the environment names.
[[nodiscard]] inline QDBusConnection connectionToBus()
{
    static std::atomic<int> number{0};
    return QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                         QStringLiteral("test-%1").arg(++number));
}

/// The same, given up at the end with every name that it owns.
struct OwnConnection {
    QDBusConnection bus = connectionToBus();
    ~OwnConnection() { QDBusConnection::disconnectFromBus(bus.name()); }

    /// Lets the object be the service of that name.
    void offer(const char* name, const char* path, QObject* object)
    {
        bus.registerObject(QLatin1String(path), object,
                           QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
        bus.registerService(QLatin1String(name));
    }
};

} // namespace pryvane::test
