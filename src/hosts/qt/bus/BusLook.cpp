#include "hosts/qt/bus/BusLook.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace pryvane {

namespace {

const QLatin1String kService("org.freedesktop.portal.Desktop");
const QLatin1String kPath("/org/freedesktop/portal/desktop");
const QLatin1String kInterface("org.freedesktop.portal.Settings");
const QLatin1String kGroup("org.freedesktop.appearance");
const QLatin1String kColours("color-scheme"), kContrast("contrast");

/// Portals wrap a value once when it changes, and twice when it is read.
QVariant unwrapped(QVariant value)
{
    for (int depth = 0; depth < 2 && value.canConvert<QDBusVariant>(); ++depth)
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

BusLook::BusLook(QDBusConnection bus) : m_bus(std::move(bus)) {}

void BusLook::follow(DesktopHost::LookTold told)
{
    m_told = std::move(told);
    m_bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                  SLOT(heard(QString, QString, QDBusVariant)));
    ask(kColours);
    ask(kContrast);
}

void BusLook::ask(const QString& key)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    call << QString(kGroup) << key;
    auto* const waiting = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this,
            [this, key](QDBusPendingCallWatcher* answered) {
                answered->deleteLater();
                const QDBusPendingReply<QDBusVariant> reply = *answered;
                if (reply.isValid())
                    take(key, reply.value().variant());
            });
}

void BusLook::heard(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == kGroup)
        take(key, value.variant());
}

void BusLook::take(const QString& key, const QVariant& value)
{
    const uint told = unwrapped(value).toUInt();
    if (key == kColours)
        m_dark = told == 1 ? std::optional(true) : told == 2 ? std::optional(false) : std::nullopt;
    else if (key == kContrast)
        m_contrast = told == 1;
    else
        return;
    m_told(m_dark, m_contrast);
}

} // namespace pryvane
