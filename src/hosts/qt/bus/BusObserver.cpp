#include "hosts/qt/bus/BusObserver.h"

#include "hosts/linux/SessionBusNames.h"

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

} // namespace pryvane
