#include "hosts/qt/bus/BusDistributedNotifications.h"

#include "core/Escape.h"
#include "hosts/linux/LoginHelper.h"
#include "hosts/qt/Text.h"

#include <QDBusMessage>
#include <QStringList>

namespace pryvane {

BusObserver::BusObserver(QDBusConnection connection, const QString& name,
                         DistributedNotifications::Handler handler)
    : m_name(name), m_handler(std::move(handler))
{
    // The bus filters by the name, so that other messages do not wake this program.
    connection.connect({}, QLatin1String(bus::kMessagePath), QLatin1String(bus::kMessageInterface),
                       QLatin1String(bus::kMessageMember), {name}, QStringLiteral("ss"), this,
                       SLOT(heard(QString, QString)));
}

void BusObserver::heard(const QString& name, const QString& object)
{
    if (name != m_name)
        return;
    const auto handler = m_handler; // which may end this
    handler(object.toStdString());
}

BusDistributedNotifications::BusDistributedNotifications(QDBusConnection bus, Log& log)
    : m_bus(std::move(bus)), m_log(log)
{
}

void BusDistributedNotifications::post(std::string_view name, std::string_view object)
{
    QDBusMessage signal = QDBusMessage::createSignal(QLatin1String(bus::kMessagePath),
                                                     QLatin1String(bus::kMessageInterface),
                                                     QLatin1String(bus::kMessageMember));
    signal << qt::text(name) << qt::text(object);
    if (!m_bus.send(signal))
        m_log.line(forScreen(name) + " was not sent: this session has no bus");
}

std::unique_ptr<DistributedNotifications::Observation>
BusDistributedNotifications::observe(std::string_view name, Handler handler)
{
    return std::make_unique<BusObserver>(m_bus, qt::text(name), std::move(handler));
}

} // namespace pryvane
