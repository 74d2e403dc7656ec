#pragma once

#include "platform/Messages.h"

#include <QDBusConnection>
#include <QObject>

#include <deque>
#include <set>
#include <utility>

class QDBusPendingCallWatcher;

namespace pryvane {

/// Desktop notifications by org.freedesktop.Notifications. What its service can show is asked
/// first, without waiting; messages stay in a short queue until it has answered or its time is up.
class BusUserNotifier final : public QObject, public UserNotifier {
    Q_OBJECT

public:
    /// Messages that a service has not taken yet; more than these are dropped and the log says so.
    static constexpr std::size_t kWaiting = 32;

    BusUserNotifier(QDBusConnection bus, Log& log, int patienceInMs = 5000);

    void deliver(const std::string& title, const std::string& informativeText) override;

private:
    using Message = std::pair<std::string, std::string>;

    void takeCapabilities(QDBusPendingCallWatcher* reply);
    void send(const Message& message);
    void logOnce(const std::string& what);

    QDBusConnection m_bus;
    Log& m_log;
    const int m_patience;
    std::deque<Message> m_queue;
    bool m_asked = false;
    bool m_known = false;
    std::set<QString> m_capabilities;
    std::size_t m_onTheirWay = 0;
    std::set<std::string> m_logged;
};

} // namespace pryvane
