#include "hosts/qt/QtMainQueue.h"

#include <QThread>
#include <QTimer>

namespace pryvane {

void QtMainQueue::post(Work work)
{
    QMetaObject::invokeMethod(&m_context, std::move(work), Qt::QueuedConnection);
}

void QtMainQueue::postAfter(std::chrono::milliseconds delay, Work work)
{
    if (delay.count() <= 0) {
        post(std::move(work));
        return;
    }
    // Coarse timers may be early by a twentieth. A timer belongs to the thread that starts it.
    post([this, delay, work = std::move(work)] {
        QTimer::singleShot(delay, Qt::PreciseTimer, &m_context, work);
    });
}

bool QtMainQueue::isMainThread() const
{
    return QThread::currentThread() == m_context.thread();
}

} // namespace pryvane
