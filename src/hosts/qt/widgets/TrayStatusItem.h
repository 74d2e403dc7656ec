#pragma once

#include "platform/DesktopWindows.h"

#include <QAbstractNativeEventFilter>
#include <QDBusConnection>
#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <cstdint>
#include <memory>

class QDBusPendingCallWatcher;

namespace pryvane {

/// Whether the desktop has a place for status items now: a StatusNotifierItem host on the session
/// bus, or a tray of X11. Told by events; nothing is polled.
class TrayHosts final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    explicit TrayHosts(QDBusConnection bus);
    ~TrayHosts() override;

    [[nodiscard]] bool present() const { return m_onBus || m_onX11 != 0; }

Q_SIGNALS:
    void changed();

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

/// The status item as a tray icon. Qt decides once which kind of tray there is, so the icon is made
/// only when one has been seen, and anew for each that comes.
class TrayStatusItem final : public QObject, public StatusItem {
    Q_OBJECT

public:
    /// Draws the named image of the image set in that size.
    using DrawIcon = std::function<QIcon(std::string_view image, int points)>;

    TrayStatusItem(QDBusConnection bus, DrawIcon drawIcon);
    ~TrayStatusItem() override;

    void create(std::string_view image, int points) override;
    [[nodiscard]] bool available() const override;
    void whenAvailabilityChanges(std::function<void()> changed) override;
    void setMenu(std::vector<StatusMenuEntry> entries) override;

    /// As it is shown now.
    [[nodiscard]] QMenu& menu() { return m_menu; }

private:
    void followHosts();

    DrawIcon m_drawIcon;
    QIcon m_image;
    bool m_created = false;
    TrayHosts m_hosts;
    QMenu m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
    std::function<void()> m_changed;
};

} // namespace pryvane
