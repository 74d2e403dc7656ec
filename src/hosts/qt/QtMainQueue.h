#pragma once

#include "core/tasks/MainQueue.h"

#include <QObject>

namespace pryvane {

/// The main queue on Qt's event loop, of the thread that makes it. Work that is still waiting when
/// this ends is dropped. Must not end while other threads still post.
class QtMainQueue final : public MainQueue {
public:
    void post(Work work) override;
    void postAfter(std::chrono::milliseconds delay, Work work) override;
    [[nodiscard]] bool isMainThread() const override;

private:
    QObject m_context; // its end drops what waits
};

} // namespace pryvane
