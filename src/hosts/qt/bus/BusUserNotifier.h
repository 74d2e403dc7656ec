#pragma once

#include "platform/Messages.h"

#include <QDBusConnection>
#include <QObject>

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

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

    /// How an English text reads in the user's language; and what takes the desktop's permission
    /// to come to the front, just before a message's `show` is called.
    using Shown = std::function<QString(const std::string& english)>;
    using UseToken = std::function<void(const std::string& activationToken)>;
    void setUp(Shown shown, UseToken useToken);

    void deliver(const std::string& title, const std::string& informativeText) override;
    void update(const std::string& title, const std::string& informativeText) override;
    void conclude(const std::string& title, const std::string& informativeText,
                  const std::function<void()>& show) override;
    void withdraw() override;

private Q_SLOTS:
    void actionInvoked(uint id, const QString& key);
    void activationToken(uint id, const QString& token);

private:
    enum class Kind : std::uint8_t { Single, Update, Conclusion };
    struct Message {
        std::string title, details;
        Kind kind = Kind::Single;
        std::function<void()> show; ///< of a conclusion
    };
    struct Words {
        QString summary, body;
    };

    void show(Message message);

    void takeCapabilities(QDBusPendingCallWatcher* reply);
    void send(const Message& message);
    [[nodiscard]] bool can(const char* what) const;
    [[nodiscard]] Words wordsOf(const Message& message) const;
    void updateShown(std::optional<unsigned> id, const Message& message);
    void closeSingles();
    void close(unsigned id);
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
    bool m_isWithdrawn = false;          ///< before its number came
    std::optional<Message> m_nextUpdate; ///< waits for it
    std::vector<unsigned> m_singles;     ///< shown since the last conclusion
    std::function<void()> m_show;        ///< of the conclusion that is shown
    bool m_hearsActions = false;
    Shown m_shown;
    UseToken m_useToken;
    std::set<std::string> m_logged;
};

} // namespace pryvane
