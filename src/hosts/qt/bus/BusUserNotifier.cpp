#include "hosts/qt/bus/BusUserNotifier.h"

#include "core/Escape.h"
#include "hosts/qt/Text.h"

#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace pryvane {

namespace {

QDBusMessage callOf(const char* member)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                          QStringLiteral("/org/freedesktop/Notifications"),
                                          QStringLiteral("org.freedesktop.Notifications"),
                                          QLatin1String(member));
}

} // namespace

BusUserNotifier::BusUserNotifier(QDBusConnection bus, Log& log, int patienceInMs)
    : m_bus(std::move(bus)), m_log(log), m_patience(patienceInMs)
{
}

void BusUserNotifier::deliver(const std::string& title, const std::string& informativeText)
{
    show({title, informativeText});
}

void BusUserNotifier::update(const std::string& title, const std::string& informativeText)
{
    show({title, informativeText, true});
}

void BusUserNotifier::show(Message message)
{
    if (!m_bus.isConnected()) {
        logOnce("no notification can be shown: this session has no bus");
        return;
    }
    if (m_known) {
        send(message);
        return;
    }
    if (message.updates)
        std::erase_if(m_queue, [](const Message& waiting) { return waiting.updates; });
    if (m_queue.size() < kWaiting)
        m_queue.push_back(std::move(message));
    else
        logOnce("some notifications were not shown: the desktop does not answer");
    if (std::exchange(m_asked, true))
        return;
    auto* reply =
        new QDBusPendingCallWatcher(m_bus.asyncCall(callOf("GetCapabilities"), m_patience), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, &BusUserNotifier::takeCapabilities);
}

/// A service that does not say is taken for one that reads markup: shown entities are ugly, obeyed
/// markup would let a file's name act.
void BusUserNotifier::takeCapabilities(QDBusPendingCallWatcher* reply)
{
    const QDBusPendingReply<QStringList> answer = *reply;
    reply->deleteLater();
    m_known = !answer.isError();
    if (m_known) {
        for (const QString& capability : answer.value())
            m_capabilities.insert(capability);
        for (const Message& message : m_queue)
            send(message);
    } else {
        logOnce("no notification can be shown: " +
                forScreen(answer.error().message().toStdString()));
        m_asked = false; // the next message asks again: a desktop may start its service late
    }
    m_queue.clear();
}

void BusUserNotifier::send(const Message& message)
{
    if (message.updates && m_isUpdating) {
        m_nextUpdate = message;
        return;
    }
    if (m_onTheirWay >= kWaiting) {
        logOnce("some notifications were not shown: the desktop does not answer");
        return;
    }
    const auto& [title, details, updates] = message;
    const auto can = [this](const char* what) {
        return m_capabilities.contains(QLatin1String(what));
    };
    std::string summary = forScreen(title);
    std::string body = can("body-markup") ? forNotification(details) : forScreen(details);
    if (!can("body")) {
        summary += ": " + forScreen(details);
        body.clear();
    }
    QDBusMessage call = callOf("Notify");
    const QVariantMap hints{
        {QStringLiteral("desktop-entry"), QStringLiteral("com.torvell.Pryvane")},
        {QStringLiteral("urgency"), QVariant::fromValue<uchar>(1)}};
    call << QStringLiteral("Pryvane") << (updates ? m_updated : 0U) << QStringLiteral("pryvane")
         << qt::text(summary) << qt::text(body) << QStringList() << hints << -1;
    ++m_onTheirWay;
    m_isUpdating = m_isUpdating || updates;
    auto* reply = new QDBusPendingCallWatcher(m_bus.asyncCall(call, m_patience), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply, updates = updates] {
        --m_onTheirWay;
        if (updates) {
            const QDBusPendingReply<unsigned> shown = *reply;
            updateShown(shown.isError() ? std::nullopt : std::optional(shown.value()));
        }
        if (reply->isError())
            logOnce("a notification was not shown: " +
                    forScreen(reply->error().message().toStdString()));
        reply->deleteLater();
    });
}

void BusUserNotifier::updateShown(std::optional<unsigned> id)
{
    m_isUpdating = false;
    m_updated = id.value_or(m_updated);
    if (const auto next = std::exchange(m_nextUpdate, std::nullopt))
        send(*next);
}

/// A silent service fails on each message; one line tells as much as a thousand.
void BusUserNotifier::logOnce(const std::string& what)
{
    if (m_logged.insert(what).second)
        m_log.line(what);
}

} // namespace pryvane
