#include "hosts/qt/bus/BusTaskProgress.h"

#include <QDBusMessage>
#include <QVariantMap>

#include <algorithm>

namespace pryvane {

BusTaskProgress::BusTaskProgress(QDBusConnection bus) : m_bus(std::move(bus))
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(kBetween);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        if (m_wanted)
            show(*m_wanted);
    });
}

void BusTaskProgress::show(double share)
{
    m_wanted = std::clamp(share, 0.0, 1.0);
    if (m_wanted == m_sent || m_pause.isActive())
        return;
    send(m_wanted);
    m_pause.start();
}

/// At once: the program may be about to end.
void BusTaskProgress::hide()
{
    m_wanted.reset();
    if (m_sent)
        send(std::nullopt);
}

void BusTaskProgress::send(std::optional<double> share)
{
    m_sent = share;
    QDBusMessage signal = QDBusMessage::createSignal(
        QStringLiteral("/com/torvell/Pryvane"), QStringLiteral("com.canonical.Unity.LauncherEntry"),
        QStringLiteral("Update"));
    signal << QStringLiteral("application://com.torvell.Pryvane.desktop")
           << QVariantMap{{QStringLiteral("progress"), share.value_or(0.0)},
                          {QStringLiteral("progress-visible"), share.has_value()}};
    m_bus.send(signal);
}

} // namespace pryvane
