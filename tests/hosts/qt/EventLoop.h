#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <chrono>

namespace pryvane::test {

/// Runs Qt's events until `done` says so; false after the limit without. The limit is for what
/// never comes: a machine under load may let a thread wait for many seconds.
template <typename Condition>
[[nodiscard]] bool runUntil(Condition done,
                            std::chrono::milliseconds limit = std::chrono::seconds(60))
{
    const QDeadlineTimer end(limit);
    while (!done()) {
        if (end.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QThread::msleep(1);
    }
    return true;
}

/// Runs Qt's events for that long.
inline void runFor(std::chrono::milliseconds time)
{
    const QDeadlineTimer end(time);
    static_cast<void>(runUntil([&] { return end.hasExpired(); }, time * 2));
}

/// What `work` took.
template <typename Work>
[[nodiscard]] std::chrono::milliseconds timeOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 start);
}

} // namespace pryvane::test
