#include "hosts/qt/bus/BusClosedScans.h"

#include "core/Escape.h"

#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QTimer>

namespace pryvane {

namespace {

constexpr int kPatience = 10'000; // ms; a reload may have many units to read

QDBusMessage callOf(const char* member)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.systemd1"), QStringLiteral("/org/freedesktop/systemd1"),
        QStringLiteral("org.freedesktop.systemd1.Manager"), QLatin1String(member));
    call.setAutoStartService(false); // only one that runs the session can start anything later
    return call;
}

QString timerName()
{
    return QString::fromLatin1(TimerUnits::kTimer);
}

QDBusMessage enabling()
{
    QDBusMessage call = callOf("EnableUnitFiles");
    call << QStringList(timerName()) << false << false;
    return call;
}

QDBusMessage disabling()
{
    QDBusMessage call = callOf("DisableUnitFiles");
    call << QStringList(timerName()) << false;
    return call;
}

QDBusMessage ofTimer(const char* member)
{
    QDBusMessage call = callOf(member);
    call << timerName() << QStringLiteral("replace");
    return call;
}

bool isError(const QDBusMessage& reply)
{
    return reply.type() == QDBusMessage::ErrorMessage;
}

constexpr const char* kNoManager =
    "this session is not run by systemd, which would have to start these scans.";

} // namespace

BusClosedScans::BusClosedScans(QDBusConnection bus, TimerUnits::Places places)
    : m_bus(std::move(bus)), m_units(std::move(places))
{
}

void BusClosedScans::begin(std::function<void()> task)
{
    m_tasks.push_back(std::move(task));
    if (m_tasks.size() == 1)
        QTimer::singleShot(0, this, [this] { m_tasks.front()(); });
}

void BusClosedScans::ended()
{
    m_tasks.pop_front();
    if (!m_tasks.empty())
        QTimer::singleShot(0, this, [this] { m_tasks.front()(); });
}

void BusClosedScans::ask(const QDBusMessage& call, Replied replied)
{
    auto* const waiting = new QDBusPendingCallWatcher(m_bus.asyncCall(call, kPatience), this);
    connect(waiting, &QDBusPendingCallWatcher::finished, this,
            [replied = std::move(replied)](QDBusPendingCallWatcher* answered) {
                answered->deleteLater();
                replied(answered->reply());
            });
}

void BusClosedScans::askAll(Calls calls, Outcome told)
{
    if (calls.empty())
        return told(Done{});
    const QDBusMessage call = calls.front();
    calls.pop_front();
    ask(call, [this, calls = std::move(calls), told = std::move(told)](const QDBusMessage& reply) {
        if (isError(reply))
            told(Error{"systemd refuses: " + forScreen(reply.errorMessage().toStdString())});
        else
            askAll(calls, told);
    });
}

/// A manager that does not know the timer answers with an error of its own.
void BusClosedScans::whenManaged(std::function<void(bool)> managed, std::function<void()> without)
{
    QDBusMessage call = callOf("GetUnitFileState");
    call << timerName();
    ask(call,
        [managed = std::move(managed), without = std::move(without)](const QDBusMessage& reply) {
            const QString error = reply.errorName();
            const bool isThere = !isError(reply) ||
                                 error.startsWith(QLatin1String("org.freedesktop.systemd1.")) ||
                                 error == QLatin1String("org.freedesktop.DBus.Error.FileNotFound");
            if (isThere)
                managed(!isError(reply) &&
                        reply.arguments().value(0).toString() == QLatin1String("enabled"));
            else
                without();
        });
}

void BusClosedScans::look(Stands told)
{
    begin([this, told = std::move(told)] {
        const auto tell = [this, told](const Standing& standing) {
            told(standing);
            ended();
        };
        const auto without = [tell] { tell({Standing::Kind::Unavailable, kNoManager}); };
        if (std::string obstacle = m_units.obstacle(); !obstacle.empty())
            return tell({Standing::Kind::Unavailable, std::move(obstacle)});
        whenManaged(
            [this, tell](bool isEnabled) {
                const auto found = m_units.found();
                const bool isWhole = found && !found->timer.empty() && !found->service.empty();
                tell({isWhole && isEnabled ? Standing::Kind::On : Standing::Kind::Off});
            },
            without);
    });
}

void BusClosedScans::arrange(const std::vector<Date>& moments, Outcome told)
{
    begin([this, moments, told = std::move(told)] {
        const Outcome tell = [this, told](const Result<Done>& outcome) {
            told(outcome);
            ended();
        };
        const auto wanted = m_units.wanted(moments);
        const auto before = m_units.found();
        if (!wanted || !before)
            return tell(wanted ? before.error() : wanted.error());
        whenManaged(
            [this, tell, wanted = *wanted, before = *before](bool isEnabled) {
                if (isEnabled && wanted == before)
                    tell(Done{});
                else
                    write(wanted, before, tell);
            },
            [tell] { tell(Error{kNoManager}); });
    });
}

void BusClosedScans::write(const TimerUnits::Texts& wanted, const TimerUnits::Texts& before,
                           Outcome told)
{
    if (const auto written = m_units.put(wanted); !written)
        return backOut(before, written.error(), told);
    // It is started anew, since a timer that runs keeps to its old times.
    askAll({callOf("Reload"), enabling(), callOf("Reload"), ofTimer("RestartUnit")},
           [this, before, told = std::move(told)](const Result<Done>& asked) {
               if (asked)
                   told(asked);
               else
                   backOut(before, asked.error(), told);
           });
}

/// Where it stood before, it goes on as it did then.
void BusClosedScans::backOut(const TimerUnits::Texts& before, const Error& why, const Outcome& told)
{
    const bool wasThere = !before.timer.empty();
    const auto finish = [this, before, why, told, wasThere] {
        const auto put = m_units.put(before);
        Error whole = why;
        if (!put)
            whole.message += "; " + put.error().message;
        Calls calls{callOf("Reload")};
        if (wasThere)
            calls.push_back(ofTimer("RestartUnit"));
        askAll(calls, [told, whole](const Result<Done>&) { told(whole); });
    };
    if (wasThere)
        return finish();
    askAll({disabling()}, [finish](const Result<Done>&) { finish(); });
}

void BusClosedScans::cancel(Outcome told)
{
    begin([this, told = std::move(told)] {
        const Outcome tell = [this, told](const Result<Done>& outcome) {
            told(outcome);
            ended();
        };
        const auto before = m_units.found();
        if (!before || *before == TimerUnits::Texts{})
            return tell(Done{}); // nothing of ours is there
        whenManaged([this, tell](bool) { remove(true, tell); },
                    [this, tell] { remove(false, tell); });
    });
}

/// One that is not loaded cannot be stopped, which is as well.
void BusClosedScans::remove(bool isManaged, const Outcome& told)
{
    if (!isManaged)
        return told(m_units.removeWithoutManager());
    ask(ofTimer("StopUnit"), [this, told](const QDBusMessage&) {
        askAll({disabling()}, [this, told](const Result<Done>& asked) {
            const auto removed = asked ? m_units.put({}) : asked;
            if (!removed)
                return told(removed);
            askAll({callOf("Reload")}, told);
        });
    });
}

} // namespace pryvane
