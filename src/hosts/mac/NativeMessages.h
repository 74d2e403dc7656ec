#pragma once

#include "platform/DesktopPrograms.h"

namespace pryvane {

/// Messages between the programs of one user by the system's distributed notifications.
class NativeMessages final : public DistributedNotifications {
public:
    void post(std::string_view name, std::string_view object) override;
    [[nodiscard]] std::unique_ptr<Observation> observe(std::string_view name,
                                                       Handler handler) override;
};

} // namespace pryvane
