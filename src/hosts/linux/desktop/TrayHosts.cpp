#include "hosts/linux/desktop/TrayHosts.h"

#include "hosts/linux/desktop/X11.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

namespace pryvane {

namespace {

const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");

} // namespace

TrayHosts::TrayHosts(QDBusConnection bus) : m_bus(std::move(bus))
{
    if (m_bus.isConnected()) {
        auto* watcher = new QDBusServiceWatcher(kWatcher, m_bus,
                                                QDBusServiceWatcher::WatchForOwnerChange, this);
        connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayHosts::askBus);
        for (const char* signal :
             {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
            m_bus.connect(kWatcher, kWatcherPath, kWatcher, QLatin1String(signal), this,
                          SLOT(askBus()));
        askBus();
    }
    if (x11::connection()) {
        m_selection = x11::atom("_NET_SYSTEM_TRAY_S0");
        QCoreApplication::instance()->installNativeEventFilter(this);
        lookAtX11();
    }
}

TrayHosts::~TrayHosts()
{
    if (auto* application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

void TrayHosts::askBus()
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        kWatcher, kWatcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    call << kWatcher << QStringLiteral("IsStatusNotifierHostRegistered");
    call.setAutoStartService(false);
    auto* reply = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, &TrayHosts::takeAnswer);
}

void TrayHosts::takeAnswer(QDBusPendingCallWatcher* reply)
{
    const QDBusPendingReply<QDBusVariant> answer = *reply;
    reply->deleteLater();
    settle(!answer.isError() && answer.value().variant().toBool(), m_onX11);
}

void TrayHosts::lookAtX11()
{
    const xcb_window_t owner = x11::selectionOwner(m_selection);
    if (owner != XCB_WINDOW_NONE)
        x11::watchEndOf(owner);
    settle(m_onBus, owner);
}

void TrayHosts::settle(bool onBus, std::uint32_t onX11)
{
    const bool before = present();
    m_onBus = onBus;
    m_onX11 = onX11;
    // Later, for this may run inside a native event.
    if (present() != before)
        QMetaObject::invokeMethod(this, &TrayHosts::changed, Qt::QueuedConnection);
}

bool TrayHosts::nativeEventFilter(const QByteArray& type, void* message, qintptr*)
{
    if (type != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const int kind = event->response_type & 0x7f;
    if (kind == XCB_CLIENT_MESSAGE) {
        // A new tray tells everybody that it manages the selection.
        const auto* told = reinterpret_cast<const xcb_client_message_event_t*>(event);
        if (told->format == 32 && told->data.data32[1] == m_selection)
            lookAtX11();
    } else if (kind == XCB_DESTROY_NOTIFY && m_onX11 != 0) {
        const auto* gone = reinterpret_cast<const xcb_destroy_notify_event_t*>(event);
        if (gone->window == m_onX11)
            lookAtX11();
    }
    return false;
}

} // namespace pryvane
