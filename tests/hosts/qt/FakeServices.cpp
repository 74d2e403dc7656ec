#include "hosts/qt/FakeServices.h"

#include <QDBusMessage>

#include <atomic>
#include <cstdlib>
#include <unistd.h>

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
                               const QStringList& buttons, const QVariantMap&, int)
{
    actions << buttons;
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

void FakeNotifications::press(uint id, const QString& token)
{
    const QString service = QStringLiteral("org.freedesktop.Notifications");
    for (const auto& [member, text] :
         {std::pair(QStringLiteral("ActivationToken"), token),
          std::pair(QStringLiteral("ActionInvoked"), QStringLiteral("show"))}) {
        QDBusMessage signal = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/Notifications"), service, member);
        signal << id << text;
        m_own.bus.send(signal);
    }
}

FakeManager::FakeManager(std::string unitFolder) : m_unitFolder(std::move(unitFolder))
{
    offer(m_own.bus, "org.freedesktop.systemd1", "/org/freedesktop/systemd1", this);
}

void FakeManager::note(const QString& call)
{
    calls << call;
    if (!refused.isEmpty() && call.startsWith(refused))
        sendErrorReply(QStringLiteral("org.freedesktop.systemd1.Refused"), QStringLiteral("no"));
}

QString FakeManager::GetUnitFileState(const QString& name)
{
    if (access((m_unitFolder + "/" + name.toStdString()).c_str(), F_OK) != 0)
        sendErrorReply(QStringLiteral("org.freedesktop.DBus.Error.FileNotFound"), name);
    return m_isEnabled ? QStringLiteral("enabled") : QStringLiteral("disabled");
}

bool FakeManager::EnableUnitFiles(const QStringList& names, bool runtime, bool force)
{
    note("EnableUnitFiles " + names.join(QLatin1Char(' ')) + (runtime || force ? "!" : ""));
    m_isEnabled = refused.isEmpty();
    return true;
}

void FakeManager::DisableUnitFiles(const QStringList& names, bool)
{
    note("DisableUnitFiles " + names.join(QLatin1Char(' ')));
    m_isEnabled = false;
}

ProgressListener::ProgressListener()
{
    m_own.bus.connect({}, {}, QStringLiteral("com.canonical.Unity.LauncherEntry"),
                      QStringLiteral("Update"), this, SLOT(heard(QString, QVariantMap)));
}

void ProgressListener::heard(const QString& application, const QVariantMap& properties)
{
    if (application == QLatin1String("application://com.torvell.Pryvane.desktop"))
        shares << (properties[QStringLiteral("progress-visible")].toBool()
                       ? properties[QStringLiteral("progress")].toDouble()
                       : -1);
}

FakeFileManager::FakeFileManager()
{
    offer(m_own.bus, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", this);
}

FakeItemWatcher::FakeItemWatcher(std::atomic<int>& registered) : m_registered(registered)
{
    offer(m_own.bus, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", this);
}

} // namespace pryvane::test
