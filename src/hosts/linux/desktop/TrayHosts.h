#pragma once

#include "hosts/qt/widgets/TrayStatusItem.h"

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>

#include <cstdint>

class QDBusPendingCallWatcher;

namespace pryvane {

/// Whether the desktop has a place for status items now: a StatusNotifierItem host on the session
/// bus, or a tray of X11. Told by events; nothing is polled.
class TrayHosts final : public TrayPlaces, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit TrayHosts(QDBusConnection bus);
    ~TrayHosts() override;

    [[nodiscard]] bool present() const override { return m_onBus || m_onX11 != 0; }

private Q_SLOTS:
    void askBus();

private:
    void takeAnswer(QDBusPendingCallWatcher* reply);
    void lookAtX11();
    void settle(bool onBus, std::uint32_t onX11);
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

    QDBusConnection m_bus;
    bool m_onBus = false;
    std::uint32_t m_selection = 0; // the atom by which a tray of X11 is known
    std::uint32_t m_onX11 = 0;     // its window
};

} // namespace pryvane
