#pragma once

#include "platform/Messages.h"

#include <QDBusConnection>
#include <QObject>

#include <deque>
#include <optional>
#include <set>
#include <string>

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
    void update(const std::string& title, const std::string& informativeText) override;

private:
    struct Message {
        std::string title, details;
        bool updates = false; ///< the one that was shown before it of this kind
    };

    void show(Message message);

    void takeCapabilities(QDBusPendingCallWatcher* reply);
    void send(const Message& message);
    void updateShown(std::optional<unsigned> id);
    void logOnce(const std::string& what);

    QDBusConnection m_bus;
    Log& m_log;
    const int m_patience;
    std::deque<Message> m_queue;
    bool m_asked = false;
    bool m_known = false;
    std::set<QString> m_capabilities;
    std::size_t m_onTheirWay = 0;
    unsigned m_updated =
        0; ///< the service's number of the message that is kept up to date; 0: none
    bool m_isUpdating = false;           ///< its number is still to come
    std::optional<Message> m_nextUpdate; ///< waits for it
    std::set<std::string> m_logged;
};

} // namespace pryvane
