#include "hosts/qt/bus/BusDistributedNotifications.h"

#include "core/Escape.h"
#include "hosts/linux/SessionBusNames.h"
#include "hosts/qt/Text.h"
#include "hosts/qt/bus/BusObserver.h"

#include <QDBusMessage>

namespace pryvane {

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
