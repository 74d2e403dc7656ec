#include "hosts/qt/FakeServices.h"

#include <QDBusMessage>

#include <atomic>
#include <cstdlib>

namespace pryvane::test {

namespace {

void offer(QDBusConnection bus, const char* name, const char* path, QObject* object)
{
    bus.registerObject(QLatin1String(path), object,
                       QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllProperties);
    bus.registerService(QLatin1String(name));
}

} // namespace

QDBusConnection connectionToBus()
{
    static std::atomic<int> number{0};
    return QDBusConnection::connectToBus(
        QString::fromLocal8Bit(std::getenv("DBUS_SESSION_BUS_ADDRESS")),
        QStringLiteral("test-%1").arg(++number));
}

FakeNotifications::FakeNotifications(QStringList capabilities)
    : m_capabilities(std::move(capabilities))
{
    offer(m_own.bus, "org.freedesktop.Notifications", "/org/freedesktop/Notifications", this);
}

void FakeNotifications::sayNothing()
{
    setDelayedReply(true);
}

QStringList FakeNotifications::GetCapabilities()
{
    if (silent)
        sayNothing();
    return m_capabilities;
}

uint FakeNotifications::Notify(const QString&, uint replaces, const QString&,
                               const QString& summary, const QString& body,
                               const QStringList& actions, const QVariantMap&, int)
{
    lastActions = actions;
    if (silent)
        sayNothing();
    const QString message = summary + QLatin1Char('|') + body;
    if (replaces > 0) {
        shown[static_cast<qsizetype>(replaces) - 1] = message;
        return replaces;
    }
    shown << message;
    return static_cast<uint>(shown.size());
}

void FakeNotifications::press(uint id)
{
    for (const char* member : {"ActivationToken", "ActionInvoked"}) {
        auto signal = QDBusMessage::createSignal("/org/freedesktop/Notifications",
                                                 "org.freedesktop.Notifications", member);
        m_own.bus.send(signal << id << "show");
    }
}

FakeItemWatcher::FakeItemWatcher(std::atomic<int>& registered) : m_registered(registered)
{
    offer(m_own.bus, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", this);
}

} // namespace pryvane::test
