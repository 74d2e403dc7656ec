#pragma once

#include "platform/DistributedNotifications.h"
#include "platform/Log.h"

#include <QDBusConnection>

namespace pryvane {

/// Messages between the user's programs as signals on the session bus.
class BusDistributedNotifications final : public DistributedNotifications {
public:
    BusDistributedNotifications(QDBusConnection bus, Log& log);

    void post(std::string_view name, std::string_view object) override;
    [[nodiscard]] std::unique_ptr<Observation> observe(std::string_view name,
                                                       Handler handler) override;

private:
    QDBusConnection m_bus;
    Log& m_log;
};

} // namespace pryvane
