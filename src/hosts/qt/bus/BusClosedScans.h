#pragma once

#include "hosts/linux/TimerUnits.h"
#include "platform/ClosedScans.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <deque>

namespace pryvane {

/// Scans while the window is closed by a timer of the user's systemd, which is asked and told on
/// the session bus. One thing is done after the other.
class BusClosedScans final : public QObject, public ClosedScans {
    Q_OBJECT

public:
    BusClosedScans(QDBusConnection bus, TimerUnits::Places places);

    [[nodiscard]] bool isOffered() const override { return true; }
    void look(Stands told) override;
    void arrange(const std::vector<Date>& moments, Outcome told) override;
    void cancel(Outcome told) override;

private:
    using Replied = std::function<void(const QDBusMessage& reply)>;
    using Calls = std::deque<QDBusMessage>;

    /// Runs it once all that was begun before has called ended().
    void begin(std::function<void()> task);
    void ended();
    void ask(const QDBusMessage& call, Replied replied);
    /// One after the other, up to the first that fails.
    void askAll(Calls calls, Outcome told);
    void whenManaged(std::function<void(bool isEnabled)> managed, std::function<void()> without);
    void write(const TimerUnits::Texts& wanted, const TimerUnits::Texts& before, Outcome told);
    void backOut(const TimerUnits::Texts& before, const Error& why, const Outcome& told);
    void remove(bool isManaged, const Outcome& told);

    QDBusConnection m_bus;
    const TimerUnits m_units;
    std::deque<std::function<void()>> m_tasks; ///< the first one runs
};

} // namespace pryvane
