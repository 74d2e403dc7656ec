#include "hosts/qt/widgets/TrayStatusItem.h"

#include "hosts/qt/Text.h"
#include "hosts/qt/widgets/X11.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>

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

TrayStatusItem::TrayStatusItem(QDBusConnection bus, DrawIcon drawIcon)
    : m_drawIcon(std::move(drawIcon)), m_hosts(std::move(bus))
{
    m_menu.setToolTipsVisible(false);
    connect(&m_hosts, &TrayHosts::changed, this, &TrayStatusItem::followHosts);
}

TrayStatusItem::~TrayStatusItem() = default;

void TrayStatusItem::create(std::string_view image, int points)
{
    m_image = m_drawIcon(image, points);
    m_created = true;
    if (m_hosts.present())
        QMetaObject::invokeMethod(this, &TrayStatusItem::followHosts, Qt::QueuedConnection);
}

bool TrayStatusItem::available() const
{
    return m_icon && m_hosts.present();
}

void TrayStatusItem::whenAvailabilityChanges(std::function<void()> changed)
{
    m_changed = std::move(changed);
}

void TrayStatusItem::followHosts()
{
    const bool shown = m_icon != nullptr;
    if (!m_created || shown == m_hosts.present())
        return;
    m_icon.reset();
    if (m_hosts.present()) {
        m_icon = std::make_unique<QSystemTrayIcon>(m_image);
        m_icon->setToolTip(QStringLiteral("Pryvane"));
        m_icon->setContextMenu(&m_menu);
        // Not every tray opens the menu on the main button; only X11 lets a program do so itself.
        connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](auto reason) {
            if (reason == QSystemTrayIcon::Trigger &&
                QGuiApplication::platformName() == QLatin1String("xcb"))
                m_menu.popup(QCursor::pos());
        });
        m_icon->show();
    }
    const auto changed = m_changed;
    if (changed)
        changed();
}

void TrayStatusItem::setMenu(std::vector<StatusMenuEntry> entries)
{
    // One of the old actions may be the caller.
    for (QAction* old : m_menu.actions()) {
        m_menu.removeAction(old);
        old->deleteLater();
    }
    for (StatusMenuEntry& entry : entries) {
        if (entry.title.empty()) {
            m_menu.addSeparator();
            continue;
        }
        QAction* action = m_menu.addAction(qt::buttonText(entry.title));
        action->setCheckable(entry.checked.has_value());
        action->setChecked(entry.checked.value_or(false));
        connect(action, &QAction::triggered, this, [run = std::move(entry.action)] {
            const auto copy = run; // outlives a menu that it replaces
            if (copy)
                copy();
        });
    }
}

} // namespace pryvane
