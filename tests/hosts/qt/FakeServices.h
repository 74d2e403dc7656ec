#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <atomic>

namespace pryvane::test {

/// A connection of its own to the bus that the environment names.
[[nodiscard]] QDBusConnection connectionToBus();

/// The same, given up at the end with every name that it owns.
struct OwnConnection {
    QDBusConnection bus = connectionToBus();
    ~OwnConnection() { QDBusConnection::disconnectFromBus(bus.name()); }
};

/// A notification service that records what it is to show.
class FakeNotifications final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    explicit FakeNotifications(QStringList capabilities);

    /// Somebody presses the button of that message.
    void press(uint id);

    bool silent = false;
    QStringList lastActions;
    QList<uint> closed;
    QStringList shown; ///< "summary|body"; of those that were replaced what they were last

public Q_SLOTS:
    QStringList GetCapabilities();
    uint Notify(const QString& application, uint replaces, const QString& icon,
                const QString& summary, const QString& body, const QStringList& actions,
                const QVariantMap& hints, int expires);
    void CloseNotification(uint id) { closed << id; }

private:
    void sayNothing();

    OwnConnection m_own;
    QStringList m_capabilities;
};

/// The service that knows the hosts of status items.
class FakeItemWatcher final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hosted)

public:
    /// To be made in the thread that shall answer: Qt asks this service waiting.
    explicit FakeItemWatcher(std::atomic<int>& registered);
    [[nodiscard]] bool hosted() const { return true; }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString&) { ++m_registered; }

private:
    OwnConnection m_own;
    std::atomic<int>& m_registered;
};

} // namespace pryvane::test
