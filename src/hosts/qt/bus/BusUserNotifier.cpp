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

const QLatin1String kService("org.freedesktop.Notifications"),
    kPath("/org/freedesktop/Notifications");

QDBusMessage callOf(const char* member)
{
    return QDBusMessage::createMethodCall(kService, kPath, kService, QLatin1String(member));
}

} // namespace

BusUserNotifier::BusUserNotifier(QDBusConnection bus, Log& log, int patienceInMs)
    : m_bus(std::move(bus)), m_log(log), m_patience(patienceInMs)
{
}

void BusUserNotifier::deliver(const std::string& title, const std::string& informativeText)
{
    show({title, informativeText, Kind::Single, {}});
}

void BusUserNotifier::update(const std::string& title, const std::string& informativeText)
{
    show({title, informativeText, Kind::Update, {}});
}

void BusUserNotifier::setUp(Shown shown, UseToken useToken)
{
    m_shown = std::move(shown);
    m_useToken = std::move(useToken);
}

void BusUserNotifier::conclude(const std::string& title, const std::string& informativeText,
                               const std::function<void()>& show)
{
    this->show({title, informativeText, Kind::Conclusion, show});
}

void BusUserNotifier::withdraw()
{
    m_queue.clear();
    m_nextUpdate.reset();
    m_show = {};
    m_isWithdrawn = m_isUpdating;
    closeSingles();
    if (!m_isUpdating)
        close(std::exchange(m_updated, 0U));
}

void BusUserNotifier::closeSingles()
{
    for (const unsigned id : std::exchange(m_singles, {}))
        close(id);
}

void BusUserNotifier::close(unsigned id)
{
    if (id == 0)
        return;
    QDBusMessage call = callOf("CloseNotification");
    call << id;
    m_bus.send(call);
}

/// Whichever of the two ways it was chosen by.
void BusUserNotifier::actionInvoked(uint id, const QString&)
{
    if (id != m_updated || !m_show)
        return;
    const auto show = std::exchange(m_show, {}); // which may conclude anew
    show();
}

void BusUserNotifier::activationToken(uint id, const QString& token)
{
    if (id == m_updated && m_show && m_useToken)
        m_useToken(token.toStdString());
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
    if (message.kind == Kind::Conclusion)
        m_queue.clear();
    else if (message.kind == Kind::Update)
        std::erase_if(m_queue, [](const Message& waiting) { return waiting.kind != Kind::Single; });
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

bool BusUserNotifier::can(const char* what) const
{
    return m_capabilities.contains(QLatin1String(what));
}

BusUserNotifier::Words BusUserNotifier::wordsOf(const Message& message) const
{
    Words words;
    if (message.kind == Kind::Conclusion && m_shown) {
        words = {m_shown(message.title), m_shown(message.details)};
        if (can("body") && can("body-markup"))
            words.body = words.body.toHtmlEscaped();
    } else {
        words.summary = qt::text(forScreen(message.title));
        words.body = qt::text(can("body") && can("body-markup") ? forNotification(message.details)
                                                                : forScreen(message.details));
    }
    if (!can("body"))
        words = {words.summary + QLatin1String(": ") + words.body, {}};
    return words;
}

void BusUserNotifier::send(const Message& message)
{
    const bool updates = message.kind != Kind::Single;
    if (updates && m_isUpdating) {
        m_nextUpdate = message;
        return;
    }
    if (m_onTheirWay >= kWaiting) {
        logOnce("some notifications were not shown: the desktop does not answer");
        return;
    }
    QStringList actions;
    if (message.kind == Kind::Conclusion && can("actions")) {
        const QString label = m_shown ? m_shown("Show") : QStringLiteral("Show");
        actions = {QStringLiteral("default"), label, QStringLiteral("show"), label};
        if (!std::exchange(m_hearsActions, true)) {
            m_bus.connect(kService, kPath, kService, QStringLiteral("ActionInvoked"), this,
                          SLOT(actionInvoked(uint, QString)));
            m_bus.connect(kService, kPath, kService, QStringLiteral("ActivationToken"), this,
                          SLOT(activationToken(uint, QString)));
        }
    }
    const Words words = wordsOf(message);
    QDBusMessage call = callOf("Notify");
    const QVariantMap hints{
        {QStringLiteral("desktop-entry"), QStringLiteral("com.torvell.Pryvane")},
        {QStringLiteral("urgency"), QVariant::fromValue<uchar>(1)}};
    call << QStringLiteral("Pryvane") << (updates ? m_updated : 0U) << QStringLiteral("pryvane")
         << words.summary << words.body << actions << hints << -1;
    ++m_onTheirWay;
    m_isUpdating = m_isUpdating || updates;
    auto* reply = new QDBusPendingCallWatcher(m_bus.asyncCall(call, m_patience), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply, message] {
        --m_onTheirWay;
        const QDBusPendingReply<unsigned> shown = *reply;
        if (message.kind != Kind::Single)
            updateShown(shown.isError() ? std::nullopt : std::optional(shown.value()), message);
        else if (!shown.isError())
            m_singles.push_back(shown.value());
        if (reply->isError())
            logOnce("a notification was not shown: " +
                    forScreen(reply->error().message().toStdString()));
        reply->deleteLater();
    });
}

/// A conclusion says all that those before it did.
void BusUserNotifier::updateShown(std::optional<unsigned> id, const Message& message)
{
    m_isUpdating = false;
    m_updated = id.value_or(m_updated);
    m_show = message.show;
    if (message.kind == Kind::Conclusion)
        closeSingles();
    if (std::exchange(m_isWithdrawn, false)) {
        m_show = {};
        close(std::exchange(m_updated, 0U));
    }
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
